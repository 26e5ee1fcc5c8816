#include "EditorWindow.h"

#include "AddressBox.h"
#include "AddressDatabase.h"
#include "ChoiceBox.h"
#include "Forms.h"
#include "ListBox.h"
#include "TabStrip.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

const QString editorName = QStringLiteral("frmAddress");

} // namespace

EditorWindow::EditorWindow()
{
    Forms::registerWindow(editorName, Forms::Instances::One, [] { return new frmAddress; });
    AddressConnection.execute(QStringLiteral("Insert into State values(2,'Kent')"));
    AddressConnection.execute(QStringLiteral("insert into city values(2,'London',2)"));
    AddressConnection.execute(QStringLiteral("Insert into Groups values(2,'Family')"));
}

void EditorWindow::openNew()
{
    m_form = &Forms::refer<frmAddress>();
    m_form->load();
    m_form->setCaption(QStringLiteral("Add New Contact"));
    m_form->EditMode = QStringLiteral("New");
    show();
}

void EditorWindow::openFor(qint32 number)
{
    m_form = &Forms::refer<frmAddress>();
    m_form->load();
    m_form->configureEdit(number);
    show();
}

void EditorWindow::show()
{
    m_form->showModeless();
    activate();
}

void EditorWindow::activate() const
{
    m_form->activateWindow();
    (void)QTest::qWaitForWindowActive(m_form);
}

QWidget &EditorWindow::inFront(const char *name) const
{
    auto &found = control<QWidget>(name);
    auto &tabs = control<TabStrip>("SSTab1");
    for (int page = 0; page < tabs.count(); ++page) {
        if (tabs.widget(page)->isAncestorOf(&found))
            tabs.setCurrentIndex(page);
    }
    return found;
}

void EditorWindow::click(const char *name) const
{
    QTest::mouseClick(&inFront(name), Qt::LeftButton);
}

void EditorWindow::type(const char *name, const QString &text) const
{
    activate();
    QWidget &box = inFront(name);
    box.setFocus();
    QTest::keySequence(&box, QKeySequence::SelectAll);
    text.isEmpty() ? QTest::keyClick(&box, Qt::Key_Delete) : QTest::keyClicks(&box, text);
}

void EditorWindow::set(const char *name, const QString &text) const
{
    auto &box = control<QWidget>(name);
    if (auto *line = qobject_cast<QLineEdit *>(&box))
        line->setText(text);
    else if (auto *choice = qobject_cast<ChoiceBox *>(&box))
        choice->setText(text);
    else
        control<AddressBox>(name).setPlainText(text);
}

void EditorWindow::choose(const char *name, int entry) const
{
    activate();
    QWidget &box = inFront(name);
    box.setFocus();
    auto &choice = control<ChoiceBox>(name);
    choice.setCurrentIndex(-1);
    for (int i = 0; i <= entry; ++i)
        QTest::keyClick(&box, Qt::Key_Down);
}

QString EditorWindow::text(const char *name) const
{
    const auto &box = control<QWidget>(name);
    if (const auto *line = qobject_cast<const QLineEdit *>(&box))
        return line->text();
    if (const auto *choice = qobject_cast<const ChoiceBox *>(&box))
        return choice->currentText();
    return control<AddressBox>(name).toPlainText();
}

bool EditorWindow::isEnabled(const char *name) const
{
    return control<QWidget>(name).isEnabled();
}

QStringList EditorWindow::eMails() const
{
    const auto &list = control<ListBox>("lstEMail");
    QStringList rows;
    for (int row = 0; row < list.ListCount(); ++row)
        rows.append(list.List(row));
    return rows;
}

void EditorWindow::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(m_form->focusWidget(), key, modifiers);
}

QString EditorWindow::focus() const
{
    return m_form->focusWidget() ? m_form->focusWidget()->objectName() : QString();
}

BoxStep &EditorWindow::expectRefusal(int number, const QString &description)
{
    return frame.dialogs
        .expectBox(QStringLiteral("Data Entry Error..."),
                   QStringLiteral("There is an error in the data you entered,\n"
                                  "please correct the entry and try again!\n"
                                  "The most likely error is that you tried\n"
                                  "to enter a City/Town instead of selecting one\n"
                                  "from the list.\n"
                                  "Error Code:%1\n"
                                  "Detail:%2")
                       .arg(QString::number(number), description))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
}

QString EditorWindow::numbers() const
{
    QStringList tables;
    for (const char *statement : {"select SrNo from Names", "select SrNo from EMails",
                                  "select SrNo from Home", "select SrNo from Business"})
        tables.append(rows(statement).join(u' '));
    return tables.join(u'/');
}
