#include "SystemShortcuts.h"

#include "Ask.h"
#include "EventGate.h"
#include "Globals.h"
#include "RuntimeError.h"
#include "ToolLauncher.h"

#include <QDesktopServices>
#include <QDir>
#include <QMenu>
#include <QStandardPaths>
#include <QSysInfo>
#include <QUrl>
#include <algorithm>
#include <iterator>

namespace {

enum class Way { Run, RunInSystemFolder, Open };

struct Shortcut
{
    const char *item;
    Way way;
    ToolCandidates tool;
    void (*otherwise)() = nullptr; ///< what serves where no tool is there
};

void showSystemVersion()
{
    Ask(QStringLiteral("%1\nVersion: %2\nKernel: %3 %4")
            .arg(QSysInfo::prettyProductName(), QSysInfo::productVersion(), QSysInfo::kernelType(),
                 QSysInfo::kernelVersion()),
        MsgBoxStyle::Information);
}

void openAutostartFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/autostart");
    QDir().mkpath(folder);
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

// The panels of the first desktop's settings have moved from one release to the next; their desktop files
// show which of them are installed.
constexpr const char *gnomeAbout =
    "d:gnome-info-overview-panel | d:gnome-system-panel | c:gnome-control-center";

// The columns: GNOME, KDE, Xfce, any other desktop.
constexpr Shortcut shortcuts[] = {
    {"mnuAddRemove", Way::Run, {"d:org.gnome.Software", "d:org.kde.discover", "d:synaptic", "t:aptitude"}},
    {"mnuBasicSysInfo", Way::Run, {gnomeAbout, "d:org.kde.kinfocenter", "d:hardinfo", "w:inxi -F"}},
    {"mnuIntOpts",
     Way::Run,
     {"d:gnome-network-panel", "c:systemsettings kcm_proxy", "d:nm-connection-editor", "t:nmtui"}},
    {"mnuManageFirewall",
     Way::Run,
     {"d:firewall-config", "c:systemsettings kcm_firewall", "d:gufw", "d:firewall-config"}},
    {"mnuSecurityCtr",
     Way::Run,
     {"d:org.gnome.seahorse.Application", "c:systemsettings", "d:clamtk", "d:clamtk"}},
    {"mnuCleanUp",
     Way::RunInSystemFolder,
     {"d:org.gnome.baobab", "d:org.kde.sweeper | d:org.kde.filelight", "d:org.bleachbit.BleachBit",
      "d:stacer"}},
    {"mnuComponents",
     Way::RunInSystemFolder,
     {"d:org.gnome.dspy | d:org.gnome.dfeet", "c:systemsettings kcm_kded", "d:org.gnome.dfeet",
      "t:systemctl list-units"}},
    {"mnuDirectXDiag",
     Way::RunInSystemFolder,
     {"d:cpu-x", "d:org.kde.kinfocenter", "d:hardinfo", "w:glxinfo -B"}},
    {"mnuRestore",
     Way::RunInSystemFolder,
     {"d:timeshift-gtk", "d:btrfs-assistant | d:timeshift-gtk", "d:timeshift-gtk", "d:snapper-gui"}},
    {"mnuTskMgr",
     Way::RunInSystemFolder,
     {"d:org.gnome.SystemMonitor | d:gnome-system-monitor", "d:org.kde.plasma-systemmonitor",
      "d:xfce4-taskmanager", "d:qps | t:top"}},
    {"mnuWinVer",
     Way::RunInSystemFolder,
     {gnomeAbout, "c:kinfocenter kcm_about-distro", "c:xfce4-about", nullptr},
     showSystemVersion},
    {"mnuDefrag",
     Way::Open,
     {"d:org.gnome.DiskUtility", "d:org.kde.partitionmanager", "d:org.gnome.DiskUtility", "d:gparted"}},
    {"mnuGpEdit",
     Way::Open,
     {"d:ca.desrt.dconf-editor", "d:systemsettings", "d:xfce4-settings-editor", "d:lxqt-config"}},
    {"mnuWinEvent",
     Way::Open,
     {"d:org.gnome.Logs", "d:org.kde.ksystemlog", "d:org.gnome.Logs", "t:journalctl -e"}},
    {"mnuStartup",
     Way::Open,
     {"d:org.gnome.tweaks", "c:systemsettings kcm_autostart", "d:xfce-session-settings", nullptr},
     openAutostartFolder},
};

/// nullptr for an item that is no shortcut.
const Shortcut *find(const QString &item)
{
    const auto *found =
        std::find_if(std::begin(shortcuts), std::end(shortcuts),
                     [&](const Shortcut &shortcut) { return item == QLatin1String(shortcut.item); });
    return found == std::end(shortcuts) ? nullptr : found;
}

const Shortcut &shortcutOf(const QString &item)
{
    if (const Shortcut *found = find(item))
        return *found;
    throw RuntimeError(ErrorNumber::InvalidProcedureCall, {}, item);
}

std::optional<qint64> start(const Shortcut &shortcut)
{
    try {
        return ToolLauncher::start(shortcut.tool);
    } catch (const RuntimeError &) {
        if (shortcut.way != Way::Open)
            throw;
        return std::nullopt;
    }
}

} // namespace

void SystemShortcuts::run(const QString &item)
{
    const Shortcut &shortcut = shortcutOf(item);
    const std::optional<qint64> id = start(shortcut);
    if (!id && shortcut.otherwise)
        shortcut.otherwise();
    if (id && shortcut.way == Way::RunInSystemFolder)
        lastAnswer = QString::number(*id);
}

void SystemShortcuts::disableMissing(QMenu &menu, QString (*itemOf)(const QAction &entry))
{
    on(&menu, &QMenu::aboutToShow, &menu, [&menu, itemOf] {
        for (QAction *entry : menu.actions()) {
            if (const Shortcut *shortcut = find(itemOf(*entry)))
                entry->setEnabled(shortcut->otherwise || ToolLauncher::isThere(shortcut->tool));
        }
    });
}
