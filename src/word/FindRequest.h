#pragma once

#include <QString>

/// What the find dialog asks for, and what its fields hold at that moment.
struct FindRequest
{
    int flags = 0; ///< bitwise OR of FindFlag
    QString findText;
    QString replaceText;
};
