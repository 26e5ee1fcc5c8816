#pragma once

#include "RuntimeError.h"

/// The application-wide error report: a box, then the end of the process, without asking any window.
void ReportFatalError(int number, const QString &description);

/// The box "System Error!"; a cancelled dialog (32755) shows nothing.
void ReportRecoverableError(int number, const QString &description);

/// Runs \a step and reports what it throws by ReportRecoverableError; the caller then continues.
template<class Step>
void resumeNext(Step &&step)
{
    try {
        step();
    } catch (...) {
        const RuntimeError error = RuntimeError::current();
        ReportRecoverableError(error.number(), error.description());
    }
}

/// Runs \a step and ignores what it throws.
template<class Step>
void ignoreErrors(Step &&step)
{
    try {
        step();
    } catch (...) {
        return;
    }
}
