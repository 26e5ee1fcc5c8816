#include "BareDesktop.h"

#include "Files.h"
#include "PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

BareDesktop::BareDesktop(const ScratchHome &home)
    : m_home(home)
    , m_bin(home.file(QStringLiteral("bin")))
    , m_log(home.file(QStringLiteral("log")))
    , m_path("PATH", m_bin.toUtf8())
    , m_dataFolders("XDG_DATA_DIRS", home.file(QStringLiteral("data")).toUtf8())
{
    QDir().mkpath(m_bin);
    QDir().mkpath(home.file(QStringLiteral("data/applications")));
}

void BareDesktop::install(const char *tool) const
{
    install(tool, "#!/bin/sh\nprintf '%s' \"$$ $*\" >'" + m_log.toUtf8() + ".part'\n/bin/mv '" +
                      m_log.toUtf8() + ".part' '" + m_log.toUtf8() + "'\n");
}

void BareDesktop::install(const char *tool, const QByteArray &script) const
{
    const QString program = m_bin + QStringLiteral("/the-tool");
    Files::write(program, script);
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Files::write(m_home.file(QStringLiteral("data/applications/%1.desktop").arg(QLatin1String(tool))),
                 "[Desktop Entry]\nExec=the-tool --from " + QByteArray(tool) + '\n');
}

QString BareDesktop::started() const
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(m_log); }));
    return QFile::exists(m_log) ? QString::fromUtf8(Files::read(m_log)) : QString();
}
