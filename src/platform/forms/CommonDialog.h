#pragma once

#include "PrinterDialog.h"

#include <QString>
#include <array>

class DialogHook;
class QColor;
class QFont;
class QWidget;

/// The common-dialog control of a window: its settings stay from one showing to the next, as the control's
/// properties do, until a command changes them.
class CommonDialog
{
public:
    enum Flag {
        ReadOnly = 1,
        OverwritePrompt = 2, ///< ask before a name that exists is taken
        HideReadOnly = 4,
        AllowMultiselect = 512,

        // ShowPrinter
        NoSelection = 4,    ///< no choice of the selection
        NoPageNumbers = 8,  ///< no choice of pages
        PrintSetup = 64,    ///< paper and margins instead of a job
        ReturnDevice = 256, ///< hDC() gives the device
    };

    /// The dialogs are shown above \a owner. Without one the printer dialog is shown above the window in
    /// front.
    explicit CommonDialog(QWidget *owner);

    QString DialogTitle;
    /// The initial name. The chosen path is returned here, native; of several ones the folder and the names,
    /// a NUL between each two.
    QString FileName;
    QString InitDir;     ///< "\" may separate; empty for the current folder
    QString DefaultExt;  ///< taken for a chosen name without an extension
    QString Filter;      ///< "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"
    int FilterIndex = 1; ///< of the filter shown, from 1; the chosen one comes back here
    int Flags = 0;       ///< bitwise OR of Flag; ReadOnly comes back as the user left its box
    bool CancelError = false;
    bool AllowsMissing = false;  ///< ShowOpen takes a name that does not exist
    bool OffersReadOnly = false; ///< ShowOpen shows a box for ReadOnly
    DialogHook *Hook = nullptr;  ///< follows the file dialogs

    int Color = 0;                    ///< 0xBBGGRR; the chosen one comes back here
    std::array<int, 16> CustomColors; ///< the user's own ones, white at first; they come back in any case

    QString FontName;
    double FontSize = 0; ///< points; 0 for the desktop's own
    bool FontBold = false;
    bool FontItalic = false;
    bool FontStrikethru = false;
    bool FontUnderline = false;

    QString PrintJobName; ///< what the print queue shows; also names the PDF file where there is no printer

    // A cancelled dialog leaves what was to be chosen as it was and, with CancelError, throws RuntimeError
    // 32755.
    void ShowOpen();
    void ShowSave();
    void ShowColor();
    /// Chooses Color with the font.
    void ShowFont();
    /// Chooses printer, paper and margins, which stay for all later jobs.
    void ShowPrinter();
    /// The printer of an accepted dialog; nullptr after a cancelled one, and before the first.
    QPrinter *hDC() const { return m_printer.device(); }

private:
    enum class Kind { Open, Save };
    void showFileDialog(Kind kind);
    void takeFont(const QFont &font, const QColor &color);

    QWidget *m_owner;
    PrinterDialog m_printer;
};
