#pragma once

#include "RtfWriter.h"

#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <array>

/// A document whose text is plain as long as no format says otherwise.
class PlainDocument : public QTextDocument
{
public:
    PlainDocument() { setDefaultFont(QFont(QStringLiteral("Arial"), 12)); }
};

/// The part of \a bytes behind the header and its tables, without the last brace.
inline QByteArray bodyOf(const QByteArray &bytes)
{
    constexpr std::array<const char *, 6> header = {
        "{\\rtf1",        "{\\colortbl", "{\\*\\listtable", "{\\list\\", "{\\*\\listoverridetable",
        "{\\*\\generator"};
    QByteArray rest = bytes.chopped(2);
    const auto isHeader = [&](const char *start) { return rest.startsWith(start); };
    while (std::any_of(header.begin(), header.end(), isHeader))
        rest = rest.mid(rest.indexOf('\n') + 1);
    return rest;
}

inline QByteArray bodyOf(const QTextDocument &document)
{
    return bodyOf(RtfWriter::write(document));
}
