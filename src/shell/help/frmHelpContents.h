#pragma once

#include "ChildForm.h"
#include "CommonDialog.h"

#include <QList>

class QGridLayout;
class RichTextBox;
class TabStrip;
class clsFindandReplace;

/// The suite's help: tabs with a button for each topic, and a pane that shows one document at a time, to
/// read, search and print. What the documents say is not here: the build makes them from data/help.
class frmHelpContents : public ChildForm
{
    Q_OBJECT

public:
    frmHelpContents();

    QList<QMenu *> menus() const override { return m_menus; }

protected:
    /// Throws RuntimeError as Files::read does where the document of the help menu is missing.
    void Form_Load() override;
    void Form_Terminate() override;

private:
    void cmdWordHelp_Click(int index);
    void cmdClose_Click();
    void SSTab1_Change();
    void SSTab1_Click();
    void printselected_Click();
    void printall_Click();
    void RichTextBox1_LinkClicked(int first);

    void showDocument(const char *file);
    void showHelpMenu();
    void print();

    void buildTabs();
    QGridLayout *addTab(const char *caption);
    void layOut();
    void takePaneToTab();
    void bind();

    TabStrip *SSTab1;
    RichTextBox *RichTextBox1;
    clsFindandReplace *FindDialog;
    CommonDialog dlgCommonDialog;
    QList<QMenu *> m_menus;
};
