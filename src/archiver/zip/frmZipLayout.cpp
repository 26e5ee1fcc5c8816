#include "EventGate.h"
#include "FileDrop.h"
#include "ListBox.h"
#include "Named.h"
#include "StandardToolMenu.h"
#include "StatusBarRow.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"
#include "ZipTexts.h"
#include "cZip.h"
#include "frmZip.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(640, 500); // pixels; the text of the archive's box is readable
constexpr int leastRows = 4;         // of a list
constexpr int targetLetters = 30;    // of the archive's path

constexpr ToolMenuRow menuRows[] = {
    renamed(StandardToolMenu::File, "mnufile", "&File"),
    {{1, "mnuaddfile", "&Add File to Zip", nullptr, 0, "list-add"}},
    {{1, "mnuoutput", "&Output File", nullptr, 0, "document-save-as"}},
    {{1, "mnufileBar", "", nullptr, MenuRow::Separator, nullptr}},
    StandardToolMenu::NewDocument,
    StandardToolMenu::Close,
    StandardToolMenu::ExitTools,
    {{0, "mnuoptions", "&Options", nullptr, 0, nullptr}},
    {{1, "mnuencrypt", "&Encrypt", nullptr, 0, nullptr}},
    {{1, "mnustorefolders", "&Store Folders", nullptr, 0, nullptr}},
    {{1, "mnucreate", "&Create Zip", nullptr, 0, "archive-insert"}},
    StandardToolMenu::Window,
    StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal,
    StandardToolMenu::TileVertical,
    StandardToolMenu::ArrangeIcons,
};

constexpr StatusBarRow panels[] = {{StatusBarRow::Kind::Text, 0}};

/// What waits for the end of a job.
const QStringList jobCommands = {
    QStringLiteral("cmdSingleFile"), QStringLiteral("cmdzipfolder"),    QStringLiteral("cmdCreateZip"),
    QStringLiteral("cmdRecurse"),    QStringLiteral("txtzipfolder"),    QStringLiteral("chkEncrypt"),
    QStringLiteral("chkAddComment"), QStringLiteral("chkDirectories"),  QStringLiteral("chkFolders"),
    QStringLiteral("mnuaddfile"),    QStringLiteral("mnuoutput"),       QStringLiteral("mnucreate"),
    QStringLiteral("mnuencrypt"),    QStringLiteral("mnustorefolders"),
};

/// Small enough for a small window; a larger one gives it all it has left.
ListBox *list(const char *name, const QString &spoken)
{
    auto *list = named<ListBox>(name, spoken);
    list->setMinimumHeight(leastRows * list->fontMetrics().lineSpacing());
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return list;
}

QLabel *labelOf(const char *name, const QString &caption, QWidget *control)
{
    auto *label = named<QLabel>(name, caption);
    label->setBuddy(control);
    return label;
}

QWidget *panelWith(QLayout *layout)
{
    auto *panel = new QWidget;
    layout->setContentsMargins({});
    panel->setLayout(layout);
    return panel;
}

} // namespace

frmZip::frmZip()
    : ArchiverForm(QStringLiteral("frmZip"), firstSize, jobCommands)
    , m_cZ(named("m_cZ", new cZip(this)))
{
    setCaption(QStringLiteral("Quill-Zip Zipper"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("archive-insert")));
    buildMenus(menuRows, {QStringLiteral("mnuencrypt"), QStringLiteral("mnustorefolders")});
    buildContent();
    bind();
}

void frmZip::buildContent()
{
    QVBoxLayout *column = layOut(panels);
    column->addWidget(buildFiles(), 3);
    column->addWidget(buildTarget());
    column->addWidget(buildOptions());
    column->addWidget(buildProgress(), 2);
    setFocusProxy(cmdSingleFile);
}

QWidget *frmZip::buildFiles()
{
    auto *grid = new QGridLayout;
    FileList1 = list("FileList1", QStringLiteral("Selected Files to Zip"));
    cmdSingleFile =
        button("cmdSingleFile", QStringLiteral("Select a &File to zip..."), QStringLiteral("list-add"));
    grid->addWidget(labelOf("Label2", QStringLiteral("Selected Files to Zip"), FileList1), 0, 0);
    grid->addWidget(FileList1, 1, 0, 1, 2);
    grid->addWidget(cmdSingleFile, 2, 1);
    grid->setColumnStretch(0, 1);
    return panelWith(grid);
}

QWidget *frmZip::buildTarget()
{
    auto *row = new QHBoxLayout;
    txtzipfolder = named<QLineEdit>("txtzipfolder", QStringLiteral("Destination File to Zip to"));
    txtzipfolder->setText(ZipTexts::targetPrompt);
    txtzipfolder->setCursorPosition(0);
    txtzipfolder->setMinimumWidth(targetLetters * txtzipfolder->fontMetrics().averageCharWidth());
    cmdzipfolder = button("cmdzipfolder", QStringLiteral("Select File &To Zip to ..."),
                          QStringLiteral("document-save-as"));
    row->addWidget(txtzipfolder, 1);
    row->addWidget(cmdzipfolder);
    return panelWith(row);
}

QWidget *frmZip::buildOptions()
{
    auto *row = new QHBoxLayout;
    chkEncrypt = named<QCheckBox>("chkEncrypt", QStringLiteral("En&crypt (password )"));
    chkAddComment = named<QCheckBox>("chkAddComment", QStringLiteral("Add &Comment"));
    chkDirectories = named<QCheckBox>("chkDirectories", QStringLiteral("&Store Directories"));
    chkFolders = named<QCheckBox>("chkFolders", QStringLiteral("&Store Folders"));
    for (QCheckBox *box : {chkEncrypt, chkAddComment, chkDirectories, chkFolders})
        row->addWidget(box);
    row->addStretch();
    return panelWith(row);
}

QWidget *frmZip::buildProgress()
{
    auto *grid = new QGridLayout;
    cmdRecurse = button("cmdRecurse", QStringLiteral("&Recurse..."), QStringLiteral("folder-sync"));
    cmdCreateZip =
        button("cmdCreateZip", QStringLiteral("Create &Zip File"), QStringLiteral("archive-insert"));
    lstLog = list("lstLog", QStringLiteral("Progress Window"));
    grid->addWidget(labelOf("Label1", QStringLiteral("Progress Window"), lstLog), 0, 0, Qt::AlignBottom);
    grid->addWidget(cmdRecurse, 0, 1);
    grid->addWidget(cmdCreateZip, 0, 2);
    grid->addWidget(lstLog, 1, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    return panelWith(grid);
}

void frmZip::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmdSingleFile", &frmZip::cmdSingleFile_Click},
                                    {"mnuaddfile", &frmZip::cmdSingleFile_Click},
                                    {"cmdzipfolder", &frmZip::cmdzipfolder_Click},
                                    {"mnuoutput", &frmZip::cmdzipfolder_Click},
                                    {"cmdCreateZip", &frmZip::cmdCreateZip_Click},
                                    {"mnucreate", &frmZip::cmdCreateZip_Click},
                                    {"cmdRecurse", &frmZip::cmdRecurse_Click},
                                    {"mnuencrypt", &frmZip::mnuencrypt_Click},
                                    {"mnustorefolders", &frmZip::mnustorefolders_Click},
                                });
    on(m_cZ, &cZip::Progress, this, &frmZip::m_cZ_Progress);
    on(m_cZ, &cZip::PasswordRequest, this, &frmZip::m_cZ_PasswordRequest);
    on(m_cZ, &cZip::CommentRequest, this, &frmZip::m_cZ_CommentRequest);
    on(m_cZ, &cZip::Cancel, this, &frmZip::letEventsThrough);
    on(new FileDrop(*this), &FileDrop::Dropped, this, &frmZip::FileList1_Drop);
    on(new FileDrop(*txtzipfolder), &FileDrop::Dropped, this, &frmZip::txtzipfolder_Drop);
}
