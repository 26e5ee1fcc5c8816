#pragma once

#include <QIcon>
#include <QString>

/// A node of a tree view.
struct TreeNode
{
    QString Key; // unique in its tree
    QString Text;
    QString Parent = {}; // the parent's key; empty for a root
    QIcon Image = {};
};
