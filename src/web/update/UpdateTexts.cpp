#include "UpdateTexts.h"

#include "ShownText.h"
#include "Version.h"

namespace {

const QString line = QStringLiteral("\r\n");
const QString blankLine = line + line;

QString filesOk(const QString &next)
{
    return QStringLiteral("Files OK!.....") + blankLine + next + blankLine;
}

/// Each field may have line ends of its own.
QString shown(const QString &field)
{
    return ShownText::lines(field);
}

} // namespace

QString UpdateTexts::start()
{
    return QStringLiteral("Check for Software Updates.") + blankLine +
           QStringLiteral("You must be connected to the Internet for this ") + line +
           QStringLiteral("function.") + blankLine + QStringLiteral("Click Start to begin.") + line;
}

QString UpdateTexts::error()
{
    return QStringLiteral("An Error has occurred, unable to complete the process.");
}

QString UpdateTexts::progress(const QString &text)
{
    return text + blankLine + QStringLiteral("Please wait...") + blankLine;
}

QString UpdateTexts::versions(const VersionFile::ServerVersion &server)
{
    const QString dash = QStringLiteral(" - ");
    return QStringLiteral("Server Version: ") + shown(server.product) + dash + shown(server.maker) + dash +
           shown(server.major) + u'.' + shown(server.minor) + u'.' + shown(server.revision) + blankLine +
           QStringLiteral("Your version: ") + Version::product + dash + Version::company + dash +
           Version::text();
}

QString UpdateTexts::newVersion(const VersionFile &file)
{
    return shown(file.messageIfNew()) + QStringLiteral("There is a New Version Click Install to continue.");
}

QString UpdateTexts::upToDate(const VersionFile &file)
{
    return shown(file.messageIfUpToDate()) +
           QStringLiteral("You already have the latest version of the Software, ") + line +
           QStringLiteral("Version - ") + Version::text() + blankLine + QStringLiteral("Click OK");
}

QString UpdateTexts::downloading(int number, const UpdateFile &file)
{
    return progress(QStringLiteral("Downloading Update File Number ") + QString::number(number) +
                    QStringLiteral(" - ") + shown(file.name) + QStringLiteral(", Size = ") +
                    shown(file.size) + QStringLiteral("  ....."));
}

QString UpdateTexts::length(const UpdateFile &file, qint64 bytes)
{
    return QStringLiteral("The file, ") + shown(file.name) + QStringLiteral(" is : ") +
           QString::number(bytes) + QStringLiteral(" bytes.");
}

QString UpdateTexts::wrongLength(const QString &before, const UpdateFile &file)
{
    // Intended: no blank behind the name.
    return before + line + shown(file.name) +
           QStringLiteral("is not the correct length the file will need to be downloaded again!") +
           blankLine + QStringLiteral("Click OK and re-download!");
}

QString UpdateTexts::extracting()
{
    return filesOk(QStringLiteral("Extracting files - Please wait..."));
}

QString UpdateTexts::launching()
{
    return filesOk(QStringLiteral("Launching Update Program - Please wait..."));
}
