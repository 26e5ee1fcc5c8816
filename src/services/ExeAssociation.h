#pragma once

#include <QString>

/// What an extension is to be associated with; the members in the order of the call's arguments.
struct ExeAssociation
{
    QString exePath; ///< the program; quotes are put round it unless it has them
    QString className;
    QString description;
    QString extension; ///< without the dot
    QString openText{};
    bool isPrint = false;
    QString printText{};
    bool isAdd = false;
    QString addText{};
    bool isNew = false;
    QString newText{};
    int defaultIcon = -1; ///< an index; below 0 for none
};
