#pragma once

#include "NameDelegate.h"

/// Counts how often a list of names asks about one of its rows, to measure or to draw it.
class RowCounter : public NameDelegate
{
public:
    int count() const { return m_count; }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        ++m_count;
        NameDelegate::initStyleOption(option, index);
    }

private:
    mutable int m_count = 0;
};
