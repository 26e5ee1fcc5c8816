#pragma once

#include <QString>

class QWidget;

/// The dialogs of the line service, which itself has no windows.
class LineDialogs
{
public:
    virtual ~LineDialogs() = default;

    /// Lets the user edit the lines of TelephoneSettings, beginning with \a line if there is such a one.
    /// Returns 0, also where the user cancels, or a LineError where they cannot be saved.
    virtual qint32 editLines(QWidget *owner, qsizetype line) = 0;

    /// The same for the rules by which numbers are dialled. \a number is an example.
    virtual qint32 editDialingRules(QWidget *owner, const QString &number) = 0;
};
