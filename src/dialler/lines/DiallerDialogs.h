#pragma once

#include "LineDialogs.h"

/// The dialogs of the line service, as the dialler shows them.
class DiallerDialogs : public LineDialogs
{
public:
    qint32 editLines(QWidget *owner, qsizetype line) override;
    qint32 editDialingRules(QWidget *owner, const QString &number) override;
};
