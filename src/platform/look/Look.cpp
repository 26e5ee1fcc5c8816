#include "Look.h"

#include "ColorScheme.h"
#include "EventGate.h"
#include "FlatTitleStyle.h"
#include "Palettes.h"

#include <QApplication>
#include <QFont>
#include <QIcon>

namespace {

/// Where no desktop names a font, the platform's generic one is too wide for the windows.
void setFont()
{
    const QFont desktop = QApplication::font();
    if (desktop.family() == QLatin1String("Sans Serif") || desktop.family() == QLatin1String("Sans"))
        QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 9));
}

void setColors(bool dark)
{
    QApplication::setPalette(dark ? Palettes::dark() : Palettes::light());
}

bool desktopPaletteIsDark()
{
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5;
}

} // namespace

void Look::apply()
{
    const bool darkAlready = desktopPaletteIsDark();
    QApplication::setStyle(new FlatTitleStyle);
    // A text control's menu leaves out the keys that the frame's menu has, so some entries showed one.
    QCoreApplication::setAttribute(Qt::AA_DontShowShortcutsInContextMenus);
    setFont();
    auto *scheme = new ColorScheme(QCoreApplication::instance());
    if (!darkAlready) // else the desktop's own dark palette is kept
        setColors(scheme->prefersDark());
    on(scheme, &ColorScheme::changed, scheme, setColors);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/quill-office-tools.svg")));
}
