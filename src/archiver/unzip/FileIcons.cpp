#include "FileIcons.h"

#include "ThemeIcon.h"

#include <QMimeDatabase>

namespace {

const QString unknownKind = QStringLiteral("unknown");

} // namespace

FileIcons::FileIcons()
{
    m_entries.insert(defaultKey, {ThemeIcon::named(unknownKind), {}});
}

QString FileIcons::keyOf(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (dot < 0)
        return defaultKey;
    const QString key = fileName.sliced(dot).toUpper();
    if (!m_entries.contains(key))
        m_entries.insert(key, entryOf(key));
    return key;
}

FileIcons::Entry FileIcons::entryOf(const QString &extension)
{
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(QStringLiteral("file") + extension.toLower(),
                                                           QMimeDatabase::MatchExtension);
    for (const QString &name : {kind.iconName(), kind.genericIconName(), unknownKind}) {
        const QIcon icon = ThemeIcon::named(name);
        if (!icon.isNull())
            return {icon, kind.comment()};
    }
    return {{}, kind.comment()};
}
