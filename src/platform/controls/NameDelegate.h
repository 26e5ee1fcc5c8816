#pragma once

#include "PlainTextDelegate.h"

/// Draws the rows of a list of file names: each as wide as the list, a name that is longer cut in the middle.
/// Rows of a FolderRowsModel are moved to the right as it says.
class NameDelegate : public PlainTextDelegate
{
public:
    using PlainTextDelegate::PlainTextDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
