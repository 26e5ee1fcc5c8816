#include "HelpTopics.h"

#include <algorithm>

namespace {

constexpr const char *wordTab = "Quill-Word";
constexpr const char *calculatorTab = "Quill-Calculator";
constexpr const char *diallerTab = "Quill-Dialler";
constexpr const char *zipTab = "Quill-Zip";
constexpr const char *unzipTab = "Quill-Unzip";
constexpr const char *networkTab = "Quill-Network Info";
constexpr const char *ftpTab = "Quill-FTP";
constexpr const char *imageTab = "Quill-ImageViewer";
constexpr const char *browserTab = "Quill-Browser";
constexpr const char *addressTab = "Quill-Address Book";
constexpr const char *updatesTab = "Updates";
constexpr const char *generalTab = "General";

constexpr HelpTopics::Topic topics[] = {
    {wordTab, 0, "File Opening and Saving", "quillofficefileoperations.rtf"},
    {wordTab, 1, "Printing A Document", "quillofficeprinting.rtf"},
    {wordTab, 2, "Formatting Text  in A Document", "quillofficeformatlhelp.rtf"},
    {wordTab, 3, "Inserting Objects into A Document", "quillofficeinserthelp.rtf"},
    {wordTab, 4, "Margins and Bullets", "quillofficemarginsbullets.rtf"},
    {wordTab, 5, "Undoing Actions Made", "quillofficeundoing.rtf"},
    {calculatorTab, 6, "Starting and Closing", "quillofficecalcstart.rtf"},
    {calculatorTab, 7, "How To Use", "quillofficecalcuseage.rtf"},
    {diallerTab, 8, "Starting and Closing", "quillofficediallerstart.rtf"},
    {diallerTab, 9, "Setting Up Your Modem", "quillofficediallersetup.rtf"},
    {diallerTab, 10, "How To Dial a Number", "quillofficedialleruseage.rtf"},
    {zipTab, 11, "Starting and Closing", "quillofficezipstart.rtf"},
    {zipTab, 12, "Creating a Zip Archive", "quillofficezipuse.rtf"},
    {unzipTab, 13, "Starting and Closing", "quillofficeunzipstart.rtf"},
    {unzipTab, 14, "Unpacking a Zip Archive", "quillofficeunzipuse.rtf"},
    {networkTab, 15, "Using Quill-Network Info", "quillofficenworkc.rtf"},
    {networkTab, 16, "Getting Info on This Computer", "quillofficethisc.rtf"},
    {ftpTab, 17, "Starting and Closing", "quillofficeftpstart.rtf"},
    {ftpTab, 18, "Setting Up Profiles", "quillofficeftpprofiles.rtf"},
    {ftpTab, 19, "Sending And Receiving Files", "quillofficeftptransfer.rtf"},
    {ftpTab, 20, "Creating Directories on the Server", "quillofficeftpfolders.rtf"},
    {ftpTab, 21, "Renaming Files on the Server", "quillofficeftprename.rtf"},
    {ftpTab, 22, "Getting File Information", "quillofficeftpfileinfo.rtf"},
    {ftpTab, 35, "Making The Connection", "quillofficeftpconnect.rtf"},
    {ftpTab, 36, "Deleting Files on the Server", "quillofficeftpfiledelete.rtf"},
    {imageTab, 23, "Using Images in Quill-Word", "quillofficeimageinword.rtf"},
    {imageTab, 24, "Viewing Options", "quillofficeimageview.rtf"},
    {imageTab, 25, "Resizing and Scaling", "quillofficeimagescale.rtf"},
    {imageTab, 26, "Opening and Saving Images", "quillofficeimageopenclose.rtf"},
    {imageTab, 27, "Starting and Closing", "quillofficeimagestart.rtf"},
    {imageTab, 28, "Getting Image  Information", "quillofficeimageinfo.rtf"},
    {browserTab, 31, "Entering a Web Address", "quillofficebrowseraddress.rtf"},
    {browserTab, 32, "Using the Toolbar Icons", "quillofficebrowsericons.rtf"},
    {browserTab, 33, "Starting and Closing", "quillofficebrowserstart.rtf"},
    {addressTab, 29, "View Quill Address Help Document", "quilladdresshelp.rtf"},
    {updatesTab, 30, "How to Check For And Apply Software Updates", "quillofficeupdates.rtf"},
    {generalTab, 34, "Application Icons", "quillofficegeneralhelp.rtf"},
    {generalTab, 37, "Additional Features", "quillofficeother.rtf"},
    {generalTab, 38, "What's New in Version 2", "quillofficewhatsnew.rtf"},
};

} // namespace

std::span<const HelpTopics::Topic> HelpTopics::all()
{
    return topics;
}

const HelpTopics::Topic *HelpTopics::withIndex(int index)
{
    const auto *found = std::ranges::find(topics, index, &Topic::index);
    return found == std::end(topics) ? nullptr : found;
}
