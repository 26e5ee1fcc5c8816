#include "CommandEffect.h"

#include "Forms.h"
#include "Globals.h"
#include "MdiArea.h"
#include "StandInTool.h"
#include "StatusBar.h"
#include "Toolbar.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QTest>

namespace {

const QString documentName = QStringLiteral("frmDocument");

QList<QMdiSubWindow *> children(const frmMain &frame)
{
    return static_cast<const MdiArea *>(frame.centralWidget())->childWindows();
}

QString number(std::optional<int> value)
{
    return value ? QString::number(*value) : QStringLiteral("mixed");
}

/// The windows that are no documents.
QString toolNames()
{
    QStringList names;
    for (const Form *form : Forms::loaded()) {
        if (form->Name() != documentName)
            names << form->Name();
    }
    return names.join(u' ');
}

} // namespace

CommandEffect::CommandEffect()
{
    makeTools();
    makeDocuments();
    arrangeFreely();
    m_suite.dialogs.leaveWhatComes();
}

void CommandEffect::makeTools() const
{
    for (const char *tool : {"frmAddressBook", "frmFTP", "frmImageMain", "frmCalculator", "frmZip",
                             "frmUnzip", "frmCompsOnNetwork", "frmRestorePoints", "frmSystemMessage",
                             "frmdownload2", "frmHelpContents", "frmdialler", "frmBrowser"}) {
        const QString name = QString::fromLatin1(tool);
        Forms::registerWindow(name, Forms::Instances::One, [name] { return new StandInTool(name); });
    }
    const QString about = QStringLiteral("frmAbout");
    Forms::registerWindow(about, Forms::Instances::One, [about] { return new Form(about); });
}

/// In the first two paragraphs with bullets are selected, the one to the right and the other centred. The
/// third is minimised.
void CommandEffect::makeDocuments()
{
    m_suite.choose("mnuFileNew");
    m_suite.choose("mnuFileNew");
    m_suite.active().parentWidget()->showMinimized();
    Form &first = *Forms::named(documentName).constFirst();
    first.showModeless();
    RichTextBox &text = m_suite.text();
    m_suite.type(QStringLiteral("one"));
    text.setSelAlignment(1);
    text.setBulletIndent(20);
    text.setSelBullet(true);
    QTest::keyClick(&text, Qt::Key_Return);
    m_suite.type(QStringLiteral("two"));
    text.setSelAlignment(2);
    text.selectAll();
    QGuiApplication::clipboard()->setText(QStringLiteral("clip"));
}

void CommandEffect::arrangeFreely() const
{
    const QList<QMdiSubWindow *> all = children(m_suite.frame());
    all[0]->setGeometry(20, 20, 300, 200);
    all[1]->setGeometry(100, 60, 310, 210);
    all[2]->move(50, 50);
}

QString CommandEffect::arrangement() const
{
    const QList<QMdiSubWindow *> all = children(m_suite.frame());
    if (all.size() < 3 || all[0]->isHidden())
        return QStringLiteral("closed");
    const QRect area = static_cast<const MdiArea *>(m_suite.frame().centralWidget())->viewport()->rect();
    const QString icons = all[2]->geometry().bottomLeft() == area.bottomLeft() ? QStringLiteral("rowed icons")
                                                                               : QStringLiteral("loose icon");
    if (all[0]->width() == area.width() && all[1]->width() == area.width())
        return icons + QStringLiteral(", one above the other");
    if (all[0]->y() == 0 && all[1]->y() == 0)
        return icons + QStringLiteral(", side by side");
    if (all[0]->pos() == QPoint(0, 0) || all[1]->pos() == QPoint(0, 0))
        return icons + QStringLiteral(", cascade");
    return icons + QStringLiteral(", free");
}

QString CommandEffect::dialogs() const
{
    QStringList all;
    for (const SeenDialog &seen : m_suite.dialogs.seen())
        all << seen.objectName + u' ' + seen.title;
    return all.join(QStringLiteral(", "));
}

CommandEffect::State CommandEffect::state() const
{
    const Form *active = m_suite.frame().ActiveForm();
    State state;
    state[QStringLiteral("tools")] = toolNames();
    state[QStringLiteral("documents")] = QString::number(Forms::named(documentName).size());
    state[QStringLiteral("active")] = active ? active->Caption().section(u'/', -1) : QString();
    state[QStringLiteral("page")] = active ? active->property("StartingAddress").toString() : QString();
    state[QStringLiteral("mode")] = diallerMode;
    state[QStringLiteral("clipboard")] = QGuiApplication::clipboard()->text();
    state[QStringLiteral("toolbar")] = QString::number(m_suite.frame().tbToolBar().isVisible());
    state[QStringLiteral("status bar")] =
        QString::number(m_suite.frame().findChild<StatusBar *>(QStringLiteral("sbStatusBar"))->isVisible());
    state[QStringLiteral("children")] = arrangement();
    state[QStringLiteral("dialogs")] = dialogs();
    state[QStringLiteral("ends")] = QString::number(m_suite.fatal.ends().size());
    QStringList urls;
    for (const QUrl &url : m_urls.opened())
        urls << url.fileName();
    state[QStringLiteral("urls")] = urls.join(u' ');
    const QList<Form *> documents = Forms::named(documentName);
    if (documents.isEmpty() || documents.constFirst()->Caption() != QLatin1String("Document 1"))
        return state;
    const auto &text = documents.constFirst()->member<RichTextBox>(QStringLiteral("rtfTextBox"));
    state[QStringLiteral("text")] = text.Text();
    state[QStringLiteral("selected")] = text.SelText();
    state[QStringLiteral("bold")] = number(text.SelBold());
    state[QStringLiteral("italic")] = number(text.SelItalic());
    state[QStringLiteral("underline")] = number(text.SelUnderline());
    state[QStringLiteral("alignment")] = number(text.SelAlignment());
    state[QStringLiteral("bullet")] = number(text.SelBullet());
    state[QStringLiteral("bullet indent")] = QString::number(text.BulletIndent());
    return state;
}

QString CommandEffect::difference(const State &before, const State &after)
{
    QStringList changes;
    for (auto entry = after.cbegin(); entry != after.cend(); ++entry) {
        if (before.value(entry.key()) != entry.value())
            changes << entry.key() + QStringLiteral(": ") + QString(entry.value()).replace(u'\n', u'/');
    }
    return changes.join(QStringLiteral(" | "));
}

void CommandEffect::choose(const QString &name) const
{
    if (m_suite.frame().findChild<QAction *>(name)) {
        m_suite.choose(qPrintable(name));
    } else {
        m_suite.frame().tbToolBar().button(name).trigger();
        QCoreApplication::processEvents();
    }
}

QString CommandEffect::of(const QString &name)
{
    const State before = state();
    choose(name);
    return difference(before, state());
}

QString CommandEffect::toolStartedBy(const QString &name, const QString &tool)
{
    m_desktop.install(qPrintable(tool));
    choose(name);
    return m_desktop.started().section(u' ', -1);
}
