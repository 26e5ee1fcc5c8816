#include "EventGate.h"
#include "FileDrop.h"
#include "ListView.h"
#include "Named.h"
#include "StandardToolMenu.h"
#include "StatusBarRow.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"
#include "cUnzip.h"
#include "frmUnzip.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int columnWidth = 190 * 15; // twips
constexpr QSize firstSize(820, 500);  // pixels; four columns and some twenty rows
constexpr int leastRows = 5;          // of the list

constexpr ToolMenuRow menuRows[] = {
    renamed(StandardToolMenu::File, "mnuFileTOP", "&File"),
    {{1, "mnuFile_0", "&Open...", nullptr, 0, "document-open"}},
    {{1, "mnuFile_1", "Ex&tract...", nullptr, 0, "archive-extract"}},
    {{1, "mnuFileBar_0", "", nullptr, MenuRow::Separator, nullptr}},
    {{1, "mnuFile_2", "", nullptr, MenuRow::Hidden, nullptr}},
    {{1, "mnuFile_3", "", nullptr, MenuRow::Hidden, nullptr}},
    {{1, "mnuFile_4", "", nullptr, MenuRow::Hidden, nullptr}},
    {{1, "mnuFile_5", "", nullptr, MenuRow::Hidden, nullptr}},
    {{1, "mnuFileBar_1", "", nullptr, MenuRow::Separator, nullptr}},
    StandardToolMenu::NewDocument,
    StandardToolMenu::Close,
    StandardToolMenu::ExitTools,
    {{0, "mnuEditTOP", "&Options", nullptr, 0, nullptr}},
    {{1, "mnuEdit_0", "&Select All", nullptr, 0, "edit-select-all"}},
    {{1, "mnuEdit_1", "&Invert Selection", nullptr, 0, "edit-select-invert"}},
    {{1, "mnuEditBar", "", nullptr, MenuRow::Separator, nullptr}},
    {{1, "mnuusefolders", "&Use Folder Names", nullptr, 0, nullptr}},
    {{1, "mnuoverrideprompt", "&Overwrite Prompt", nullptr, 0, nullptr}},
    StandardToolMenu::Window,
    StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal,
    StandardToolMenu::TileVertical,
    StandardToolMenu::ArrangeIcons,
    {{0, "mnuHelpTOP", "&Help", nullptr, 0, nullptr}},
    {{1, "mnuHelp", "&About...", nullptr, 0, "help-about"}},
};

constexpr int firstRecentItem = 2; // of mnuFile

constexpr StatusBarRow panels[] = {{StatusBarRow::Kind::Text, 0, "Ready.."}};

/// What waits for the end of a job.
const QStringList jobCommands = {
    QStringLiteral("cmdOpen"),
    QStringLiteral("cmdExtract"),
    QStringLiteral("cmdAll"),
    QStringLiteral("cmdInvert"),
    QStringLiteral("mnuFile_0"),
    QStringLiteral("mnuFile_1"),
    QStringLiteral("mnuFile_2"),
    QStringLiteral("mnuFile_3"),
    QStringLiteral("mnuFile_4"),
    QStringLiteral("mnuFile_5"),
    QStringLiteral("mnuEdit_0"),
    QStringLiteral("mnuEdit_1"),
    QStringLiteral("mnuusefolders"),
    QStringLiteral("mnuoverrideprompt"),
    QStringLiteral("chkUseFolderNames"),
    QStringLiteral("chkOverwritePrompt"),
};

ColumnHeader column(const QString &text, Qt::Alignment alignment = Qt::AlignLeft)
{
    return {text, text, columnWidth, alignment};
}

} // namespace

frmUnzip::frmUnzip()
    : ArchiverForm(QStringLiteral("frmUnzip"), firstSize, jobCommands)
    , m_cUnzip(named("m_cUnzip", new cUnzip(this)))
{
    setCaption(QStringLiteral("Quill-Zip Unzipper"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("archive-extract")));
    buildMenus(menuRows, {QStringLiteral("mnuusefolders"), QStringLiteral("mnuoverrideprompt")});
    findRecentRows();
    buildContent();
    bind();
}

void frmUnzip::findRecentRows()
{
    for (int row = 0; row < mostRecentRows; ++row)
        m_recentRows[std::size_t(row)] =
            &member<QAction>(ControlName("mnuFile", firstRecentItem + row).text());
}

void frmUnzip::buildContent()
{
    QVBoxLayout *column = layOut(panels);
    column->addLayout(buildButtons());
    column->addLayout(buildOptions());
    buildList();
    column->addWidget(lvwZip, 1);
    setFocusProxy(cmdOpen);
}

QLayout *frmUnzip::buildButtons()
{
    cmdOpen = button("cmdOpen", QStringLiteral("&Open..."), QStringLiteral("document-open"));
    cmdExtract = button("cmdExtract", QStringLiteral("&Extract..."), QStringLiteral("archive-extract"));
    cmdAll = button("cmdAll", QStringLiteral("&Select All"), QStringLiteral("edit-select-all"));
    // Intended: the caption, though the button inverts the selection.
    cmdInvert = button("cmdInvert", QStringLiteral("&Un-Select All"), QStringLiteral("edit-select-invert"));
    auto *row = new QHBoxLayout;
    for (QPushButton *button : {cmdOpen, cmdExtract, cmdAll, cmdInvert})
        row->addWidget(button);
    row->addStretch();
    return row;
}

QLayout *frmUnzip::buildOptions()
{
    chkUseFolderNames = named<QCheckBox>("chkUseFolderNames", QStringLiteral("&Use Folder Names"));
    chkOverwritePrompt = named<QCheckBox>("chkOverwritePrompt", QStringLiteral("&Overwrite Prompt"));
    auto *row = new QHBoxLayout;
    row->addWidget(chkUseFolderNames);
    row->addWidget(chkOverwritePrompt);
    row->addStretch();
    return row;
}

void frmUnzip::buildList()
{
    lvwZip = named<ListView>("lvwZip", QStringLiteral("Files of the archive"));
    lvwZip->setMultiSelect(true);
    lvwZip->setMinimumHeight(leastRows * lvwZip->fontMetrics().lineSpacing());
    lvwZip->setColumnHeaders({column(QStringLiteral("Filename")),
                              column(QStringLiteral("Size"), Qt::AlignRight), column(QStringLiteral("Date")),
                              column(QStringLiteral("Packed"), Qt::AlignRight),
                              column(QStringLiteral("Folder"))});
}

void frmUnzip::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmdOpen", &frmUnzip::cmdOpen_Click},
                                    {"mnuFile_0", &frmUnzip::cmdOpen_Click},
                                    {"cmdExtract", &frmUnzip::cmdExtract_Click},
                                    {"mnuFile_1", &frmUnzip::cmdExtract_Click},
                                    {"cmdAll", &frmUnzip::cmdAll_Click},
                                    {"mnuEdit_0", &frmUnzip::cmdAll_Click},
                                    {"cmdInvert", &frmUnzip::cmdInvert_Click},
                                    {"mnuEdit_1", &frmUnzip::cmdInvert_Click},
                                    {"mnuusefolders", &frmUnzip::mnuusefolders_Click},
                                    {"mnuoverrideprompt", &frmUnzip::mnuoverrideprompt_Click},
                                    {"mnuHelp", &frmUnzip::mnuHelp_Click},
                                });
    for (int row = 0; row < mostRecentRows; ++row)
        on(m_recentRows[std::size_t(row)], &QAction::triggered, this,
           [this, row] { mnuFileRecent_Click(row); });
    on(chkUseFolderNames, &QCheckBox::toggled, this, &frmUnzip::chkUseFolderNames_Click);
    on(chkOverwritePrompt, &QCheckBox::toggled, this, &frmUnzip::chkOverwritePrompt_Click);
    on(m_cUnzip, &cUnzip::Progress, this, &frmUnzip::m_cUnzip_Progress);
    on(m_cUnzip, &cUnzip::OverwritePrompt, this, &frmUnzip::m_cUnzip_OverwritePrompt);
    on(m_cUnzip, &cUnzip::PasswordRequest, this, &frmUnzip::m_cUnzip_PasswordRequest);
    on(m_cUnzip, &cUnzip::Cancel, this, &frmUnzip::letEventsThrough);
    on(new FileDrop(*this), &FileDrop::Dropped, this, &frmUnzip::lvwZip_Drop);
}
