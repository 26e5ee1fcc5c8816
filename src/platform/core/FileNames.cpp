#include "FileNames.h"

#include "SurrogatePair.h"

namespace {

constexpr char16_t escapeBase = 0xdc00;
constexpr qsizetype longestSequence = 4;

/// The length of the UTF-8 sequence that \a bytes begin with; 0 when they begin with none.
qsizetype sequenceAt(QByteArrayView bytes)
{
    for (qsizetype length = 1; length <= qMin(longestSequence, bytes.size()); ++length) {
        if (bytes.first(length).isValidUtf8())
            return length;
    }
    return 0;
}

bool isEscape(QChar character)
{
    return character.unicode() >= escapeBase + 0x80 && character.unicode() <= escapeBase + 0xff;
}

} // namespace

QString FileNames::fromBytes(QByteArrayView name)
{
    if (name.isValidUtf8())
        return QString::fromUtf8(name);
    QString text;
    while (!name.isEmpty()) {
        const qsizetype length = sequenceAt(name);
        if (length == 0)
            text += QChar(escapeBase + uchar(name.front()));
        else
            text += QString::fromUtf8(name.first(length));
        name = name.sliced(qMax<qsizetype>(length, 1));
    }
    return text;
}

QByteArray FileNames::toBytes(const QString &name)
{
    QByteArray bytes;
    bytes.reserve(name.size());
    qsizetype plain = 0; // where the run without escapes begins
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (isSurrogatePair(name, i)) {
            ++i;
        } else if (isEscape(name[i])) {
            bytes += QStringView(name).sliced(plain, i - plain).toUtf8();
            bytes += char(name[i].unicode() - escapeBase);
            plain = i + 1;
        }
    }
    return bytes + QStringView(name).sliced(plain).toUtf8();
}
