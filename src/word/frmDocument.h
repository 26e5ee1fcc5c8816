#pragma once

#include "ChildForm.h"
#include "CommonDialog.h"
#include "RichTextFile.h"

class RichTextBox;

/// One word-processor document: its text, whether it has unsaved changes, and the questions at closing. Its
/// caption is its identity, the full path once it has a file. The commands of the frame's menus are not here.
class frmDocument : public ChildForm
{
public:
    frmDocument();

    void closeme();
    void FileSaveAsTxt();
    void FileSaveAsRtf();
    void EnableAutoURLDetection(RichTextBox &textControl);
    void unDirty();
    /// Takes the length of the rich text as it is now for the saved state.
    void doclengthupdate();
    void DisableAutoURLDetection(RichTextBox &textControl);

    QSize sizeHint() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_QueryUnload() override;
    void Form_Terminate() override;

private:
    void rtfTextBox_Change();
    void rtfTextBox_GotFocus();
    void rtfTextBox_LinkClicked(int first);

    void askToSave();
    /// Shows the save dialog until a file has been named and written.
    void saveActiveForm(RichTextFile::Format format);
    /// Returns false when the file could not be written, so that another name can be given.
    bool writeActiveForm(const QString &name, RichTextFile::Format format);

    RichTextBox *rtfTextBox;
    CommonDialog dlgCommonDialog;
    qint32 m_documentLength = 0;
    bool m_dirty = false;
};
