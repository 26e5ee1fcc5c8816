#include "frmquilladdresshelp.h"

#include "EventGate.h"
#include "LinkOpener.h"
#include "Named.h"
#include "Paths.h"
#include "RichTextBox.h"
#include "Twips.h"
#include "WindowCommands.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr int helpWidth = 9600;  // twips
constexpr int helpHeight = 7200; // twips

} // namespace

frmquilladdresshelp::frmquilladdresshelp()
    : Form(QStringLiteral("frmquilladdresshelp"))
    , RichTextBox1(named("RichTextBox1", new RichTextBox(this), QStringLiteral("Help")))
    , OKButton(named<QPushButton>("OKButton", QStringLiteral("Close Help")))
{
    setCaption(QStringLiteral("Quill-Address - Help!"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(OKButton);
    auto *column = new QVBoxLayout(this);
    column->addWidget(RichTextBox1, 1);
    column->addLayout(buttons);
    setKeyButtons(*OKButton, *OKButton);
    WindowCommands::bind(*this, {{"OKButton", &frmquilladdresshelp::OKButton_Click}});
    on(RichTextBox1, &RichTextBox::LinkClicked, this, &frmquilladdresshelp::RichTextBox1_LinkClicked);
}

QSize frmquilladdresshelp::sizeHint() const
{
    return {Twips::toPixels(helpWidth, logicalDpiX()), Twips::toPixels(helpHeight, logicalDpiY())};
}

void frmquilladdresshelp::Form_Load()
{
    RichTextBox1->setLocked(true);
    RichTextBox1->LoadFile(Paths::native(Paths::appPath() + QStringLiteral("\\help\\quilladdresshelp.rtf")));
    RichTextBox1->setAutoURLDetection(true);
}

void frmquilladdresshelp::OKButton_Click()
{
    unload();
}

void frmquilladdresshelp::RichTextBox1_LinkClicked(int first)
{
    LinkOpener::open(RichTextBox1->linkTarget(first));
}
