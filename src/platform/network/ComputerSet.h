#pragma once

#include "Computer.h"

#include <QList>
#include <QMap>

/// The computers that several sources have found, each once.
class ComputerSet
{
public:
    /// What is no host name is left out, and so is all behind the first thousand. The first address of a name
    /// is kept: a later answer cannot move it elsewhere.
    void add(const QString &name, const QString &address);

    /// Sorted by name. A name that NetBIOS cut to its fifteen characters is left out where the same computer
    /// has told the whole one.
    QList<Computer> computers() const;

private:
    bool isCut(const QString &name) const;

    QMap<QString, QString> m_addresses; ///< by name
};
