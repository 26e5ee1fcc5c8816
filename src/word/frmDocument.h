#pragma once

#include "ChildForm.h"
#include "CommonDialog.h"
#include "RecoveryKeeper.h"
#include "RichTextFile.h"

class QTimer;
class RichTextBox;
class clsFindandReplace;

/// One word-processor document: its text, whether it has unsaved changes, and the questions at closing. Its
/// caption is its identity, the full path once it has a file. The commands of the frame's menus are not here.
class frmDocument : public ChildForm
{
    Q_OBJECT

public:
    frmDocument();

    void closeme();
    void bullet();
    void getmargins();
    void getindent();
    void removeindent();
    void FileSaveAsTxt();
    void FileSaveAsRtf();
    void EnableAutoURLDetection(RichTextBox &textControl);
    void unDirty();
    /// Takes the length of the rich text as it is now for the saved state.
    void doclengthupdate();
    void DisableAutoURLDetection(RichTextBox &textControl);

    /// Takes the content and the caption of \a text and counts as changed; \a copy, which holds the same,
    /// stays this document's.
    void recover(const RecoveryText &text, std::unique_ptr<RecoveryCopy> copy);

    QSize sizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_QueryUnload() override;
    void Form_Terminate() override;

private:
    void rtfTextBox_Change();
    void rtfTextBox_GotFocus();
    void rtfTextBox_SelChange();
    void rtfTextBox_LinkClicked(int first);
    void tbToolBar_ButtonClick();

    /// Shows the selection's formats on the toolbar while this is the active document.
    void UpdateFormatButtons();
    /// The title bar marks a window with unsaved changes.
    void setDirty(bool dirty);
    void applyBulletIndent();
    void freshDocumentSettled();
    void askToSave();
    /// Shows the save dialog until a file has been named and written.
    void saveActiveForm(RichTextFile::Format format);
    /// Returns false when the file could not be written, so that another name can be chosen.
    bool writeActiveForm(const QString &name, RichTextFile::Format format);

    RichTextBox *rtfTextBox;
    clsFindandReplace *FindDialog = nullptr; ///< made on load
    QTimer *m_formatTimer;
    RecoveryKeeper m_recovery;
    CommonDialog dlgCommonDialog;
    qint32 m_documentLength = 0;
    bool m_dirty = false;
};
