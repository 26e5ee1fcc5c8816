#include "ThemeIcon.h"

#include "ThemeIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <optional>

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

void choosePackagedTheme(bool dark)
{
    const QString packaged = dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    const QString desktop = QIcon::themeName();
    QIcon::setFallbackThemeName(packaged);
    if (desktop.isEmpty() || desktop == QLatin1String("hicolor") ||
        desktop.startsWith(QLatin1String("breeze")))
        QIcon::setThemeName(packaged);
}

void followPalette()
{
    static std::optional<bool> chosen;
    const bool dark = isDark();
    if (chosen == dark)
        return;
    addPackagedThemes();
    choosePackagedTheme(dark);
    chosen = dark;
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
