#pragma once

#include <QStringList>

class CvbTAPILine;

/// What the dialler's window tells about a line.
namespace LineReport {

/// The capabilities of the current line, row by row. A row that begins with a tab belongs to the one above.
QStringList rows(const CvbTAPILine &line);

/// The name of the current line without the NUL at its end.
QString name(const CvbTAPILine &line);

/// Whether the name of the current line is that of a kind that telephone calls of this program do not suit.
bool isUnsuitable(const CvbTAPILine &line);

} // namespace LineReport
