#pragma once

#include "ZipLibrary.h"

#include <QByteArrayList>

/// Jobs of the zip library, with what its callbacks heard and what they answer.
struct ZipRun
{
    ZPOPT options;
    QByteArrayList passwords; ///< the answers, in turn; none left means that the request is refused
    QByteArray comment;
    std::function<bool(QByteArrayView)> isCancelled = [](QByteArrayView) { return false; };

    QByteArrayList messages;
    QByteArrayList services;
    int commentRequests = 0;

    /// Puts names with folders into the archive, unlike the record's own defaults.
    ZipRun();
    int run(const QByteArray &archive, const QByteArrayList &names);
    int remove(const QByteArray &archive, const QByteArrayList &names);
};
