#pragma once

class frmMain;

/// The print commands, which work on the active window.
///
/// Intended: each step's error is reported and the next step then runs. After a cancelled dialog the printing
/// is still tried, and fails since there is no device.
class PrintCommands
{
public:
    explicit PrintCommands(frmMain &frame);

    /// Drops the selection and prints everything.
    void printall_Click();
    /// Prints the selection; without one says so and shows no dialog.
    void printselected_Click();
    /// The box of a selection to print that is empty.
    static void reportNoSelection();
    /// Chooses paper, margins and printer. Needs no document.
    void mnuFilePageSetup_Click();

private:
    void prepareDialog(int flags);
    void print();

    frmMain &m_frame;
};
