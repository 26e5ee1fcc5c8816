#include "frmScale.h"

#include "EventGate.h"
#include "Forms.h"
#include "ImageGeometry.h"
#include "LengthUnit.h"
#include "Named.h"
#include "NumberBox.h"
#include "Numbers.h"
#include "PictureBox.h"
#include "ThemeIcon.h"
#include "Twips.h"
#include "WindowCommands.h"
#include "frmImageMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <utility>

namespace {

struct UnitRow
{
    const char *name;
    LengthUnit unit;
};

constexpr UnitRow units[] = {
    {"pixels", {LengthUnit::ofDisplay}}, {"inches", {Twips::perInch}}, {"cm", {567}}, {"mm", {56.7}},
    {"points", {Twips::perPoint}},
};

/// Throws RuntimeError 11 for a rectangle without the other side.
double ratio(float side, float other)
{
    if (other == 0)
        throw RuntimeError(ErrorNumber::DivisionByZero);
    return double(side) / double(other);
}

} // namespace

frmScale::frmScale()
    : Form(QStringLiteral("frmScale"))
    , m_geometry(Forms::refer<frmImageMain>().Geometry())
    , lblSize(named<QLabel>("lblSize", QStringLiteral("Original Size: 0\u00d70 pixels")))
    , lblRes(named<QLabel>("lblRes", QStringLiteral("Resolution: 0\u00d70 pixels per inch")))
    , txtWidth(named<NumberBox>("txtWidth", QStringLiteral("Width")))
    , txtHeight(named<NumberBox>("txtHeight", QStringLiteral("Height")))
    , cboType(named<QComboBox>("cboType", QStringLiteral("Unit")))
    , chkMaintain(named<QCheckBox>("chkMaintain", QStringLiteral("Preserve Aspect Ratio")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdApply(named<QPushButton>("cmdApply", QStringLiteral("Apply")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("Cancel")))
{
    setCaption(QStringLiteral("Scale Image"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("transform-scale")));
    for (const UnitRow &row : units)
        cboType->addItem(QString::fromLatin1(row.name));
    auto *column = new QVBoxLayout(this);
    column->addWidget(buildSizes());
    column->addStretch();
    column->addLayout(buildButtons());
    setKeyButtons(*cmdOK, *cmdCancel);
    setFocusProxy(txtWidth);
    bind();
}

QWidget *frmScale::buildSizes()
{
    auto *sizes = new QWidget;
    auto *grid = new QGridLayout(sizes);
    grid->setContentsMargins({});
    const auto head = [&](const char *name, const QString &caption, int row) {
        auto *label = named<QLabel>(name, caption);
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        grid->addWidget(label, row, 0, 1, 3);
    };
    const auto row = [&](const char *name, const QString &caption, NumberBox *box, int at) {
        auto *label = named<QLabel>(name, caption);
        label->setBuddy(box);
        grid->addWidget(label, at, 0);
        grid->addWidget(box, at, 1);
    };
    head("Label1", QStringLiteral("Original Size"), 0);
    grid->addWidget(lblSize, 1, 0, 1, 3);
    grid->addWidget(lblRes, 2, 0, 1, 3);
    head("Label2", QStringLiteral("Change To.."), 3);
    row("lblWidth", QStringLiteral("Width:"), txtWidth, 4);
    row("lblHeight", QStringLiteral("Height:"), txtHeight, 5);
    grid->addWidget(cboType, 4, 2);
    grid->addWidget(chkMaintain, 6, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    return sizes;
}

QLayout *frmScale::buildButtons()
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *button : {cmdOK, cmdApply, cmdCancel})
        row->addWidget(button);
    return row;
}

void frmScale::bind()
{
    WindowCommands::bind(*this, {{"cmdOK", &frmScale::cmdOK_Click},
                                 {"cmdApply", &frmScale::cmdApply_Click},
                                 {"cmdCancel", &frmScale::cmdCancel_Click},
                                 {"chkMaintain", &frmScale::chkMaintain_Click}});
    on(cboType, &QComboBox::currentIndexChanged, this, &frmScale::cboType_Click);
    on(txtWidth, &QLineEdit::textChanged, this, &frmScale::txtWidth_Change);
    on(txtHeight, &QLineEdit::textChanged, this, &frmScale::txtHeight_Change);
}

void frmScale::Form_Load()
{
    const Surroundings around = m_geometry.around();
    const LengthUnit pixels = units[0].unit;
    lblSize->setText(
        QStringLiteral("Original Size: ") + pixels.text(m_geometry.size().width, around.twipsPerPixelX) +
        QStringLiteral(" \u00d7 ") + pixels.text(m_geometry.size().height, around.twipsPerPixelY) +
        QStringLiteral(" pixels"));
    SizeBoxes();
    const auto perInch = [](float perPixel) { return Numbers::singleText(float(Twips::perInch) / perPixel); };
    lblRes->setText(QStringLiteral("Resolution: ") + perInch(around.twipsPerPixelX) +
                    QStringLiteral(" \u00d7 ") + perInch(around.twipsPerPixelY) +
                    QStringLiteral(" pixels per inch"));
}

// ---- The boxes

void frmScale::SizeBoxes()
{
    const LengthUnit unit = units[cboType->currentIndex()].unit;
    const Surroundings around = m_geometry.around();
    txtWidth->setText(unit.text(m_geometry.size().width, around.twipsPerPixelX));
    txtHeight->setText(unit.text(m_geometry.size().height, around.twipsPerPixelY));
}

void frmScale::cboType_Click()
{
    endingAtError([&] { SizeBoxes(); });
}

void frmScale::txtHeight_Change()
{
    if (txtWidth->text().isEmpty() || m_busy || !chkMaintain->isChecked())
        return;
    endingAtError(
        [&] { fill(*txtWidth, *txtHeight, ratio(m_geometry.size().width, m_geometry.size().height)); });
}

void frmScale::txtWidth_Change()
{
    if (txtHeight->text().isEmpty() || m_busy || !chkMaintain->isChecked())
        return;
    endingAtError(
        [&] { fill(*txtHeight, *txtWidth, ratio(m_geometry.size().height, m_geometry.size().width)); });
}

void frmScale::fill(NumberBox &box, const NumberBox &from, double AspectRatio)
{
    const double value = Numbers::toDouble(from.text());
    m_busy = true;
    box.setText(Numbers::doubleText(value * AspectRatio));
    m_busy = false;
}

void frmScale::chkMaintain_Click()
{
    txtWidth_Change();
}

// ---- The end

/// Ends the dialog where \a step fails. Returns whether it did not.
template<class Step>
bool frmScale::endingAtError(Step &&step)
{
    try {
        step();
        return true;
    } catch (...) {
        m_failure = RuntimeError::current();
        unload();
        return false;
    }
}

void frmScale::apply()
{
    const LengthUnit unit = units[cboType->currentIndex()].unit;
    const Surroundings around = m_geometry.around();
    m_geometry.uncheckPan(); // Intended: pan mode itself stays on
    m_geometry.image().setStretch(true);
    const float width = unit.toTwips(Numbers::toSingle(txtWidth->text()), around.twipsPerPixelX);
    m_geometry.setSize({width, m_geometry.size().height});
    const float height = unit.toTwips(Numbers::toSingle(txtHeight->text()), around.twipsPerPixelY);
    m_geometry.setSize({width, height});
    m_geometry.FitWindowtoImage();
    m_geometry.CenterImage();
}

void frmScale::cmdApply_Click()
{
    endingAtError([&] { apply(); });
}

void frmScale::cmdOK_Click()
{
    if (endingAtError([&] { apply(); }))
        unload();
}

void frmScale::cmdCancel_Click()
{
    unload();
}
