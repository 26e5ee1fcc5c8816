#pragma once

#include "FakeFrame.h"
#include "ScratchAddressBook.h"
#include "frmAddress.h"

#include <QPointer>

/// The contact editor over a database of its own, used by mouse and keyboard. Boxes have to be expected. The
/// city London (2) is in the state Kent (2), the group Family is 2.
class EditorWindow
{
public:
    EditorWindow();

    /// As the address book opens it.
    void openNew();
    void openFor(qint32 number);

    frmAddress &form() const { return *m_form; }
    bool isOpen() const { return m_form && m_form->isLoaded(); }

    /// A box takes the activation with it; typing and choosing bring it back.
    void activate() const;
    /// Each brings the page of the control to the front.
    void click(const char *name) const;
    /// Puts the focus into a box and types in the place of its text.
    void type(const char *name, const QString &text) const;
    /// Sets the text of a box by code.
    void set(const char *name, const QString &text) const;
    /// Chooses an entry of a combo box from its list.
    void choose(const char *name, int entry) const;

    /// Where the focus is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;

    QString text(const char *name) const;
    bool isEnabled(const char *name) const;
    QStringList eMails() const;
    /// The name of the control that has the focus.
    QString focus() const;

    /// The box that a save that failed shows.
    BoxStep &expectRefusal(int number, const QString &description);

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->member<Control>(QString::fromLatin1(name));
    }
    QStringList rows(const char *statement) const { return book.rows(QString::fromLatin1(statement)); }
    /// The numbers in the four tables, as "1/1/1/1" for Names, EMails, Home, Business.
    QString numbers() const;

    FakeFrame frame;
    ScratchAddressBook book;

private:
    QWidget &inFront(const char *name) const;
    void show();

    QPointer<frmAddress> m_form;
};
