#include "FontDialog.h"

#include "EventGate.h"
#include "Named.h"
#include "ShowDialog.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

constexpr int familyRole = Qt::UserRole;
constexpr double smallestSize = 1; // points
constexpr double largestSize = 1638;

enum Style { Bold = 1, Italic = 2 }; // rows of the list of styles, added up

/// Sizes are shown and typed with a decimal point, whatever the desktop's language.
QString sizeText(double size)
{
    return QString::number(size, 'g', 6);
}

/// Without the foundry, which Qt appends in brackets where several offer the same family.
QStringList scalableFamilies()
{
    QStringList families;
    for (const QString &family : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(family) && QFontDatabase::isSmoothlyScalable(family))
            families.append(family.section(QStringLiteral(" ["), 0, 0));
    }
    families.removeDuplicates();
    return families;
}

void selectRow(QListWidget &list, int row)
{
    list.setCurrentRow(row);
    list.scrollToItem(list.currentItem(), QAbstractItemView::PositionAtCenter);
}

QVBoxLayout *column(const char *labelName, const QString &caption, QWidget *buddy)
{
    auto *label = named<QLabel>(labelName, caption);
    label->setBuddy(buddy);
    auto *column = new QVBoxLayout;
    column->addWidget(label);
    return column;
}

} // namespace

FontDialog::FontDialog(const QFont &font, const QColor &color, QWidget *owner)
    : QDialog(owner)
    , m_color(color)
    , lstFont(named<QListWidget>("lstFont", QStringLiteral("Font")))
    , lstStyle(named<QListWidget>("lstStyle", QStringLiteral("Font style")))
    , txtSize(named<QLineEdit>("txtSize", QStringLiteral("Size")))
    , lstSize(named<QListWidget>("lstSize", QStringLiteral("Sizes")))
    , chkStrikeout(
          named<QCheckBox>("chkStrikeout", QStringLiteral("Stri&keout"), QStringLiteral("Strikeout")))
    , chkUnderline(
          named<QCheckBox>("chkUnderline", QStringLiteral("&Underline"), QStringLiteral("Underline")))
    , cmdColor(named<QPushButton>("cmdColor", QString(), QStringLiteral("Colour")))
    , lblSample(named<QLabel>("lblSample", QStringLiteral("AaBbYyZz"), QStringLiteral("Sample")))
    , buttons(named("buttons", new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)))
{
    setObjectName(QStringLiteral("FontDialog"));
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(buildChoices(), 1);
    auto *lower = new QHBoxLayout;
    lower->addWidget(buildEffects());
    lower->addWidget(buildSample(), 1);
    rows->addLayout(lower);
    rows->addWidget(buttons);
    fillFamilies();
    setCurrentFont(font);
    showColor();
    on(lstFont, &QListWidget::currentRowChanged, this, &FontDialog::showSample);
    on(lstStyle, &QListWidget::currentRowChanged, this, &FontDialog::showSample);
    on(txtSize, &QLineEdit::textChanged, this, &FontDialog::txtSize_Change);
    on(lstSize, &QListWidget::itemSelectionChanged, this, &FontDialog::lstSize_Click);
    on(chkStrikeout, &QCheckBox::toggled, this, &FontDialog::showSample);
    on(chkUnderline, &QCheckBox::toggled, this, &FontDialog::showSample);
    on(cmdColor, &QPushButton::clicked, this, &FontDialog::cmdColor_Click);
    on(buttons, &QDialogButtonBox::accepted, this, &FontDialog::accept);
    on(buttons, &QDialogButtonBox::rejected, this, &FontDialog::reject);
    lstFont->setFocus();
}

QWidget *FontDialog::buildChoices()
{
    auto *choices = new QWidget(this);
    auto *columns = new QHBoxLayout(choices);
    columns->setContentsMargins({});
    QVBoxLayout *fonts = column("lblFont", QStringLiteral("&Font"), lstFont);
    fonts->addWidget(lstFont);
    QVBoxLayout *styles = column("lblStyle", QStringLiteral("Font st&yle"), lstStyle);
    styles->addWidget(lstStyle);
    QVBoxLayout *sizes = column("lblSize", QStringLiteral("&Size"), txtSize);
    sizes->addWidget(txtSize);
    sizes->addWidget(lstSize);
    columns->addLayout(fonts, 4);
    columns->addLayout(styles, 2);
    columns->addLayout(sizes, 1);
    lstStyle->addItems({QStringLiteral("Regular"), QStringLiteral("Bold"), QStringLiteral("Italic"),
                        QStringLiteral("Bold Italic")});
    for (const int size : QFontDatabase::standardSizes())
        lstSize->addItem(sizeText(size));
    auto *valid = new QDoubleValidator(smallestSize, largestSize, 2, txtSize);
    valid->setLocale(QLocale::c());
    valid->setNotation(QDoubleValidator::StandardNotation);
    txtSize->setValidator(valid);
    return choices;
}

QWidget *FontDialog::buildEffects()
{
    auto *effects = named<QGroupBox>("fraEffects", QStringLiteral("Effects"), QStringLiteral("Effects"));
    auto *rows = new QVBoxLayout(effects);
    rows->addWidget(chkStrikeout);
    rows->addWidget(chkUnderline);
    auto *label = named<QLabel>("lblColor", QStringLiteral("&Colour"));
    label->setBuddy(cmdColor);
    cmdColor->setAutoDefault(false);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(cmdColor);
    row->addStretch();
    rows->addLayout(row);
    return effects;
}

QWidget *FontDialog::buildSample()
{
    constexpr int sampleHeight = 80; // pixels; a larger font is cut
    auto *sample = named<QGroupBox>("fraSample", QStringLiteral("Sample"), QStringLiteral("Sample"));
    auto *rows = new QVBoxLayout(sample);
    lblSample->setAlignment(Qt::AlignCenter);
    lblSample->setFixedHeight(sampleHeight);
    lblSample->setMinimumWidth(3 * sampleHeight);
    lblSample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    rows->addWidget(lblSample);
    return sample;
}

void FontDialog::fillFamilies()
{
    for (const QString &family : scalableFamilies()) {
        auto *item = new QListWidgetItem(family, lstFont);
        item->setData(familyRole, family);
    }
}

void FontDialog::chooseFamily(const QString &family)
{
    const QList<QListWidgetItem *> found = lstFont->findItems(family, Qt::MatchFixedString);
    if (found.isEmpty()) {
        auto *missing = new QListWidgetItem(QStringLiteral("%1 (not installed)").arg(family));
        lstFont->insertItem(0, missing);
        missing->setData(familyRole, family);
        selectRow(*lstFont, 0);
    } else {
        found.first()->setData(familyRole, family); // in the caller's spelling
        selectRow(*lstFont, lstFont->row(found.first()));
    }
}

QFont FontDialog::currentFont() const
{
    QFont font(lstFont->currentItem()->data(familyRole).toString());
    font.setPointSizeF(txtSize->text().toDouble());
    font.setBold((lstStyle->currentRow() & Bold) != 0);
    font.setItalic((lstStyle->currentRow() & Italic) != 0);
    font.setStrikeOut(chkStrikeout->isChecked());
    font.setUnderline(chkUnderline->isChecked());
    return font;
}

void FontDialog::setCurrentFont(const QFont &font)
{
    chooseFamily(font.family());
    selectRow(*lstStyle, (font.bold() ? Bold : 0) + (font.italic() ? Italic : 0));
    txtSize->setText(sizeText(font.pointSizeF()));
    chkStrikeout->setChecked(font.strikeOut());
    chkUnderline->setChecked(font.underline());
    txtSize_Change();
}

/// The list shows the size that is typed, or none.
void FontDialog::txtSize_Change()
{
    const QList<QListWidgetItem *> same = lstSize->findItems(txtSize->text(), Qt::MatchExactly);
    const QSignalBlocker quiet(lstSize);
    lstSize->clearSelection();
    if (!same.isEmpty())
        selectRow(*lstSize, lstSize->row(same.first()));
    buttons->button(QDialogButtonBox::Ok)->setEnabled(txtSize->hasAcceptableInput());
    showSample();
}

void FontDialog::lstSize_Click()
{
    if (!lstSize->selectedItems().isEmpty())
        txtSize->setText(lstSize->selectedItems().first()->text());
}

void FontDialog::cmdColor_Click()
{
    QColorDialog dialog(m_color, this);
    dialog.setObjectName(QStringLiteral("ColorDialog"));
    dialog.setWindowTitle(QStringLiteral("Colour"));
    if (showDialog(dialog) != QDialog::Accepted)
        return;
    m_color = dialog.selectedColor();
    showColor();
}

void FontDialog::showSample()
{
    if (lstFont->currentItem() && txtSize->hasAcceptableInput())
        lblSample->setFont(currentFont());
}

void FontDialog::showColor()
{
    QPixmap swatch(cmdColor->iconSize());
    swatch.fill(m_color);
    cmdColor->setIcon(swatch);
    cmdColor->setText(m_color.name());
}
