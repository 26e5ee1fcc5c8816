#include "CalculatorStep.h"

namespace {

const QString actions = QStringLiteral("=+-X/%C");

} // namespace

QList<CalculatorStep> CalculatorStep::parse(const QString &keys)
{
    QList<CalculatorStep> steps;
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const QChar key = keys[i];
        if (key == u'{') {
            const qsizetype end = keys.indexOf(u'}', i);
            steps.append({Type, 0, keys.mid(i + 1, end - i - 1)});
            i = end;
        } else if (key == u'[') {
            steps.append({Decimals, keys[i + 1].digitValue(), {}});
            i += 2;
        } else if (key == u'.') {
            steps.append({Point, 0, {}});
        } else if (key == u'u' || key == u'd') {
            steps.append({Option, key == u'u' ? 0 : 1, {}});
        } else if (key.isDigit()) {
            steps.append({Digit, key.digitValue(), {}});
        } else {
            steps.append({Action, int(actions.indexOf(key)), {}});
        }
    }
    return steps;
}

QString CalculatorStep::describe() const
{
    switch (kind) {
    case Digit:
        return QString::number(index);
    case Point:
        return QStringLiteral(".");
    case Action:
        return actions.mid(index, 1);
    case Type:
        return u'{' + text + u'}';
    case Decimals:
        return QStringLiteral("[%1]").arg(index);
    case Option:
        return index == 0 ? QStringLiteral("u") : QStringLiteral("d");
    }
    return {};
}
