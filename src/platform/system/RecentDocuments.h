#pragma once

#include <QString>

/// The desktop's list of recently used documents, recently-used.xbel of the user.
namespace RecentDocuments {

/// Puts the file \a path on the list, as used now. A list that cannot be read, understood or written stays as
/// it is, since it belongs to all programs and an entry is not worth a message.
void add(const QString &path);

} // namespace RecentDocuments
