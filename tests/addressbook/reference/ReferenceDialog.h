#pragma once

#include "AddressDatabase.h"
#include "FakeFrame.h"
#include "Forms.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

/// A dialog of reference data over a database of its own, used by mouse and keyboard. Boxes have to be
/// expected. The city London (2) is in the state Kent (2), the group Family is 2.
template<class Dialog>
class ReferenceDialog
{
public:
    explicit ReferenceDialog(const QString &name)
    {
        Forms::registerWindow(name, Forms::Instances::One, [] { return new Dialog; });
        execute("Insert into State values(2,'Kent')");
        execute("insert into city values(2,'London',2)");
        execute("Insert into Groups values(2,'Family')");
    }

    /// The dialog, loaded and not yet shown.
    Dialog &load()
    {
        m_form = &Forms::refer<Dialog>();
        m_form->load();
        return *m_form;
    }
    void show()
    {
        m_form->showModeless();
        activate();
    }
    /// A box takes the activation with it.
    void activate() const
    {
        m_form->activateWindow();
        (void)QTest::qWaitForWindowActive(m_form);
    }

    Dialog &form() const { return *m_form; }
    bool isOpen() const { return m_form && m_form->isLoaded(); }

    void click(const char *name) const { QTest::mouseClick(&control<QWidget>(name), Qt::LeftButton); }
    void press(Qt::Key key) const { QTest::keyClick(m_form->focusWidget(), key); }
    /// Puts the focus into a box and types in the place of its text.
    void type(const char *name, const QString &text) const
    {
        activate();
        auto &box = control<QWidget>(name);
        box.setFocus();
        QTest::keySequence(&box, QKeySequence::SelectAll);
        text.isEmpty() ? QTest::keyClick(&box, Qt::Key_Delete) : QTest::keyClicks(&box, text);
    }
    QString focus() const { return m_form->focusWidget()->objectName(); }

    /// A plain box with OK and no title of its own.
    void expectBox(const QString &text)
    {
        frame.dialogs.expectBox(QStringLiteral("QuillOfficeToolsv2"), text)
            .icon(QMessageBox::NoIcon)
            .buttons(QMessageBox::Ok);
    }

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->template member<Control>(QString::fromLatin1(name));
    }
    void execute(const char *statement) { AddressConnection.execute(QString::fromUtf8(statement)); }
    QStringList rows(const char *statement) const { return book.rows(QString::fromLatin1(statement)); }

    FakeFrame frame;
    ScratchAddressBook book;

private:
    QPointer<Dialog> m_form;
};
