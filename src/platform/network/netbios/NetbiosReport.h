#pragma once

#include "Computer.h"

#include <QByteArray>
#include <QList>

/// Reads what nmblookup prints about the computers that answer, as it comes.
class NetbiosReport
{
public:
    /// The computers in the lines that are whole by now. A name of more than one computer is no computer's.
    QList<Computer> read(const QByteArray &bytes);

private:
    QByteArray m_rest;
    QString m_address; ///< of the computer that the lines are about
};
