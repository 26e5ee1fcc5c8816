#pragma once

#include <QFontDialog>

class QPushButton;

/// Chooses a font with its effects and its colour.
class FontDialog : public QFontDialog
{
public:
    FontDialog(const QFont &font, const QColor &color, QWidget *owner);

    QColor color() const { return m_color; }

private:
    void addColorRow();
    void chooseColor();
    void showColor();

    QColor m_color;
    QPushButton *m_button;
};
