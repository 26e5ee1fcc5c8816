#include "AttributeWords.h"

#include "FileAttributes.h"

#include <QStringList>

namespace {

struct Row
{
    int bit;
    const char *word;
};

constexpr Row rows[] = {
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
    for (const Row &row : rows) {
        if (bits & row.bit)
            words << QString::fromLatin1(row.word);
    }
    return words.join(QStringLiteral(", "));
}
