#include "mTAPIvb.h"

#include "CvbTAPILine.h"
#include "LineMessage.h"

#include <iterator>

namespace {

constexpr quint32 firstError = 0x80000001;

/// From firstError on, without a gap between the codes.
constexpr const char *errorTexts[] = {
    "Allocated",
    "Bad Device ID",
    "Bearer Mode Unavail",
    nullptr,
    "Call UnAvail",
    "Completion Overrun",
    "Conference Full",
    "Dial Billing",
    "Dial Dialtone",
    "Dial Prompt",
    "Dial Quiet",
    "Incompatible API Version",
    "Incompatible Ext Version",
    "Ini File Corrupt",
    "In Use",
    "Invalid Address",
    "Invalid Address ID",
    "Invalid Address Mode",
    "Invalid Address State",
    "Invalid App Handle",
    "Invalid App Name",
    "Invalid Bearer Mode",
    "Invalid Call Completion Mode",
    "Invalid Call Handle",
    "Invalid Call Params",
    "Invalid Call Privilege",
    "Invalid Call Select",
    "Invalid Call State",
    "Invalid Call State List",
    "Invalid Card",
    "Invalid Completion ID",
    "Invalid Conf Call Handle",
    "Invalid Consult Call Handle",
    "Invalid Country Code",
    "Invalid Device Class",
    "Invalid Device Handle",
    nullptr,
    "Invalid Digit List",
    "Invalid Digit Mode",
    "Invalid Digits",
    "Invalid Ext Version",
    "Invalid Group ID",
    "Invalid Line Handle",
    "Invalid Line State",
    "Invalid Location",
    "Invalid Media List",
    "Invalid Media Mode",
    "Invalid Message ID",
    nullptr,
    "Invalid Param",
    "Invalid Park ID",
    "Invalid Park Mode",
    "Invalid Pointer",
    "Invalid Priv Select",
    "Invalid Rate",
    "Invalid Request Mode",
    "Invalid Terminal ID",
    "Invalid Terminal Mode",
    "Invalid Time Out",
    "Invalid Tone",
    "Invalid Tone List",
    "Invalid Tone Mode",
    "Invalid Transfer Mode",
    "Line Mapper Failed",
    "No Conference",
    "No Device",
    "No Driver",
    "No Memory",
    "No Request",
    "Not Owner",
    "Not Registered",
    "Operation Failed",
    "Operation Unavailable",
    "Rate Unavailable",
    "Resource Unavailable",
    "Request Overrun",
    "Structure Too Small",
    "Target Not found",
    "Target Self",
    "Uninitialized",
    "UserUser Info Too Big",
    "Re-init",
    "Address Blocked",
    "Billing Rejected",
    "Invalid Feature",
    "No Multiple Instance",
};
static_assert(std::size(errorTexts) == 86);

} // namespace

void mTAPIvb::lineCallback(const LineMessage &message)
{
    if (message.instance != 0)
        reinterpret_cast<CvbTAPILine *>(message.instance)->handle(message);
}

QString mTAPIvb::ErrorString(qint32 code)
{
    const quint32 index = quint32(code) - firstError;
    const char *text = index < std::size(errorTexts) ? errorTexts[index] : nullptr;
    return text ? QString::fromLatin1(text) : QStringLiteral("Unknown Error");
}
