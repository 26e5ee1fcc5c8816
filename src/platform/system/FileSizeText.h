#pragma once

#include <QString>

/// How the length of a file is shown.
namespace FileSizeText {

/// "1.9531 KB", or "100Bytes" for a length whose decimal text sorts before "1024".
///
/// Intended: the lengths are compared as texts, so 5 is "0.0049 KB" and 1020000 is "1020000Bytes".
QString of(qint64 length);

} // namespace FileSizeText
