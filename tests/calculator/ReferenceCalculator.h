#pragma once

#include "CalculatorStep.h"

#include <QStringList>

/// The calculator a second time, as plainly as its rules allow: texts for its states, the processor's own
/// status for its errors.
class ReferenceCalculator
{
public:
    ReferenceCalculator();

    void perform(const CalculatorStep &step);

    QString txtresult;
    double Result = 0;
    double Operand = 0;
    QString LastOperation = QStringLiteral("None");
    QString PercentBase;
    QString DecimalPointState;
    int Decimals = 2;
    double RoundingAdjustment = 0;
    QStringList reported; ///< "point", "error 11", "thrown 6"

    static double number(const QString &text);
    static QString shown(double value);

private:
    void cmddigit(int index);
    void cmddecimal();
    void cmdaction(int index);
    void settings();
    void Calculate(const QString &operation);
    void percent();
    bool round(double adjusted);

    int m_row = 2;
    bool m_up = false;
};
