#include "DocumentFiles.h"

#include "RecentDocuments.h"
#include "RichTextBox.h"

void DocumentFiles::load(RichTextBox &text, const QString &path)
{
    text.LoadFile(path);
    RecentDocuments::add(path);
}

void DocumentFiles::save(RichTextBox &text, const QString &path, RichTextFile::Format format)
{
    text.SaveFile(path, format);
    RecentDocuments::add(path);
}
