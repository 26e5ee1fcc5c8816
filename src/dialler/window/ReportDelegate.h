#pragma once

#include "PlainTextDelegate.h"

/// Shows the rows of a LineReport: a tab in front of a row indents it.
class ReportDelegate : public PlainTextDelegate
{
public:
    using PlainTextDelegate::PlainTextDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
