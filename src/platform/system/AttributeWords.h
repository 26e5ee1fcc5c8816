#pragma once

#include <QString>

/// The attributes of a file in words.
namespace AttributeWords {

/// "Archive, Read-Only"; \a bits are those of FileAttributes. Empty where it has none that has a word.
QString of(int bits);

} // namespace AttributeWords
