#pragma once

#include "Connection.h"
#include "PrintQt.h"
#include "Recordset.h"
#include "RuntimeError.h"
#include "ScratchFolder.h"

#include <QStringList>
#include <gtest/gtest.h>

/// An empty database and a connection to it.
struct ScratchDatabase : testing::Test
{
    ScratchDatabase()
    {
        folder.addFile("a.db");
        connection.open(path());
    }

    QString path() const { return QString::fromUtf8(folder.file("a.db")); }
    void execute(const char *statement) { connection.execute(QString::fromUtf8(statement)); }

    /// The first field of each row.
    QStringList column(const QString &statement)
    {
        Recordset rows;
        QStringList texts;
        for (rows.open(statement, connection); !rows.eof(); rows.moveNext())
            texts.append(rows.field(0).isNull() ? QStringLiteral("NULL") : rows.field(0).text());
        return texts;
    }
    QStringList column(const char *statement) { return column(QString::fromUtf8(statement)); }

    ScratchFolder folder;
    Connection connection;
};

/// What an error says, for comparisons in one line.
template<class Step>
QString errorOf(Step &&step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        return QStringLiteral("%1 %2").arg(error.number()).arg(error.description());
    }
    return QStringLiteral("none");
}
