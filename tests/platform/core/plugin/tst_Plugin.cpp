#include "Echo.h"
#include "Files.h"
#include "Plugin.h"
#include "PrintQt.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryFile>
#include <gtest/gtest.h>

namespace {

const QString echoModule = QStringLiteral("tests-platform-core-plugin-mountain");

QString fileOf(const QString &module)
{
    return QCoreApplication::applicationDirPath() + u'/' + module + QStringLiteral(".so");
}

/// A module of \a bytes beside the program, removed with this object.
class ScratchModule
{
public:
    explicit ScratchModule(const QByteArray &bytes)
    {
        EXPECT_TRUE(m_file.open());
        m_file.write(bytes);
        m_file.flush();
    }
    QString name() const { return QFileInfo(m_file).completeBaseName(); }

private:
    QTemporaryFile m_file{fileOf(QStringLiteral("scratch-XXXXXX"))};
};

bool isInTheProcess(const QString &module)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QFile::ReadOnly) && maps.readAll().contains(module.toUtf8() + ".so");
}

/// The description of the error that loading \a module as an \a Interface throws.
template<class Interface>
QString failureOf(const QString &module)
{
    try {
        Plugin(module).as<Interface>();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), ErrorNumber::ModuleNotLoaded);
        EXPECT_EQ(error.source(), fileOf(module));
        return error.description();
    }
    return {};
}

} // namespace

TEST(Plugin, IsLoadedOnFirstUseAlone)
{
    const ScratchModule copy(Files::read(fileOf(echoModule))); // no other test has loaded it
    Plugin plugin(copy.name());
    EXPECT_TRUE(plugin.isInstalled());
    EXPECT_FALSE(isInTheProcess(copy.name()));
    auto &echo = plugin.as<Echo>();
    EXPECT_TRUE(isInTheProcess(copy.name()));
    EXPECT_EQ(&plugin.as<Echo>(), &echo);
    EXPECT_EQ(echo.answer(QStringLiteral("hey")), QStringLiteral("hey"));
}

TEST(Plugin, ItsSignalsReachTheProgram)
{
    auto &echo = Plugin(echoModule).as<Echo>();
    QString heard;
    const auto connection = QObject::connect(&echo, &Echo::heard, [&](const QString &call, bool &again) {
        heard = call;
        again = true;
    });
    EXPECT_EQ(echo.answer(QStringLiteral("hey")), QStringLiteral("hey hey"));
    EXPECT_EQ(heard, QStringLiteral("hey"));
    QObject::disconnect(connection);
}

TEST(Plugin, OneThatIsNotInstalledIsAnError)
{
    EXPECT_FALSE(Plugin(QStringLiteral("none")).isInstalled());
    EXPECT_EQ(failureOf<Echo>(QStringLiteral("none")),
              QStringLiteral("The module none cannot be used: it is not installed"));
}

TEST(Plugin, ADamagedOneIsAnError)
{
    const ScratchModule damaged("no module");
    const QString failure = failureOf<Echo>(damaged.name());
    EXPECT_TRUE(failure.startsWith(QStringLiteral("The module %1 cannot be used: ").arg(damaged.name())))
        << qUtf8Printable(failure);
    EXPECT_FALSE(failure.endsWith(QStringLiteral("not installed"))) << qUtf8Printable(failure);
}

TEST(Plugin, AnotherInterfaceIsAnError)
{
    EXPECT_EQ(failureOf<QCoreApplication>(echoModule),
              QStringLiteral("The module %1 cannot be used: it has another interface").arg(echoModule));
}
