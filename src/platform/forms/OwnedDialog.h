#pragma once

#include <QPointer>

/// A dialog that is deleted at the end, unless its owner went first.
template<class Dialog>
class OwnedDialog
{
public:
    explicit OwnedDialog(Dialog *dialog)
        : m_dialog(dialog)
    {}
    ~OwnedDialog() { delete m_dialog; }
    OwnedDialog(const OwnedDialog &) = delete;
    OwnedDialog &operator=(const OwnedDialog &) = delete;

    /// False when the owner is gone and the dialog with it.
    explicit operator bool() const { return m_dialog; }
    Dialog &operator*() const { return *m_dialog; }
    Dialog *operator->() const { return m_dialog; }

private:
    QPointer<Dialog> m_dialog;
};
