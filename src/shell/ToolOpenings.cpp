#include "ToolOpenings.h"

#include "Forms.h"
#include "Globals.h"
#include "Publisher.h"
#include "frmMain.h"
#include "mMain.h"

namespace {

using ToolOpenings::How;

constexpr const char *homePage = "/";

constexpr ToolOpenings::Row openings[] = {
    {"mnuaddressbookopen", "frmAddressBook"},
    {"mnuftpopen", "frmFTP"},
    {"mnuimagevieweropen", "frmImageMain"},
    {"Calculator", "frmCalculator"},
    {"zip", "frmZip"},
    {"unzip", "frmUnzip"},
    {"componnetwork", "frmCompsOnNetwork"},
    {"mnuRestorePoints", "frmRestorePoints"},
    {"mnuCreateRestore", "frmRestorePoints"},
    {"mnuMessB4Login", "frmSystemMessage"},
    {"mnucheckupdates", "frmdownload2"},
    {"mnuHelpContents", "frmHelpContents"},
    {"mnuHelpAbout", "frmAbout", How::Modal},
    {"mnuToolsOptions", "frmOptions", How::Modal},
    {"mnuViewOptions", "frmOptions", How::Modal},
    {"diallersetup", "frmdialler", How::Dialler, "Setup"},
    {"dialleruse", "frmdialler", How::Dialler, "Use"},
    {"mnuViewWebBrowser", "frmBrowser", How::Browser, homePage},
    {"mnubrowser", "frmBrowser", How::Browser, homePage},
    {"mnutallowickonweb", "frmBrowser", How::Browser, homePage},
    {"mnuquilloffonweb", "frmBrowser", How::Browser, "/quilloffice/"},
};

void openDialler(const QString &window, const QString &mode)
{
    CloseFormByName(window);
    diallerMode = mode;
    Form &dialler = Forms::refer(window);
    dialler.load(); // before the caption, which the load sets too
    dialler.setCaption(mode == QLatin1String("Setup") ? QStringLiteral("Quill-Dialler - Set Up")
                                                      : QStringLiteral("Quill-Dialler - AutoDial a Number"));
    dialler.showModeless();
}

void openBrowser(const QString &window, const QString &path)
{
    Form &browser = Forms::refer(window);
    browser.setProperty("StartingAddress", Publisher::webAddress(path));
    browser.showModeless();
}

} // namespace

std::span<const ToolOpenings::Row> ToolOpenings::rows()
{
    return openings;
}

void ToolOpenings::open(const Row &row, frmMain &frame)
{
    const QString window = QString::fromLatin1(row.window);
    const QString argument = QString::fromLatin1(row.argument);
    switch (row.how) {
    case How::Show:
        Forms::refer(window).showModeless();
        break;
    case How::Modal:
        Forms::refer(window).showModal(&frame);
        break;
    case How::Dialler:
        openDialler(window, argument);
        break;
    case How::Browser:
        openBrowser(window, argument);
        break;
    }
}
