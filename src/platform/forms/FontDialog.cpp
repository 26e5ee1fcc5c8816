#include "FontDialog.h"

#include "EventGate.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QColorDialog>
#include <QLabel>
#include <QPushButton>

FontDialog::FontDialog(const QFont &font, const QColor &color, QWidget *owner)
    : QFontDialog(font, owner)
    , m_color(color)
    , m_button(new QPushButton(this))
{
    setObjectName(QStringLiteral("FontDialog"));
    setOptions(DontUseNativeDialog | ScalableFonts); // no desktop's own dialog has the colour
    setCurrentFont(font);
    addColorRow();
    showColor();
    on(m_button, &QPushButton::clicked, this, &FontDialog::chooseColor);
}

/// Below the check boxes of the effects.
void FontDialog::addColorRow()
{
    m_button->setObjectName(QStringLiteral("cmdColor"));
    m_button->setAutoDefault(false);
    auto *label = new QLabel(QStringLiteral("&Colour"), this);
    label->setBuddy(m_button);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_button);
    row->addStretch();
    auto *effects = qobject_cast<QBoxLayout *>(findChild<QCheckBox *>()->parentWidget()->layout());
    effects->addLayout(row);
}

void FontDialog::chooseColor()
{
    const QColor chosen = QColorDialog::getColor(m_color, this, QStringLiteral("Colour"));
    if (!chosen.isValid())
        return;
    m_color = chosen;
    showColor();
}

void FontDialog::showColor()
{
    QPixmap swatch(m_button->iconSize());
    swatch.fill(m_color);
    m_button->setIcon(swatch);
    m_button->setText(m_color.name());
}
