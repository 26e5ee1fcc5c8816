#pragma once

#include "Files.h"
#include "ScratchHome.h"

#include <QDir>

/// A dictionary of a few words, \a name of which is its language, in the data folder of \a home.
inline void addDictionary(const ScratchHome &home, const QString &name, const QByteArray &encoding,
                          const QByteArrayList &words)
{
    const QString folder = home.file(QStringLiteral(".local/share/hunspell/"));
    QDir().mkpath(folder);
    Files::write(folder + name + QStringLiteral(".aff"),
                 "SET " + encoding + "\nTRY esianrtolcdugmphbyfvkwz\n");
    Files::write(folder + name + QStringLiteral(".dic"),
                 QByteArray::number(words.size()) + '\n' + words.join('\n') + '\n');
}
