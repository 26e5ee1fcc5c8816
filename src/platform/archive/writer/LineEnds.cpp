#include "LineEnds.h"

bool LineEnds::isText(QByteArrayView beginning)
{
    return !beginning.contains('\0');
}

QByteArray LineEnds::convert(QByteArrayView text, char next, Conversion conversion)
{
    QByteArray converted;
    converted.reserve(text.size() + text.size() / 16);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char following = i + 1 < text.size() ? text[i + 1] : next;
        if (conversion == Conversion::ToCrLf && text[i] == '\n')
            converted += '\r';
        if (conversion == Conversion::ToLf && text[i] == '\r' && following == '\n')
            continue;
        converted += text[i];
    }
    return converted;
}
