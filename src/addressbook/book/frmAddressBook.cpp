#include "frmAddressBook.h"

#include "AddressDatabase.h"
#include "Ask.h"
#include "BookDialogs.h"
#include "BookList.h"
#include "BookTree.h"
#include "ContactQuery.h"
#include "ContactRows.h"
#include "DataError.h"
#include "ErrorReports.h"
#include "Forms.h"
#include "ListCommands.h"
#include "ListView.h"
#include "ListedContacts.h"
#include "Numbers.h"
#include "SeedRows.h"
#include "ShownText.h"
#include "TreeView.h"
#include "UnlessLocked.h"
#include "frmBirthDays.h"
#include "frmQuillAddressAbout.h"
#include "frmquilladdresshelp.h"
#include "modMain.h"
#include "modprint.h"

#include <QCursor>
#include <QLabel>
#include <QMenu>
#include <optional>
#include <tuple>

namespace {

const QString protectedItem = QStringLiteral("You cannot edit this item!");
const QString protectedGroup = QStringLiteral("You cannot edit the default Group!");

/// The id of a table's row; nothing, and a box that says so, where it is the protected one.
std::optional<qint16> editableId(const ListItem &row, const QString &refusal)
{
    const qint16 id = Numbers::toInteger(row.Text);
    if (id != SeedRows::id)
        return id;
    Ask(refusal, MsgBoxStyle::Critical, QStringLiteral("The .. Node is Protected.."));
    return {};
}

void hint(const QString &title, const QString &text)
{
    Ask(text, MsgBoxStyle::Information, title);
}

} // namespace

// ---- Load, tree and list

void frmAddressBook::Form_Load()
{
    Form_Resize();
    m_commands->setRecordsEnabled(false);
    m_commands->setSummaryEnabled(false);
    Lv->setCheckboxes(false);
    const bool isFilled = unlessLocked([&] {
        OpenAddressDatabase();
        fillTree();
    });
    if (!isFilled)
        unload();
}

void frmAddressBook::fillTree()
{
    BookTree::fill(*Tv);
}

void frmAddressBook::fillReferenceList(const QString &tableKey)
{
    BookList::showTable(*Lv, tableKey);
    enableCommands();
}

void frmAddressBook::fillAddresses()
{
    BookList::showContacts(*Lv, ContactQuery::inOrder(BaseQuery, NameFilter));
    enableCommands();
}

void frmAddressBook::enableCommands()
{
    const bool isEmpty = Lv->ListItems().Count() == 0;
    const bool hasContacts = !isEmpty && BookList::hasContacts(*Lv);
    m_commands->setRecordsEnabled(hasContacts);
    Lv->setCheckboxes(hasContacts);
    if (!isEmpty) // Intended: an empty list leaves the summary as it was
        m_commands->setSummaryEnabled(hasContacts);
}

void frmAddressBook::Tv_NodeClick(const QString &key)
{
    shownUnlessLocked([&] {
        SelectedNodeKey = key;
        ParentNodeKey.clear();
        ignoreErrors([&] { ParentNodeKey = Tv->ParentKey(key); });
        orShowAll([&] { showNode(key); });
    });
}

bool frmAddressBook::findContacts(const QString &filter)
{
    return shownUnlessLocked([&] {
        NameFilter = filter;
        BaseQuery = ContactQuery::all();
        fillAddresses();
    });
}

/// Where the database is locked, says so. The list is then as before, and with it all that letters and a
/// refresh go by.
template<class Step>
bool frmAddressBook::shownUnlessLocked(Step step)
{
    const auto before = std::tuple(BaseQuery, NameFilter, SelectedNodeKey, ParentNodeKey);
    const QString label = lblSel->text();
    const bool isShown = unlessLocked(step);
    if (!isShown) {
        std::tie(BaseQuery, NameFilter, SelectedNodeKey, ParentNodeKey) = before;
        lblSel->setText(label);
    }
    return isShown;
}

/// Shows all contacts where \a step fails, in particular for the root.
template<class Step>
void frmAddressBook::orShowAll(Step step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        if (DataError::isLocked(error)) // so would showing all be, after the same wait
            throw;
        showAll();
    }
}

/// Throws for the root, which has no parent.
void frmAddressBook::showNode(const QString &key)
{
    NameFilter.clear();
    lblSel->setText(ShownText::line(Tv->Text(key)));
    if (BookTree::isTable(key)) {
        fillReferenceList(key);
        return;
    }
    if (const auto query = ContactQuery::ofNode(Tv->ParentKey(key), key))
        BaseQuery = *query;
    fillAddresses();
}

void frmAddressBook::showAll()
{
    BaseQuery = ContactQuery::all();
    lblSel->setText(QStringLiteral("All Addresses"));
    fillAddresses();
}

void frmAddressBook::refreshCurrentList()
{
    shownUnlessLocked([&] { orShowAll([&] { showSelectedNode(); }); });
}

void frmAddressBook::showSelectedNode()
{
    NameFilter.clear();
    if (BookTree::isTable(SelectedNodeKey)) {
        fillReferenceList(SelectedNodeKey);
        return;
    }
    if (const auto query = ContactQuery::ofNode(ParentNodeKey, SelectedNodeKey))
        BaseQuery = *query;
    fillAddresses();
}

void frmAddressBook::cmdChar_Click(int index)
{
    shownUnlessLocked([&] {
        NameFilter = ContactQuery::letterFilter(index);
        fillAddresses();
    });
}

// ---- The list

void frmAddressBook::Lv_DblClick()
{
    unlessLocked([&] { openSelected(); });
}

void frmAddressBook::openSelected()
{
    const QString column = Lv->ColumnHeaders(1).Text.toLower();
    const ListItem row = Lv->SelectedItem();
    if (column == u"name") {
        BookDialogs::editContact(BookList::contactNumber(row.Key), window());
        refreshCurrentList();
    } else if (column == u"cityid") {
        if (const auto id = editableId(row, protectedItem))
            BookDialogs::editCity(*id, window()); // Intended: the list is not read again
    } else if (column == u"stateid") {
        if (const auto id = editableId(row, protectedItem)) {
            BookDialogs::editState(*id, window());
            refreshCurrentList();
        }
    } else if (column == u"groupid") {
        if (const auto id = editableId(row, protectedGroup)) {
            BookDialogs::editGroup(*id, window());
            refreshCurrentList();
        }
    }
}

void frmAddressBook::Lv_KeyDown(int key)
{
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        Lv_DblClick();
    else if (key == Qt::Key_Delete)
        deleteSelectedContact();
    else if (key == Qt::Key_Menu)
        m_popup->popup(Lv->mapToGlobal(Lv->rect().center()));
}

void frmAddressBook::Lv_MouseDown(Qt::MouseButton button)
{
    if (button == Qt::RightButton)
        m_popup->popup(QCursor::pos());
}

void frmAddressBook::deleteSelectedContact()
{
    if (!BookList::hasContacts(*Lv) || !Lv->hasSelection())
        return;
    const ListItem contact = Lv->SelectedItem();
    if (!ListedContacts::confirmDeletion(contact, {}))
        return;
    if (unlessLocked([&] { ContactRows::remove(BookList::contactNumber(contact.Key)); }))
        Lv->ListItems().Remove(contact.Key);
}

// ---- New rows

void frmAddressBook::newContact_Click()
{
    unlessLocked([&] { BookDialogs::newContact(window()); });
}

void frmAddressBook::newGroup_Click()
{
    unlessLocked([&] { BookDialogs::newGroup(window()); });
}

void frmAddressBook::newCity_Click()
{
    unlessLocked([&] { BookDialogs::newCity(window()); });
}

void frmAddressBook::newState_Click()
{
    unlessLocked([&] { BookDialogs::newState(window()); });
}

// ---- Commands on the list

void frmAddressBook::findBirthdays_Click()
{
    Forms::refer<frmBirthDays>().showModal(window());
    lblSel->setText(QStringLiteral("Selected Birthdays")); // Intended: also after Cancel
}

void frmAddressBook::deleteSelected_Click()
{
    if (!BookList::hasContacts(*Lv))
        return;
    CheckAnySelected(*Lv);
    if (AnyChecked == 0) // Intended: the title speaks of printing
        hint(QStringLiteral("Nothing to Print..."),
             QStringLiteral("You have not selected any records to delete!"));
    else
        unlessLocked([&] { ListedContacts::deleteChecked(*Lv); });
}

void frmAddressBook::refreshData_Click()
{
    unlessLocked([&] { fillTree(); });
    Lv->update();
}

void frmAddressBook::selectAll_Click()
{
    if (!BookList::hasContacts(*Lv))
        return;
    ListedContacts::setAllChecked(*Lv, true);
    hint(QStringLiteral("Items checked..."),
         QStringLiteral("All Items in the current list have been selected!"));
}

void frmAddressBook::deselectAll_Click()
{
    if (!BookList::hasContacts(*Lv))
        return;
    ListedContacts::setAllChecked(*Lv, false);
    hint(QStringLiteral("Items un-checked..."),
         QStringLiteral("All Items in the current list have been de-selected!"));
}

void frmAddressBook::mnuLarge_Click()
{
    Lv->setView(0);
}

void frmAddressBook::mnuSmall_Click()
{
    Lv->setView(1);
}

void frmAddressBook::mnuList_Click()
{
    Lv->setView(2);
}

void frmAddressBook::mnuDets_Click()
{
    Lv->setView(3);
}

// ---- Printing and help

void frmAddressBook::mnupagesetup_Click()
{
    resumeNext([&] {
        dlgCommonDialog1.DialogTitle = QStringLiteral("Page Setup");
        dlgCommonDialog1.Flags = CommonDialog::PrintSetup;
        dlgCommonDialog1.CancelError = true;
        dlgCommonDialog1.ShowPrinter();
    });
}

void frmAddressBook::printSelected_Click()
{
    PrintSelectedRecords(*Lv);
}

void frmAddressBook::mnusummary_Click()
{
    PrintSummary(*Lv);
}

void frmAddressBook::mnutest_Click()
{
    WriteFirstDetail();
}

void frmAddressBook::mprint_Click()
{
    hint(QStringLiteral("Printing Information.."),
         QStringLiteral("Select a Print item from the drop down beside this button."));
}

void frmAddressBook::helpme_Click()
{
    hint(QStringLiteral("Help Information.."),
         QStringLiteral("Select a Help item from the drop down beside this button."));
}

void frmAddressBook::about_Click()
{
    Forms::refer<frmQuillAddressAbout>().showModal(window());
}

void frmAddressBook::howTo_Click()
{
    Forms::refer<frmquilladdresshelp>().showModal(window());
}
