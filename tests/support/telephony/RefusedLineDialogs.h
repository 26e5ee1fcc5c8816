#pragma once

#include "LineDialogs.h"

#include <gtest/gtest.h>

/// The dialogs of a test that expects none.
class RefusedLineDialogs : public LineDialogs
{
public:
    qint32 editLines(QWidget *, qsizetype) override
    {
        ADD_FAILURE() << "the dialog of the lines";
        return 0;
    }
    qint32 editDialingRules(QWidget *, const QString &) override
    {
        ADD_FAILURE() << "the dialog of the dialing rules";
        return 0;
    }
};
