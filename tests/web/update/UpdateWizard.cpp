#include "UpdateWizard.h"

#include "CountingPause.h"
#include "Forms.h"
#include "Version.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace {

const QByteArray base = "/quilloffice/version2/";

} // namespace

UpdateWizard::UpdateWizard()
{
    CountingPause::setLength(1);
    program.addFolder("upgrade");
    program.addFile("publisher.ini", "[hosts]\nupdate=" + server.host().toLatin1() + '\n');
    Forms::registerWindow(QStringLiteral("frmdownload2"), Forms::Instances::One,
                          [] { return new frmdownload2; });
    auto &form = Forms::refer<frmdownload2>();
    form.showModeless();
    m_form = &form;
    auto &box = form.member<QPlainTextEdit>(QStringLiteral("Text1"));
    QObject::connect(&box, &QPlainTextEdit::textChanged, &box,
                     [this, &box] { m_texts << box.toPlainText(); });
}

UpdateWizard::~UpdateWizard()
{
    CountingPause::setLength(CountingPause::designedLength);
}

void UpdateWizard::serve(const QByteArray &name, const QByteArray &content)
{
    server.answer(base + name, content);
}

void UpdateWizard::serveVersion(bool isNew, const QByteArray &message)
{
    const QByteArray revision = QByteArray::number(Version::revision + (isNew ? 1 : 0));
    serve("version.dat", "Suite,Maker," + QByteArray::number(Version::major) + ',' +
                             QByteArray::number(Version::minor) + ',' + revision + "\r\n" + message);
}

void UpdateWizard::serveFiles(const QMap<QByteArray, QByteArray> &files)
{
    QByteArray list;
    for (auto file = files.begin(); file != files.end(); ++file) {
        serve(file.key(), file.value());
        list += file.key() + ",x," + QByteArray::number(file.value().size()) + "\r\n";
    }
    serve("updatefilelist.dat", list);
}

void UpdateWizard::addInstaller() const
{
    program.addFile("update.exe", "#!/bin/sh\n: > started\n");
    QFile::setPermissions(QString::fromUtf8(program.file("update.exe")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

bool UpdateWizard::hasStartedInstaller() const
{
    return QTest::qWaitFor([this] { return QFile::exists(QString::fromUtf8(program.file("started"))); });
}

void UpdateWizard::press(const char *button)
{
    m_texts.clear();
    auto &pressed = m_form->member<QPushButton>(QString::fromLatin1(button));
    if (!pressed.isVisible())
        qFatal("%s is hidden", button);
    QTest::mouseClick(&pressed, Qt::LeftButton);
}

QString UpdateWizard::text() const
{
    return m_form->member<QPlainTextEdit>(QStringLiteral("Text1")).toPlainText();
}

QString UpdateWizard::buttons() const
{
    QStringList names;
    for (const char *name : {"cmdstart", "cmdinstall", "OKButton", "cmdcancel"}) {
        if (m_form->member<QPushButton>(QString::fromLatin1(name)).isVisible())
            names << QString::fromLatin1(name);
    }
    return names.join(u' ');
}

bool UpdateWizard::isBusy() const
{
    return m_form->member<QLabel>(QStringLiteral("QProGIF1")).isVisible();
}

QStringList UpdateWizard::upgradeFiles() const
{
    return QDir(program.path() + QStringLiteral("/upgrade"))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}
