#include "frmHelpContents.h"

#include "DocumentKeys.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "HelpTopics.h"
#include "LinkOpener.h"
#include "Named.h"
#include "Paths.h"
#include "PrintCommands.h"
#include "RichTextBox.h"
#include "StandardToolMenu.h"
#include "TabStrip.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"
#include "clsFindandReplace.h"

#include <QGridLayout>
#include <QPushButton>

namespace {

constexpr double helpHeight = 7770; // twips
constexpr double helpWidth = 11310; // twips
constexpr int buttonColumns = 2;

constexpr ToolMenuRow helpMenuRows[] = {
    StandardToolMenu::File,
    StandardToolMenu::NewDocument,
    renamed(StandardToolMenu::Close, "mnuclosehelp", "&Close Help"),
    {{1, "mnuFileBar0", "-", nullptr, MenuRow::Separator, nullptr}},
    StandardToolMenu::ExitTools,
    StandardToolMenu::Window,
    StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal,
    StandardToolMenu::TileVertical,
    StandardToolMenu::ArrangeIcons,
    {{0, "mnuprintselected", "Print Selected", nullptr, 0, nullptr}},
    {{1, "printselected", "Selected", nullptr, 0, "document-print"}},
    {{1, "printall", "All This Topic", nullptr, 0, "document-print"}},
};

} // namespace

frmHelpContents::frmHelpContents()
    : ChildForm(QStringLiteral("frmHelpContents"))
    , SSTab1(named("SSTab1", new TabStrip(this, TabStrip::TabPlace::Beside), QStringLiteral("Tools")))
    , RichTextBox1(named("RichTextBox1", new RichTextBox(this), QStringLiteral("Help")))
    , FindDialog(named("FindDialog", new clsFindandReplace(this)))
    , dlgCommonDialog(this)
{
    setCaption(QStringLiteral("Quill-Office Tools - Help!"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("system-help")));
    m_menus = StandardToolMenu::build(helpMenuRows, *this);
    RichTextBox1->setLocked(true);
    RichTextBox1->addAction(findChild<QAction *>(QStringLiteral("mnuprintselected"))); // for its context menu
    buildTabs();
    layOut();
    bind();
}

void frmHelpContents::buildTabs()
{
    const char *tab = nullptr;
    QGridLayout *buttons = nullptr;
    for (const HelpTopics::Topic &topic : HelpTopics::all()) {
        if (topic.tab != tab)
            buttons = addTab(topic.tab);
        tab = topic.tab;
        const int position = buttons->count();
        auto *button = named<QPushButton>({"cmdWordHelp", topic.index}, QString::fromLatin1(topic.caption));
        buttons->addWidget(button, position / buttonColumns, position % buttonColumns);
        setTabOrder(button, RichTextBox1);
    }
}

/// The page's grid of buttons; the room below it is the pane's.
QGridLayout *frmHelpContents::addTab(const char *caption)
{
    auto *column = new QVBoxLayout(SSTab1->addPage(QString::fromLatin1(caption)));
    auto *buttons = new QGridLayout;
    for (int i = 0; i < buttonColumns; ++i)
        buttons->setColumnStretch(i, 1);
    column->addLayout(buttons);
    return buttons;
}

void frmHelpContents::layOut()
{
    auto *cmdClose = named<QPushButton>("cmdClose", QStringLiteral("Close"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto *column = new QVBoxLayout(this);
    column->addWidget(SSTab1, 1);
    column->addLayout(buttons);
    setFocusProxy(SSTab1);
    setCancelButton(*cmdClose);
    takePaneToTab();
    setTabOrder(RichTextBox1, cmdClose);
}

/// One pane serves all tabs: it is on the page in front.
void frmHelpContents::takePaneToTab()
{
    static_cast<QVBoxLayout *>(SSTab1->currentWidget()->layout())->addWidget(RichTextBox1);
    RichTextBox1->show(); // another parent has hidden it
}

void frmHelpContents::bind()
{
    WindowCommands::bind(*this, {{"cmdWordHelp", &frmHelpContents::cmdWordHelp_Click},
                                 {"cmdClose", &frmHelpContents::cmdClose_Click},
                                 {"printselected", &frmHelpContents::printselected_Click},
                                 {"printall", &frmHelpContents::printall_Click}});
    on(SSTab1, &TabStrip::currentChanged, this, &frmHelpContents::SSTab1_Change);
    on(SSTab1, &TabStrip::tabBarClicked, this, &frmHelpContents::SSTab1_Click);
    on(RichTextBox1, &RichTextBox::LinkClicked, this, &frmHelpContents::RichTextBox1_LinkClicked);
    DocumentKeys::bindSearch(*this, *RichTextBox1, *FindDialog, &clsFindandReplace::ShowFind);
}

void frmHelpContents::Form_Load()
{
    RichTextBox1->setAutoURLDetection(true);
    showHelpMenu();
    setHeight(helpHeight);
    setWidth(helpWidth);
}

void frmHelpContents::Form_Terminate()
{
    FindDialog->Terminate(); // before this window is deleted: a handler of the dialog may still run
}

void frmHelpContents::cmdClose_Click()
{
    unload();
}

// ---- What the pane shows

void frmHelpContents::showDocument(const char *file)
{
    RichTextBox1->LoadFile(
        Paths::native(Paths::appPath() + QStringLiteral("\\help\\") + QString::fromLatin1(file)));
}

void frmHelpContents::showHelpMenu()
{
    showDocument(HelpTopics::menuFile);
}

void frmHelpContents::cmdWordHelp_Click(int index)
{
    if (const HelpTopics::Topic *topic = HelpTopics::withIndex(index))
        showDocument(topic->file);
}

void frmHelpContents::SSTab1_Change()
{
    takePaneToTab();
    showHelpMenu();
}

/// The same tab's too.
void frmHelpContents::SSTab1_Click()
{
    showHelpMenu();
}

void frmHelpContents::RichTextBox1_LinkClicked(int first)
{
    LinkOpener::open(RichTextBox1->linkTarget(first));
}

// ---- Printing

void frmHelpContents::printselected_Click()
{
    if (RichTextBox1->SelLength() == 0) {
        PrintCommands::reportNoSelection();
        return;
    }
    print();
}

void frmHelpContents::printall_Click()
{
    RichTextBox1->setSelLength(0);
    print();
}

/// Intended: after a cancelled dialog the printing is still asked for, without a device.
void frmHelpContents::print()
{
    dlgCommonDialog.DialogTitle = QStringLiteral("Print");
    dlgCommonDialog.PrintJobName = RichTextBox1->Text().section(u'\n', 0, 0);
    dlgCommonDialog.CancelError = true;
    dlgCommonDialog.Flags =
        CommonDialog::ReturnDevice | CommonDialog::NoPageNumbers | CommonDialog::NoSelection;
    resumeNext([&] { dlgCommonDialog.ShowPrinter(); });
    resumeNext([&] { RichTextBox1->SelPrint(dlgCommonDialog.hDC()); });
}
