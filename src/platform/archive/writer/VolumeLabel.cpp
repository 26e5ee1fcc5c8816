#include "VolumeLabel.h"

#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace {

/// The links spell a blank, and other characters that are awkward in names, as "\x20".
QByteArray unescaped(const QByteArray &name)
{
    constexpr qsizetype length = 4;
    QByteArray label;
    for (qsizetype i = 0; i < name.size(); ++i) {
        bool isNumber = false;
        const int code = name.mid(i + 2, 2).toInt(&isNumber, 16);
        if (name.mid(i, 2) == "\\x" && i + length <= name.size() && isNumber) {
            label += char(code);
            i += length - 1;
        } else {
            label += name[i];
        }
    }
    return label;
}

} // namespace

QByteArray VolumeLabel::of(const QByteArray &path, const QByteArray &labels)
{
    struct stat folder = {};
    if (::stat(path.constData(), &folder) != 0)
        return {};
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(::opendir(labels.constData()), ::closedir);
    while (const dirent *entry = entries ? ::readdir(entries.get()) : nullptr) {
        struct stat device = {};
        const QByteArray name(entry->d_name);
        if (::stat((labels + '/' + name).constData(), &device) == 0 && S_ISBLK(device.st_mode) &&
            device.st_rdev == folder.st_dev)
            return unescaped(name);
    }
    return {};
}
