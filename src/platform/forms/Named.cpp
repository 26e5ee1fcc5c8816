#include "Named.h"

QString withoutMnemonic(const QString &caption)
{
    QString text;
    text.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        text += caption[i];
    }
    return text;
}
