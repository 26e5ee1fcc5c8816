#include "frmMargins.h"

#include "DocumentText.h"
#include "EventGate.h"
#include "Globals.h"
#include "MainFrame.h"
#include "Named.h"
#include "Numbers.h"
#include "RichTextBox.h"
#include "UpDown.h"
#include "WindowCommands.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int widest = 75; // what the spin buttons reach

} // namespace

frmMargins::frmMargins()
    : Form(QStringLiteral("frmMargins"))
    , OKButton(named<QPushButton>("OKButton", QStringLiteral("OK")))
    , CancelButton(named<QPushButton>("CancelButton", QStringLiteral("Cancel")))
{
    setCaption(QStringLiteral("Set Page Margins"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(buildSides());
    column->addWidget(buildExtents());
    column->addStretch();
    column->addWidget(buildButtons());
    setKeyButtons(*OKButton, *CancelButton);
    WindowCommands::bind(*this, {
                                    {"OKButton", &frmMargins::OKButton_Click},
                                    {"CancelButton", &frmMargins::CancelButton_Click},
                                });
}

QWidget *frmMargins::buildSides()
{
    auto *sides = new QWidget(this);
    auto *grid = new QGridLayout(sides);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(0);
    const std::array captions = {QStringLiteral("Left Margin (mm):"), QStringLiteral("Right Margin (mm):")};
    for (int side : {Left, Right}) {
        Label2[side] = named<QLabel>({"Label2", side}, captions[side]);
        Text1[side] = named<QLineEdit>({"Text1", side}, captions[side]);
        Text1[side]->setText(QStringLiteral("0"));
        UpDown1[side] = named({"UpDown1", side}, new UpDown(*Text1[side], 0, widest, sides));
        Label2[side]->setBuddy(Text1[side]);
        Label2[side]->setContentsMargins(0, 0, fontMetrics().height(), 0);
        Text1[side]->setAlignment(Qt::AlignRight);
        grid->addWidget(Label2[side], side, 0);
        grid->addWidget(Text1[side], side, 1);
        grid->addWidget(UpDown1[side], side, 2);
    }
    return sides;
}

QWidget *frmMargins::buildExtents()
{
    auto *Frame2 = named<QGroupBox>("Frame2", QStringLiteral("Apply to:"));
    auto *grid = new QGridLayout(Frame2);
    grid->setColumnStretch(1, 1);
    const std::array captions = {QStringLiteral("Current Paragraph"), QStringLiteral("Whole Document")};
    for (int extent : {CurrentParagraph, WholeDocument}) {
        Option1[extent] = named<QRadioButton>({"Option1", extent}, QString(), captions[extent]);
        Label1[extent] = named<QLabel>({"Label1", extent}, captions[extent]);
        grid->addWidget(Option1[extent], extent, 0);
        grid->addWidget(Label1[extent], extent, 1);
    }
    Option1[CurrentParagraph]->setChecked(true);
    return Frame2;
}

QWidget *frmMargins::buildButtons()
{
    auto *panel = new QWidget(this);
    auto *row = new QHBoxLayout(panel);
    row->setContentsMargins({});
    row->addStretch();
    row->addWidget(OKButton);
    row->addWidget(CancelButton);
    return panel;
}

/// A selection with several indents leaves the boxes as they were designed.
void frmMargins::Form_Load()
{
    if (const auto indent = DocumentText::ofActiveForm().SelIndent())
        Text1[Left]->setText(QString::number(*indent));
    if (const auto indent = DocumentText::ofActiveForm().SelRightIndent())
        Text1[Right]->setText(QString::number(*indent));
    Text1[Left]->selectAll();
}

/// An option's caption is a label of its own; a click on it chooses as well.
void frmMargins::mousePressEvent(QMouseEvent *event)
{
    run([&] {
        const QWidget *clicked = childAt(event->position().toPoint());
        for (int extent : {CurrentParagraph, WholeDocument}) {
            if (clicked == Label1[extent])
                Option1[extent]->click();
        }
    });
}

void frmMargins::OKButton_Click()
{
    const int left = Numbers::toInteger(Text1[Left]->text());
    const int right = Numbers::toInteger(Text1[Right]->text());
    RichTextBox &document = DocumentText::ofActiveForm();
    if (Option1[WholeDocument]->isChecked()) {
        document.setSelStart(1); // Intended: the selection begins behind the first character
        document.setSelLength(int(document.Text().size()));
    }
    if (!document.Locked()) {
        document.setSelIndent(left);
        document.setSelRightIndent(right);
    }
    unload();
}

void frmMargins::CancelButton_Click()
{
    unload();
}
