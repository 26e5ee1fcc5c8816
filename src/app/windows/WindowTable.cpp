#include "WindowTable.h"

#include "Forms.h"
#include "frmAbout.h"
#include "frmAddress.h"
#include "frmAddressBook.h"
#include "frmBirthDays.h"
#include "frmBrowser.h"
#include "frmCalculator.h"
#include "frmCompsOnNetwork.h"
#include "frmDialingRules.h"
#include "frmDocument.h"
#include "frmFTP.h"
#include "frmFTPAccounts.h"
#include "frmFileOperations.h"
#include "frmHelpContents.h"
#include "frmImageAbout.h"
#include "frmImageMain.h"
#include "frmLines.h"
#include "frmMargins.h"
#include "frmOptions.h"
#include "frmOverwrite.h"
#include "frmPassword.h"
#include "frmPrintDocument.h"
#include "frmProperties.h"
#include "frmQuillAddressAbout.h"
#include "frmRegCity.h"
#include "frmRegister.h"
#include "frmRestorePoints.h"
#include "frmScale.h"
#include "frmSplash.h"
#include "frmSystemMessage.h"
#include "frmUnzip.h"
#include "frmZip.h"
#include "frmdialler.h"
#include "frmdownload2.h"
#include "frmquilladdresshelp.h"

namespace {

struct Row
{
    const char *name;
    Forms::Instances instances;
    Form *(*make)();
};

template<class Window>
Form *make()
{
    return new Window;
}

constexpr Row windows[] = {
    {"frmSplash", Forms::Instances::One, make<frmSplash>},
    {"frmOptions", Forms::Instances::One, make<frmOptions>},
    {"frmDocument", Forms::Instances::Many, make<frmDocument>},
    {"frmMargins", Forms::Instances::One, make<frmMargins>},
    {"frmCalculator", Forms::Instances::One, make<frmCalculator>},
    {"frmLines", Forms::Instances::One, make<frmLines>},
    {"frmdialler", Forms::Instances::One, make<frmdialler>},
    {"frmDialingRules", Forms::Instances::One, make<frmDialingRules>},
    {"frmFTP", Forms::Instances::One, make<frmFTP>},
    {"frmFTPAccounts", Forms::Instances::One, make<frmFTPAccounts>},
    {"frmAddressBook", Forms::Instances::One, make<frmAddressBook>},
    {"frmBirthDays", Forms::Instances::One, make<frmBirthDays>},
    {"frmQuillAddressAbout", Forms::Instances::One, make<frmQuillAddressAbout>},
    {"frmquilladdresshelp", Forms::Instances::One, make<frmquilladdresshelp>},
    {"frmAddress", Forms::Instances::One, make<frmAddress>},
    {"frmRegCity", Forms::Instances::One, make<frmRegCity>},
    {"frmRegister", Forms::Instances::One, make<frmRegister>},
    {"frmPrintDocument", Forms::Instances::One, make<frmPrintDocument>},
    {"frmZip", Forms::Instances::One, make<frmZip>},
    {"frmUnzip", Forms::Instances::One, make<frmUnzip>},
    {"frmOverwrite", Forms::Instances::One, make<frmOverwrite>},
    {"frmPassword", Forms::Instances::One, make<frmPassword>},
    {"frmCompsOnNetwork", Forms::Instances::One, make<frmCompsOnNetwork>},
    {"frmRestorePoints", Forms::Instances::One, make<frmRestorePoints>},
    {"frmSystemMessage", Forms::Instances::One, make<frmSystemMessage>},
    {"frmdownload2", Forms::Instances::One, make<frmdownload2>},
    {"frmBrowser", Forms::Instances::Many, make<frmBrowser>},
    {"frmImageMain", Forms::Instances::One, make<frmImageMain>},
    {"frmScale", Forms::Instances::One, make<frmScale>},
    {"frmFileOperations", Forms::Instances::One, make<frmFileOperations>},
    {"frmImageAbout", Forms::Instances::One, make<frmImageAbout>},
    {"frmHelpContents", Forms::Instances::One, make<frmHelpContents>},
    {"frmAbout", Forms::Instances::One, make<frmAbout>},
    {"frmProperties", Forms::Instances::One, make<frmProperties>},
};

} // namespace

void WindowTable::registerAll()
{
    for (const Row &row : windows)
        Forms::registerWindow(QString::fromLatin1(row.name), row.instances, row.make);
}
