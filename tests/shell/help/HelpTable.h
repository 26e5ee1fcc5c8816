#pragma once

#include <ostream>
#include <span>

/// The topics as the help shows them, in the order on screen.
namespace HelpTable {

struct Row
{
    const char *tab;
    int index;
    const char *caption;
    const char *file;
};

inline void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.file;
}

inline constexpr Row rows[] = {
    {"Quill-Word", 0, "File Opening and Saving", "quillofficefileoperations.rtf"},
    {"Quill-Word", 1, "Printing A Document", "quillofficeprinting.rtf"},
    {"Quill-Word", 2, "Formatting Text  in A Document", "quillofficeformatlhelp.rtf"},
    {"Quill-Word", 3, "Inserting Objects into A Document", "quillofficeinserthelp.rtf"},
    {"Quill-Word", 4, "Margins and Bullets", "quillofficemarginsbullets.rtf"},
    {"Quill-Word", 5, "Undoing Actions Made", "quillofficeundoing.rtf"},
    {"Quill-Calculator", 6, "Starting and Closing", "quillofficecalcstart.rtf"},
    {"Quill-Calculator", 7, "How To Use", "quillofficecalcuseage.rtf"},
    {"Quill-Dialler", 8, "Starting and Closing", "quillofficediallerstart.rtf"},
    {"Quill-Dialler", 9, "Setting Up Your Modem", "quillofficediallersetup.rtf"},
    {"Quill-Dialler", 10, "How To Dial a Number", "quillofficedialleruseage.rtf"},
    {"Quill-Zip", 11, "Starting and Closing", "quillofficezipstart.rtf"},
    {"Quill-Zip", 12, "Creating a Zip Archive", "quillofficezipuse.rtf"},
    {"Quill-Unzip", 13, "Starting and Closing", "quillofficeunzipstart.rtf"},
    {"Quill-Unzip", 14, "Unpacking a Zip Archive", "quillofficeunzipuse.rtf"},
    {"Quill-Network Info", 15, "Using Quill-Network Info", "quillofficenworkc.rtf"},
    {"Quill-Network Info", 16, "Getting Info on This Computer", "quillofficethisc.rtf"},
    {"Quill-FTP", 17, "Starting and Closing", "quillofficeftpstart.rtf"},
    {"Quill-FTP", 18, "Setting Up Profiles", "quillofficeftpprofiles.rtf"},
    {"Quill-FTP", 19, "Sending And Receiving Files", "quillofficeftptransfer.rtf"},
    {"Quill-FTP", 20, "Creating Directories on the Server", "quillofficeftpfolders.rtf"},
    {"Quill-FTP", 21, "Renaming Files on the Server", "quillofficeftprename.rtf"},
    {"Quill-FTP", 22, "Getting File Information", "quillofficeftpfileinfo.rtf"},
    {"Quill-FTP", 35, "Making The Connection", "quillofficeftpconnect.rtf"},
    {"Quill-FTP", 36, "Deleting Files on the Server", "quillofficeftpfiledelete.rtf"},
    {"Quill-ImageViewer", 23, "Using Images in Quill-Word", "quillofficeimageinword.rtf"},
    {"Quill-ImageViewer", 24, "Viewing Options", "quillofficeimageview.rtf"},
    {"Quill-ImageViewer", 25, "Resizing and Scaling", "quillofficeimagescale.rtf"},
    {"Quill-ImageViewer", 26, "Opening and Saving Images", "quillofficeimageopenclose.rtf"},
    {"Quill-ImageViewer", 27, "Starting and Closing", "quillofficeimagestart.rtf"},
    {"Quill-ImageViewer", 28, "Getting Image  Information", "quillofficeimageinfo.rtf"},
    {"Quill-Browser", 31, "Entering a Web Address", "quillofficebrowseraddress.rtf"},
    {"Quill-Browser", 32, "Using the Toolbar Icons", "quillofficebrowsericons.rtf"},
    {"Quill-Browser", 33, "Starting and Closing", "quillofficebrowserstart.rtf"},
    {"Quill-Address Book", 29, "View Quill Address Help Document", "quilladdresshelp.rtf"},
    {"Updates", 30, "How to Check For And Apply Software Updates", "quillofficeupdates.rtf"},
    {"General", 34, "Application Icons", "quillofficegeneralhelp.rtf"},
    {"General", 37, "Additional Features", "quillofficeother.rtf"},
    {"General", 38, "What's New in Version 2", "quillofficewhatsnew.rtf"},
};

} // namespace HelpTable
