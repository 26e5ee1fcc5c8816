#pragma once

#include <QStringList>

class RegistryStore;

/// A kind of file, read from the registry keys of its class, in the desktop's terms.
struct FileClass
{
    struct Action
    {
        QString id;
        QString text;
        QString exec;
    };

    QString id; ///< part of a file name and of a type name
    QString description;
    QStringList patterns; ///< "*.ext"
    QString program;      ///< its name without folder and extension
    QString exec;         ///< what opens a file, as an Exec key has it; empty without an open command
    QString icon;         ///< an icon's name; may be empty
    QList<Action> actions;

    static constexpr QLatin1String typePrefix{"application/x-quill-"};
    QString type() const { return typePrefix + id; }
    /// Without extension.
    QString fileName() const { return QStringLiteral("quill-") + id; }

    /// The class \a className read from \a store; empty where there is none.
    static FileClass read(const RegistryStore &store, const QString &className);
};
