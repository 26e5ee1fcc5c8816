#include "AttributeWords.h"

#include "FileAttributes.h"

#include <QStringList>

namespace {

struct WordRow
{
    int bit;
    const char *word;
};

constexpr WordRow wordRows[] = {
    {FileAttributes::Alias, "Alias"},         {FileAttributes::Archive, "Archive"},
    {FileAttributes::Directory, "Directory"}, {FileAttributes::Hidden, "Hidden"},
    {FileAttributes::ReadOnly, "Read-Only"},  {FileAttributes::System, "System"},
    {FileAttributes::Volume, "Volume"},       {FileAttributes::Compressed, "Compressed"},
    {FileAttributes::Temporary, "Temporary"},
};

} // namespace

QString AttributeWords::of(int bits)
{
    QStringList words;
    for (const WordRow &row : wordRows) {
        if (bits & row.bit)
            words << QString::fromLatin1(row.word);
    }
    return words.join(QStringLiteral(", "));
}
