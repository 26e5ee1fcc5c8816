#pragma once

#include <QList>
#include <QString>

/// One action of a user of the calculator.
struct CalculatorStep
{
    enum Kind { Digit, Point, Action, Type, Decimals, Option };

    Kind kind;
    int index = 0; ///< of the control in its array, or the row of the list
    QString text;  ///< Type: what the field then holds

    /// Steps in short: digits and "." are keys, "=+-X/%C" the action keys, "{12abc}" types over the field,
    /// "[3]" chooses three decimals, "u" and "d" round up and down.
    static QList<CalculatorStep> parse(const QString &keys);

    QString describe() const;
};
