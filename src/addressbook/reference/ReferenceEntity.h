#pragma once

#include <QString>

/// A table of single names, of which the dialog of states and groups adds and renames rows. What works on the
/// table throws RuntimeError.
///
/// Intended: a name goes into its statement as it is, so that a single quote in it makes the statement fail.
struct ReferenceEntity
{
    /// "State" or "Group"; nullptr for every other \a type.
    static const ReferenceEntity *of(const QString &type);

    /// True also where case alone differs.
    bool exists(const QString &text) const { return id(text) != 0; }
    void add(const QString &text) const;
    void rename(qint16 row, const QString &text) const;

    const char *type;
    const char *caption;
    const char *alreadyExists; ///< the message
    const char *insertStatement;
    const char *updateStatement;
    QString (*name)(qint16 id);
    quint8 (*id)(const QString &name);
    quint8 (*nextId)();
};
