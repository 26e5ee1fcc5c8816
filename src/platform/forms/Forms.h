#pragma once

#include "Form.h"

#include <QList>

/// The collection of loaded windows in order of creation, hidden ones included, and the windows by name.
namespace Forms {

enum class Instances {
    One, ///< a named instance, made the first time it is referred to and reused until it is unloaded
    Many ///< a new instance each time
};

using Factory = std::function<Form *()>;

/// Makes a window known. Done once for each at start-up.
void registerWindow(const QString &name, Instances instances, Factory factory);

/// Takes that back; a window of the name that is loaded stays.
void unregisterWindow(const QString &name);

/// The window of class \a Window, registered under the name of the class. Throws RuntimeError 424 where it is
/// not, 438 where the name belongs to a window of another class.
template<HasMetaObject Window>
Window &refer();

/// The window \a name, by its kind the named instance or a new one. Throws RuntimeError 424 for a name that
/// is not registered.
Form &refer(const QString &name);

const QList<Form *> &loaded();

/// The loaded windows called \a name.
QList<Form *> named(const QString &name);

void add(Form &form);
void remove(Form &form);

} // namespace Forms

template<HasMetaObject Window>
Window &Forms::refer()
{
    const QString name = QString::fromLatin1(Window::staticMetaObject.className());
    if (auto *window = qobject_cast<Window *>(&refer(name)))
        return *window;
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, name);
}
