#include "ReportFile.h"

#include "Files.h"
#include "Paths.h"
#include "PlainText.h"

#include <utility>

namespace {

QByteArray encodeByCharacter(const QString &text)
{
    QByteArray bytes;
    for (const QChar c : text) {
        const QByteArray byte = PlainText::toWindows1252(QStringView(&c, 1));
        if (byte == "?" && c != u'?') // the format's numbers are signed
            bytes.append("\\u").append(QByteArray::number(qint16(c.unicode())));
        bytes.append(byte);
    }
    return bytes;
}

QByteArray encode(const QString &text)
{
    const QByteArray bytes = PlainText::toWindows1252(text);
    return PlainText::fromWindows1252(bytes) == text ? bytes : encodeByCharacter(text);
}

} // namespace

void ReportFile::open(const QString &name)
{
    m_name = name;
    m_text.clear();
}

void ReportFile::close()
{
    Files::writeWithoutSync(path(), encode(std::exchange(m_text, {})));
}

QString ReportFile::path() const
{
    return Paths::native(Paths::appPath() + m_name);
}
