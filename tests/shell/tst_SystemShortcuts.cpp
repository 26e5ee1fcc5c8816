#include "BareDesktop.h"
#include "DialogDriver.h"
#include "ErrorNumberOf.h"
#include "Globals.h"
#include "PrintQt.h"
#include "SystemShortcuts.h"
#include "UrlCatcher.h"

#include <QDir>
#include <QMenu>
#include <QSysInfo>
#include <gtest/gtest.h>

namespace {

struct Item
{
    const char *name;
    const char *tool; ///< one that serves; the program's name is its last part
    bool keepsId;
    bool isOpen;
    bool hasSubstitute = false; ///< what serves without a tool
};

constexpr Item items[] = {
    {"mnuAddRemove", "org.gnome.Software", false, false},
    {"mnuBasicSysInfo", "hardinfo", false, false},
    {"mnuIntOpts", "nm-connection-editor", false, false},
    {"mnuManageFirewall", "gufw", false, false},
    {"mnuSecurityCtr", "clamtk", false, false},
    {"mnuCleanUp", "org.kde.filelight", true, false},
    {"mnuComponents", "org.gnome.dfeet", true, false},
    {"mnuDirectXDiag", "cpu-x", true, false},
    {"mnuRestore", "timeshift-gtk", true, false},
    {"mnuTskMgr", "xfce4-taskmanager", true, false},
    {"mnuWinVer", "gnome-info-overview-panel", true, false, true},
    {"mnuDefrag", "org.gnome.DiskUtility", false, true},
    {"mnuGpEdit", "ca.desrt.dconf-editor", false, true},
    {"mnuWinEvent", "org.gnome.Logs", false, true},
    {"mnuStartup", "org.gnome.tweaks", false, true, true},
};

/// An empty desktop, whose tools may show a box.
struct ShortcutDesk
{
    ScratchHome home;
    BareDesktop desktop{home};
    DialogDriver dialogs;

    ShortcutDesk() { lastAnswer = QStringLiteral("before"); }
    ~ShortcutDesk() { lastAnswer.clear(); }
};

struct SystemShortcutTest : testing::TestWithParam<Item>
{
    ShortcutDesk desk;
    QString item = QString::fromLatin1(GetParam().name);
};

} // namespace

TEST_P(SystemShortcutTest, StartsItsTool)
{
    desk.desktop.install(GetParam().tool);
    SystemShortcuts::run(item);
    const QString call = desk.desktop.started();
    EXPECT_EQ(call.section(u' ', 1), QStringLiteral("--from ") + QLatin1String(GetParam().tool));
    EXPECT_EQ(lastAnswer, GetParam().keepsId ? call.section(u' ', 0, 0) : QStringLiteral("before"));
}

INSTANTIATE_TEST_SUITE_P(Items, SystemShortcutTest, testing::ValuesIn(items),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_P(SystemShortcutTest, AToolThatCannotBeStartedIsAnErrorUnlessItOnlyOpens)
{
    if (GetParam().hasSubstitute)
        return;
    desk.desktop.install(GetParam().tool, "#!/nonexistent/interpreter\n");
    EXPECT_EQ(errorNumberOf([&] { SystemShortcuts::run(item); }), GetParam().isOpen ? 0 : 53);
    EXPECT_EQ(lastAnswer, QStringLiteral("before"));
}

TEST(SystemShortcuts, AnItemWhoseToolIsMissingDoesNothing)
{
    const ShortcutDesk desk;
    for (const Item &item : items) {
        if (item.hasSubstitute)
            continue;
        SCOPED_TRACE(item.name);
        EXPECT_EQ(errorNumberOf([&] { SystemShortcuts::run(QString::fromLatin1(item.name)); }), 0);
        EXPECT_EQ(lastAnswer, QStringLiteral("before"));
    }
}

TEST(SystemShortcuts, ItemsWhoseToolIsMissingAreGreyWhileItIs)
{
    const ShortcutDesk desk;
    QMenu menu;
    for (const char *name : {"mnuDefrag", "mnuTskMgr", "mnuWinVer", "mnuOther"})
        menu.addAction(QStringLiteral("item"))->setObjectName(QString::fromLatin1(name));
    SystemShortcuts::disableMissing(menu, [](const QAction &entry) { return entry.objectName(); });
    const auto enabled = [&] {
        Q_EMIT menu.aboutToShow();
        QList<bool> states;
        for (const QAction *entry : menu.actions())
            states << entry->isEnabled();
        return states;
    };
    EXPECT_EQ(enabled(), QList<bool>({false, false, true, true}));
    desk.desktop.install("xfce4-taskmanager");
    EXPECT_EQ(enabled(), QList<bool>({false, true, true, true}));
}

TEST(SystemShortcuts, AnUnknownItemIsAnError)
{
    EXPECT_EQ(errorNumberOf([] { SystemShortcuts::run(QStringLiteral("mnuFileNew")); }),
              ErrorNumber::InvalidProcedureCall);
}

TEST(SystemShortcuts, TheVersionIsShownInABoxWhereNoToolShowsIt)
{
    ShortcutDesk desk;
    desk.dialogs
        .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                   QSysInfo::prettyProductName() + QStringLiteral("\nVersion: ") +
                       QSysInfo::productVersion() + QStringLiteral("\nKernel: ") + QSysInfo::kernelType() +
                       u' ' + QSysInfo::kernelVersion())
        .icon(QMessageBox::Information);
    SystemShortcuts::run(QStringLiteral("mnuWinVer"));
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST(SystemShortcuts, StartupOpensItsFolderWhereNoToolDoes)
{
    ShortcutDesk desk;
    const UrlCatcher urls;
    SystemShortcuts::run(QStringLiteral("mnuStartup"));
    const QString folder = desk.home.file(QStringLiteral(".config/autostart"));
    EXPECT_EQ(urls.opened(), QList<QUrl>{QUrl::fromLocalFile(folder)});
    EXPECT_TRUE(QDir(folder).exists());
    EXPECT_EQ(lastAnswer, QStringLiteral("before"));
}

TEST(SystemShortcuts, AFolderThatNothingOpensIsSilent)
{
    ShortcutDesk desk;
    SystemShortcuts::run(QStringLiteral("mnuStartup"));
    EXPECT_TRUE(QDir(desk.home.file(QStringLiteral(".config/autostart"))).exists());
    EXPECT_TRUE(desk.dialogs.seen().isEmpty());
}
