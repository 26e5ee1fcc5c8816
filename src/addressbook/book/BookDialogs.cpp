#include "BookDialogs.h"

#include "Forms.h"
#include "IconFile.h"
#include "frmAddress.h"
#include "frmRegCity.h"
#include "frmRegister.h"

namespace {

const QString adding = QStringLiteral("New");
const QString group = QStringLiteral("Group");
const QString state = QStringLiteral("State");
const QString cityIcon = QStringLiteral("\\city.ico");
const QString stateIcon = QStringLiteral("\\stateb.ico");

/// A window that could not be filled is not to be found half filled by the next command.
template<class Step>
void orUnload(Form &window, Step step)
{
    try {
        step();
    } catch (...) {
        window.unload();
        throw;
    }
}

/// The window of the name, loaded.
template<class Window>
Window &loaded()
{
    auto &window = Forms::refer<Window>();
    orUnload(window, [&] { window.load(); });
    return window;
}

} // namespace

void BookDialogs::newContact(QWidget *owner)
{
    auto &editor = loaded<frmAddress>();
    editor.setCaption(QStringLiteral("Add New Contact"));
    editor.EditMode = adding;
    editor.showModal(owner);
}

void BookDialogs::newGroup(QWidget *owner)
{
    auto &dialog = loaded<frmRegister>();
    dialog.setCaption(QStringLiteral("Add New Group"));
    dialog.configure(group); // Intended: which sets the caption once more
    dialog.showModal(owner);
}

void BookDialogs::newCity(QWidget *owner)
{
    auto &dialog = loaded<frmRegCity>();
    loaded<frmRegister>().setWindowIcon(IconFile::read(cityIcon)); // Intended: the other dialog's icon
    dialog.setCaption(QStringLiteral("Add New City"));
    dialog.EditMode = adding;
    dialog.showModal(owner);
}

void BookDialogs::newState(QWidget *owner)
{
    auto &dialog = loaded<frmRegister>();
    dialog.setWindowIcon(IconFile::read(stateIcon));
    dialog.setCaption(QStringLiteral("Add New County/State/Province"));
    dialog.configure(state); // Intended: as in newGroup
    dialog.showModal(owner);
}

void BookDialogs::editContact(qint32 number, QWidget *owner)
{
    auto &editor = loaded<frmAddress>();
    orUnload(editor, [&] { editor.configureEdit(number); });
    editor.showModal(owner);
}

void BookDialogs::editGroup(qint16 id, QWidget *owner)
{
    auto &dialog = loaded<frmRegister>();
    orUnload(dialog, [&] { dialog.configureEdit(group, id); });
    dialog.showModal(owner);
}

void BookDialogs::editCity(qint16 id, QWidget *owner)
{
    auto &dialog = loaded<frmRegCity>();
    orUnload(dialog, [&] { dialog.configureEdit(id); });
    dialog.showModal(owner);
}

void BookDialogs::editState(qint16 id, QWidget *owner)
{
    auto &dialog = loaded<frmRegister>();
    dialog.setWindowIcon(IconFile::read(stateIcon));
    orUnload(dialog, [&] { dialog.configureEdit(state, id); });
    dialog.showModal(owner);
}
