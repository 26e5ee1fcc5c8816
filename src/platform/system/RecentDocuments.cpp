#include "RecentDocuments.h"

#include "FileNames.h"
#include "Files.h"
#include "RuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <memory>

#undef signals // a name in GLib's headers
#include <glib.h>

namespace {

using Bookmarks = std::unique_ptr<GBookmarkFile, decltype(&g_bookmark_file_free)>;
using Text = std::unique_ptr<char, decltype(&g_free)>;

QString listPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/recently-used.xbel");
}

/// Null when there is a list that cannot be understood.
Bookmarks read(const QString &path)
{
    Bookmarks list(g_bookmark_file_new(), g_bookmark_file_free);
    if (!QFileInfo::exists(path))
        return list;
    const QByteArray bytes = Files::read(path);
    const bool isRead =
        g_bookmark_file_load_from_data(list.get(), bytes.constData(), gsize(bytes.size()), nullptr);
    return isRead ? std::move(list) : Bookmarks(nullptr, g_bookmark_file_free);
}

Text uriOf(const QString &path)
{
    const QByteArray name = FileNames::toBytes(QFileInfo(path).absoluteFilePath());
    return {g_filename_to_uri(name.constData(), nullptr, nullptr), g_free};
}

void put(GBookmarkFile &list, const char *uri, const QString &path)
{
    const QByteArray type =
        QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension).name().toUtf8();
    const QByteArray program = QCoreApplication::applicationName().toUtf8();
    const QByteArray start = '\'' + QCoreApplication::applicationFilePath().toUtf8() + '\'';
    g_bookmark_file_set_mime_type(&list, uri, type.constData());
    g_bookmark_file_add_application(&list, uri, program.constData(), start.constData());
}

void write(GBookmarkFile &list, const QString &path)
{
    gsize size = 0;
    const Text text(g_bookmark_file_to_data(&list, &size, nullptr), g_free);
    if (text && QDir().mkpath(QFileInfo(path).path()))
        Files::writePrivate(path, QByteArray(text.get(), qsizetype(size)));
}

} // namespace

void RecentDocuments::add(const QString &path)
{
    try {
        const Bookmarks list = read(listPath());
        const Text uri = uriOf(path);
        if (!list || !uri)
            return;
        put(*list, uri.get(), path);
        write(*list, listPath());
    } catch (const RuntimeError &) {
        return;
    }
}
