#pragma once

#include <QtGlobal>

class QWidget;

/// Opens the windows that add and change contacts, groups, cities and states, each modal above \a owner. They
/// throw RuntimeError where a row cannot be read, or where an icon of the program's folder is missing.
namespace BookDialogs {

void newContact(QWidget *owner);
void newGroup(QWidget *owner);
void newCity(QWidget *owner);
void newState(QWidget *owner);

void editContact(qint32 number, QWidget *owner);
void editGroup(qint16 id, QWidget *owner);
void editCity(qint16 id, QWidget *owner);
void editState(qint16 id, QWidget *owner);

} // namespace BookDialogs
