#include "BorderWords.h"

#include "RtfWords.h"
#include "WrittenColours.h"

#include <QColor>
#include <QStringList>

namespace {

bool isSide(const QString &word)
{
    static const QStringList sides = {QStringLiteral("brdrt"), QStringLiteral("brdrl"),
                                      QStringLiteral("brdrb"), QStringLiteral("brdrr")};
    return sides.contains(word);
}

} // namespace

void BorderWords::append(QByteArray &out, const QString &lines, WrittenColours &colours, const char *side)
{
    for (const QString &word : lines.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype color = word.indexOf(u'#');
        if (color >= 0)
            RtfWords::append(out, "brdrcf", colours.number(QColor(word.mid(color))));
        else
            out.append('\\').append(isSide(word) ? side : "").append(word.toLatin1());
    }
}
