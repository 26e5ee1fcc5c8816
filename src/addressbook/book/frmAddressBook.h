#pragma once

#include "ChildForm.h"
#include "CommonDialog.h"

#include <memory>

class ListCommands;
class ListView;
class QFrame;
class QLabel;
class QPushButton;
class Toolbar;
class TreeView;

/// The address book: a tree of groups, cities and states, and beside it a list of the contacts or of the
/// table that the chosen node selects. It reads the rows and deletes contacts; other windows add and change
/// them.
class frmAddressBook : public ChildForm
{
    Q_OBJECT

public:
    frmAddressBook();
    ~frmAddressBook() override;

    QList<QMenu *> menus() const override { return m_menus; }
    QSize sizeHint() const override;

    /// Which contacts are shown, without conditions by letter or birthday and without an order. Empty until a
    /// node has been clicked.
    QString BaseQuery;
    /// A condition that is added to BaseQuery, or an empty text.
    QString NameFilter;

    /// Shows the contacts of BaseQuery and NameFilter, by name and unchecked. Throws RuntimeError with the
    /// numbers of DataError.
    void fillAddresses();

    /// Shows those of all contacts for which the condition \a filter holds. Where another program has the
    /// database locked, says so in a box, leaves everything as it was and returns false; otherwise throws as
    /// fillAddresses does.
    bool findContacts(const QString &filter);

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    void Tv_NodeClick(const QString &key);
    void Lv_DblClick();
    void Lv_KeyDown(int key);
    void Lv_MouseDown(Qt::MouseButton button);
    void cmdChar_Click(int index);
    void newContact_Click();
    void newGroup_Click();
    void newCity_Click();
    void newState_Click();
    void findBirthdays_Click();
    void deleteSelected_Click();
    void refreshData_Click();
    void selectAll_Click();
    void deselectAll_Click();
    void mnupagesetup_Click();
    void printSelected_Click();
    void mnusummary_Click();
    void mnutest_Click();
    void mprint_Click();
    void helpme_Click();
    void about_Click();
    void howTo_Click();
    void mnuLarge_Click();
    void mnuSmall_Click();
    void mnuList_Click();
    void mnuDets_Click();

    void fillTree();
    void fillReferenceList(const QString &tableKey);
    void refreshCurrentList();
    void showNode(const QString &key);
    void showSelectedNode();
    void showAll();
    template<class Step>
    void orShowAll(Step step);
    template<class Step>
    bool shownUnlessLocked(Step step);
    void openSelected();
    void enableCommands();
    void deleteSelectedContact();

    void buildTopRow();
    void buildCommandRow();
    QPushButton *command(const char *name, const QString &caption);
    void buildLetterRow();
    void buildPanes();
    void bind();
    void placeRows();
    void shareRow(int width);

    QString SelectedNodeKey;
    QString ParentNodeKey; ///< of the selected node; empty for the root
    QList<QMenu *> m_menus;
    QMenu *m_popup;
    QWidget *m_topRow;
    QWidget *m_commandRow;
    QWidget *m_letterRow;
    Toolbar *Toolbar1;
    QLabel *lblSel;
    QFrame *Line1;
    TreeView *Tv;
    ListView *Lv;
    QLabel *Image1;
    std::unique_ptr<ListCommands> m_commands;
    CommonDialog dlgCommonDialog1;
};
