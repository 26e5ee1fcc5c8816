#pragma once

#include <QDialog>
#include <QFont>

class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// Chooses a font with its effects and its colour. What the user does not change comes back as it was, also a
/// family that is not installed and a size between whole points.
class FontDialog : public QDialog
{
public:
    FontDialog(const QFont &font, const QColor &color, QWidget *owner);

    /// Family, size in points, bold, italic, strikethrough and underline.
    QFont currentFont() const;
    void setCurrentFont(const QFont &font);
    QColor color() const { return m_color; }

private:
    QWidget *buildChoices();
    QWidget *buildEffects();
    QWidget *buildSample();
    void fillFamilies();
    void chooseFamily(const QString &family);

    void txtSize_Change();
    void lstSize_Click();
    void cmdColor_Click();
    void showSample();
    void showColor();

    QColor m_color;
    QListWidget *lstFont;
    QListWidget *lstStyle;
    QLineEdit *txtSize;
    QListWidget *lstSize;
    QCheckBox *chkStrikeout;
    QCheckBox *chkUnderline;
    QPushButton *cmdColor;
    QLabel *lblSample;
    QDialogButtonBox *buttons;
};
