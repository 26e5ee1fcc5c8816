#include "EnvironmentText.h"

#include <QtGlobal>

QString EnvironmentText::expand(const QString &text)
{
    QString expanded;
    qsizetype next = 0;
    for (;;) {
        const qsizetype open = text.indexOf(u'%', next);
        const qsizetype close = open < 0 ? -1 : text.indexOf(u'%', open + 1);
        if (close < 0)
            return expanded + text.mid(next);
        expanded += text.mid(next, open - next);
        const QString name = text.mid(open + 1, close - open - 1);
        const QByteArray variable = name.toUtf8();
        expanded += qEnvironmentVariableIsSet(variable.constData())
                        ? qEnvironmentVariable(variable.constData())
                        : text.mid(open, close - open + 1);
        next = close + 1;
    }
}
