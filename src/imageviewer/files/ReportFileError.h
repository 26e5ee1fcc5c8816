#pragma once

/// The viewer's report of the exception that is being handled; a cancelled dialog (32755) shows nothing. With
/// no exception nothing happens, so it is also run on the normal way out.
void ReportFileError();

/// Runs \a step and reports what it throws. Returns whether it threw nothing.
template<class Step>
bool reportingFileErrors(Step &&step)
{
    try {
        step();
        return true;
    } catch (...) {
        ReportFileError();
        return false;
    }
}
