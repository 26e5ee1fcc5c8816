#pragma once

#include <QByteArray>
#include <QString>

class WrittenColours;

/// The words of lines, from what formats keep of them.
namespace BorderWords {

/// \a lines: RichTextProperty::Borders. \a side begins the word of each side: "cl" for those of cells.
void append(QByteArray &out, const QString &lines, WrittenColours &colours, const char *side = "");

} // namespace BorderWords
