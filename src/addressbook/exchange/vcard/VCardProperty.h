#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

/// One line of a vCard: "item1.TEL;TYPE=home,voice:+44 20 1234".
struct VCardProperty
{
    QString name;                       ///< in capitals, without its group
    QHash<QString, QString> parameters; ///< the last of each name, in capitals
    QStringList types;                  ///< also those that are written without "TYPE="
    QString value;                      ///< still escaped

    /// The property in an unfolded line; without a name where the line has none.
    static VCardProperty parse(const QByteArray &line);
};
