#pragma once

#include "Computer.h"

#include <QHash>
#include <QList>
#include <functional>
#include <optional>

class ListBox;

/// The computers of the network as rows of a list.
class NetworkList
{
public:
    /// Finds the computers; none at all where the network cannot be asked.
    using Search = std::function<std::optional<QList<Computer>>()>;

    explicit NetworkList(Search search);

    /// Puts the computers into \a list, this one among them, with " (This Machine)" behind its name. Where
    /// the network cannot be asked the list is left as it was.
    void FillComputerList(ListBox &list);

    /// The computer of the row \a text, with its address where it was found with one.
    Computer computer(const QString &text) const;

    /// \a text is the row of this computer.
    static bool isThisMachine(const QString &text);

private:
    Search m_search;
    QHash<QString, QString> m_addresses; ///< by name
};
