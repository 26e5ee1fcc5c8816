#pragma once

#include "RichTextFile.h"

class RichTextBox;

/// The files of documents, which are on the desktop's list of recently used ones. Both throw as the text
/// control's LoadFile() and SaveFile() do.
namespace DocumentFiles {

void load(RichTextBox &text, const QString &path);
void save(RichTextBox &text, const QString &path, RichTextFile::Format format);

} // namespace DocumentFiles
