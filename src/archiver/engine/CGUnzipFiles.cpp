#include "CGUnzipFiles.h"

#include "ArchiveTexts.h"
#include "FileNames.h"
#include "UnzipLibrary.h"

int CGUnzipFiles::unzip(const QString &archive, const QString &folder)
{
    if (!archive.isEmpty())
        ZipFileName = archive;
    if (!folder.isEmpty())
        ExtractDir = folder;
    m_lastMessage.clear();
    USERFUNCTION functions;
    functions.print = [this](QByteArrayView text) {
        m_lastMessage = ArchiveTexts::text(text);
        return 0;
    };
    functions.message = [](const ListedEntry &) {};
    return Wiz_SingleEntryUnzip({}, {}, options(), functions);
}

DCLIST CGUnzipFiles::options() const
{
    return {
        .ExtractOnlyNewer = ExtractNewer,
        .SpaceToUnderScore = SpaceToUnderScore,
        .PromptToOverwrite = PromptOverwrite,
        .fQuiet = MessageLevel,
        .ncflag = WriteToStdOut,
        .ntflag = TestZip,
        .nvflag = ExtractList,
        .nUflag = ExtractOnlyNewer,
        .nzflag = DisplayComment,
        .ndflag = HonorDirectories,
        .noflag = OverWriteFiles,
        .naflag = ConvertCRtoCRLF,
        .nZIflag = Verbose,
        .C_flag = CaseSensitive,
        .fPrivilege = Privilege,
        .lpszZipFN = FileNames::toBytes(ZipFileName),
        .lpszExtractDir = FileNames::toBytes(ExtractDir),
    };
}
