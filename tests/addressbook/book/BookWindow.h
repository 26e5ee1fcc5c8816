#pragma once

#include "FakeFrame.h"
#include "ListView.h"
#include "ScratchAddressBook.h"
#include "TreeView.h"
#include "frmAddressBook.h"

#include <QPointer>

/// The address book over a database of its own, used by mouse and keyboard. Boxes have to be expected.
///
/// The states are Kent (2) and Surrey (3), the cities Dover (2) and Margate (3) in Kent and Woking (4) in
/// Surrey, the groups Family (2) and Work (3). Of the contacts
///   1 Bea Dunn is in Work, lives in Woking and has no birth date,
///   2 Anna Bell is in Family, lives in Dover and was born on 29-Feb-1996,
///   3 Ben Cole is in Work, lives in Margate and was born on 28-Feb-1990,
///   4 carl Bly is in Default, lives in ".." and was born on 01-Mar-1985.
class BookWindow
{
public:
    enum class Opened { Yes, No };

    explicit BookWindow(Opened opened = Opened::Yes);
    ~BookWindow();

    /// Opens the window once more, as the frame's command does.
    void open();
    /// Runs Form_Load alone, whose errors reach the caller.
    void load();

    frmAddressBook &form() const { return *m_form; }
    bool isOpen() const { return m_form && m_form->isLoaded(); }
    TreeView &tree() const { return control<TreeView>("Tv"); }
    ListView &list() const { return control<ListView>("Lv"); }
    QWidget &pane() const { return *list().currentWidget(); } ///< of the list, which has the focus

    /// Clicks a node with the mouse.
    void clickNode(const char *key) const;
    void doubleClickNode(const char *key) const;
    void click(const char *button) const;
    void clickLetter(char letter) const;
    /// Chooses a menu item or an entry of a drop-down button.
    void choose(const char *item) const;

    void selectRow(const char *text) const;
    void doubleClickRow(const char *text) const;
    void press(Qt::Key key) const; ///< in the list
    /// Checks or unchecks a row by the space bar.
    void toggle(const char *text) const;

    QString label() const;
    /// The captions of the list's columns, joined by "|".
    QString columns() const;
    /// The texts of the list's first column, joined by "|".
    QString names() const;
    QString checkedNames() const;
    /// A row with all its columns, joined by "|".
    QString row(const char *text) const;
    /// "A" and "B" for the sets of commands that are enabled. Fails where a set is enabled in part.
    QString commands() const;

    QStringList rows(const char *statement) const { return book.rows(QString::fromLatin1(statement)); }

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->member<Control>(QString::fromLatin1(name));
    }
    QAction &action(const char *name) const;

    FakeFrame frame;
    ScratchAddressBook book;

private:
    void addRows() const;
    int indexOf(const char *text) const;

    QPointer<frmAddressBook> m_form;
};
