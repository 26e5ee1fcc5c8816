#pragma once

class QString;

namespace NumberedFile {

/// \a path with a number before its ending, as "sheets-2.pdf": the lowest from \a number on of which there is
/// no such file. \a number becomes that number.
QString next(const QString &path, int &number);

} // namespace NumberedFile
