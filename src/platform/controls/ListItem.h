#pragma once

#include <QIcon>
#include <QStringList>

/// A row of a list view.
struct ListItem
{
    QString Key; // unique in its list, or empty
    QString Text;
    QStringList SubItems; // from the second column on
    QIcon Icon = {};
    QString Tag = {};
    bool Checked = false;
};
