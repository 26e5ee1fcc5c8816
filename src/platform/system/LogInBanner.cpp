#include "LogInBanner.h"

#include "FileNames.h"
#include "Files.h"

#include <QFileInfo>
#include <QProcess>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString issueFile = QStringLiteral("/issue.d/90-quill.issue");
const QString greeterFile = QStringLiteral("/dconf/db/gdm.d/90-quill");
const QString greeterProfile = QStringLiteral("/dconf/profile/gdm");

/// Debian's own profile of GDM does not read the administrator's settings.
const QByteArray greeterProfileText = "user-db:user\n"
                                      "system-db:gdm\n"
                                      "file-db:/usr/share/gdm/greeter-dconf-defaults\n";

/// A backslash begins an escape there.
QByteArray forConsole(const QString &notice)
{
    return QString(notice).replace(u'\\', QStringLiteral("\\\\")).toUtf8() + '\n';
}

/// As a text of a settings file.
QByteArray quotedSetting(const QString &notice)
{
    QString text = notice;
    text.replace(u'\\', QStringLiteral("\\\\"));
    text.replace(u'\'', QStringLiteral("\\'"));
    text.replace(u'\n', QStringLiteral("\\n"));
    return '\'' + text.toUtf8() + '\'';
}

/// Where the program is missing nothing reads the settings either.
void updateSettings()
{
    QProcess::startDetached(QStringLiteral("dconf"), {QStringLiteral("update")});
}

/// Log-in screens and consoles would take control characters for commands.
QString printableNotice(const QString &text)
{
    QString result = text;
    result.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    result.replace(u'\r', u'\n');
    result.removeIf([](QChar sign) { return sign != u'\n' && sign.category() == QChar::Other_Control; });
    return result;
}

} // namespace

LogInBanner::LogInBanner(const QString &folder)
    : m_folder(folder)
{}

void LogInBanner::show(const QString &title, const QString &text) const noexcept
{
    try {
        const QString notice = printableNotice(title + QStringLiteral("\n\n") + text);
        write(issueFile, forConsole(notice));
        if (hasDesktopLogIn())
            showOnDesktop(notice);
    } catch (...) {
        return;
    }
}

bool LogInBanner::hasDesktopLogIn() const
{
    return QFileInfo::exists(m_folder + QStringLiteral("/gdm3"));
}

void LogInBanner::showOnDesktop(const QString &notice) const
{
    write(greeterFile, "[org/gnome/login-screen]\n"
                       "banner-message-enable=true\n"
                       "banner-message-text=" +
                           quotedSetting(notice) + '\n');
    if (!QFileInfo::exists(m_folder + greeterProfile))
        write(greeterProfile, greeterProfileText);
    updateSettings();
}

/// The folders on the way are made. The log-in screen is a user of its own, so that everybody may read all of
/// it, whatever the mask is.
void LogInBanner::write(const QString &name, const QByteArray &content) const
{
    constexpr mode_t folderForAll = 0755;
    constexpr mode_t fileForAll = 0644;
    for (qsizetype slash = name.indexOf(u'/', 1); slash > 0; slash = name.indexOf(u'/', slash + 1)) {
        const QByteArray folder = FileNames::toBytes(m_folder + name.left(slash));
        if (::mkdir(folder.constData(), folderForAll) == 0)
            ::chmod(folder.constData(), folderForAll);
    }
    Files::write(m_folder + name, content);
    ::chmod(FileNames::toBytes(m_folder + name).constData(), fileForAll);
}

void LogInBanner::remove() const noexcept
{
    ::unlink(FileNames::toBytes(m_folder + issueFile).constData());
    if (::unlink(FileNames::toBytes(m_folder + greeterFile).constData()) == 0)
        updateSettings();
}
