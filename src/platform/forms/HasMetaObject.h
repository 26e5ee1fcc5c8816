#pragma once

#include <QMetaObject>
#include <concepts>

/// A class with Q_OBJECT of its own. Without the macro a class has its base's name, and findChild() takes
/// any object of the base for it.
template<class Class>
concept HasMetaObject = requires
{
    {
        &Class::qt_metacall
        } -> std::same_as<int (Class::*)(QMetaObject::Call, int, void **)>;
};
