#include "ThemeIcon.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

/// Where Debian's packages put themes; some platforms name no folder at all.
const QString packagedThemes = QStringLiteral("/usr/share/icons");

bool isDark()
{
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5;
}

} // namespace

void ThemeIcon::setUp()
{
    QStringList paths = QIcon::themeSearchPaths();
    if (!paths.contains(packagedThemes))
        QIcon::setThemeSearchPaths(paths << packagedThemes);
    const QString packaged = isDark() ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setFallbackThemeName(packaged);
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor") ||
        QIcon::themeName().startsWith(QLatin1String("breeze")))
        QIcon::setThemeName(packaged);
}

QIcon ThemeIcon::named(const QString &name)
{
    return QIcon::fromTheme(name);
}
