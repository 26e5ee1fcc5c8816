#pragma once

#include "UnzipLibrary.h"

#include <QByteArrayList>
#include <QList>

/// Jobs of the unzip library, with what its callbacks heard and what they answer.
struct UnzipRun
{
    DCLIST options;
    QByteArrayList included;
    QByteArrayList passwords; ///< the answers, in turn; none left means that the request is refused
    QList<int> answers;       ///< to questions about files that exist, in turn
    std::function<bool(QByteArrayView)> isCancelled = [](QByteArrayView) { return false; };

    QByteArrayList messages;
    QByteArrayList services;
    QByteArrayList questions;
    int passwordRequests = 0;
    QList<ListedEntry> entries;

    /// Extracts with the folders of the archive, unlike the record's own defaults.
    UnzipRun();
    int list(const QByteArray &archive);
    int extract(const QByteArray &archive, const QByteArray &folder);

private:
    int run();
};
