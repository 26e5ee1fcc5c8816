#include "ThemeIcon.h"

#include "ThemeIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPalette>

namespace {

/// Where Debian's packages put themes; some platforms name no folder at all.
const QString packagedThemes = QStringLiteral("/usr/share/icons");

bool isDark()
{
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5;
}

void addPackagedThemes()
{
    const QStringList paths = QIcon::themeSearchPaths();
    if (!paths.contains(packagedThemes))
        QIcon::setThemeSearchPaths(QStringList(paths) << packagedThemes);
}

/// The desktop's own theme stays, unless it has none for this palette.
void followPalette()
{
    const QString packaged = isDark() ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    const QString desktop = QIcon::themeName();
    addPackagedThemes();
    if (QIcon::fallbackThemeName() != packaged)
        QIcon::setFallbackThemeName(packaged);
    const bool isReplaced = desktop.isEmpty() || desktop == QLatin1String("hicolor") ||
                            desktop.startsWith(QLatin1String("breeze"));
    if (isReplaced && desktop != packaged)
        QIcon::setThemeName(packaged);
}

} // namespace

QIcon ThemeIcon::named(const QString &name)
{
    const QString own = QStringLiteral(":/icons/%1.svg").arg(name);
    if (QFile::exists(own))
        return QIcon(own);
    followPalette();
    const QIcon icon = QIcon::fromTheme(name);
    return icon.isNull() ? icon : QIcon(new ThemeIconEngine(icon));
}
