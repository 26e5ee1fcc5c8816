#include "FtpProfileFile.h"

#include "FieldReader.h"
#include "Files.h"
#include "Numbers.h"
#include "Paths.h"
#include "PlainText.h"

#include <QStringList>
#include <limits>

namespace {

QString path()
{
    return Paths::native(Paths::appPath() + QStringLiteral("\\ftpprof.dat"));
}

FieldReader fields()
{
    return FieldReader(PlainText::fromWindows1252(Files::read(path())));
}

/// 0 for what is no number of 32 bits.
qint32 numberOf(const QString &field)
{
    using Limits = std::numeric_limits<qint32>;
    const double number = Numbers::rounded(Numbers::leadingNumber(field), 0);
    return number >= Limits::min() && number <= Limits::max() ? qint32(number) : 0;
}

FtpProfile nextRecord(FieldReader &fields)
{
    FtpProfile record;
    record.number = numberOf(fields.next());
    record.account = fields.next();
    record.server = fields.next();
    record.userName = fields.next();
    record.password = fields.next();
    record.trailing = fields.next();
    return record;
}

} // namespace

FtpProfile FtpProfileFile::readFirst()
{
    FieldReader reader = fields();
    return nextRecord(reader);
}

int FtpProfileFile::read(Table &table)
{
    FieldReader reader = fields();
    int index = 0;
    // Intended: the last record is written, but never read.
    for (; index < readable && !reader.atEnd(); ++index)
        table[index] = nextRecord(reader);
    return index;
}

void FtpProfileFile::write(const Table &table)
{
    QString text;
    for (int index = 0; index < count; ++index) {
        const FtpProfile &record = table[index];
        // Intended: a comma in a field is not quoted, so the next reading takes what is behind it for
        // another.
        const QStringList line = {QString::number(index), record.account,  record.server,
                                  record.userName,        record.password, record.trailing};
        text += line.join(u',') + QStringLiteral("\r\n");
    }
    Files::writePrivate(path(), PlainText::toWindows1252(text));
}
