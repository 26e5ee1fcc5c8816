#include "Palettes.h"

namespace {

struct Colors
{
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb text;
    QRgb button;
    QRgb dim;
    QRgb highlight;
    QRgb highlightedText;
    QRgb link;
};

QPalette paletteOf(const Colors &colors)
{
    QPalette palette(QColor(colors.button), QColor(colors.window));
    palette.setColor(QPalette::WindowText, QColor(colors.text));
    palette.setColor(QPalette::Text, QColor(colors.text));
    palette.setColor(QPalette::ButtonText, QColor(colors.text));
    palette.setColor(QPalette::ToolTipBase, QColor(colors.base));
    palette.setColor(QPalette::ToolTipText, QColor(colors.text));
    palette.setColor(QPalette::Base, QColor(colors.base));
    palette.setColor(QPalette::AlternateBase, QColor(colors.alternate));
    palette.setColor(QPalette::PlaceholderText, QColor(colors.dim));
    palette.setColor(QPalette::Highlight, QColor(colors.highlight));
    palette.setColor(QPalette::HighlightedText, QColor(colors.highlightedText));
    palette.setColor(QPalette::Link, QColor(colors.link));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(colors.dim));
    return palette;
}

} // namespace

QPalette Palettes::light()
{
    return paletteOf({.window = 0xEFF0F1,
                      .base = 0xFFFFFF,
                      .alternate = 0xF7F7F7,
                      .text = 0x232629,
                      .button = 0xF4F5F6,
                      .dim = 0x8D9094,
                      .highlight = 0x2F7FB5,
                      .highlightedText = 0xFFFFFF,
                      .link = 0x1F6FA5});
}

QPalette Palettes::dark()
{
    return paletteOf({.window = 0x34393F,
                      .base = 0x1B1E21,
                      .alternate = 0x22262A,
                      .text = 0xEDEFF0,
                      .button = 0x41474E,
                      .dim = 0x7F868C,
                      .highlight = 0x2F7FB5,
                      .highlightedText = 0xFFFFFF,
                      .link = 0x6FB7E5});
}
