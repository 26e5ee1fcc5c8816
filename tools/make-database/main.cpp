#include "Connection.h"
#include "Files.h"
#include "RuntimeError.h"
#include "Transaction.h"

#include <QFile>
#include <QStringList>
#include <cstdio>

namespace {

/// The statements of a file in which an empty line ends each, without its comments.
QStringList statements(const QString &path)
{
    QStringList lines = QString::fromUtf8(Files::read(path)).split(u'\n');
    lines.removeIf([](const QString &line) { return line.startsWith(QLatin1String("--")); });
    return lines.join(u'\n').split(QStringLiteral("\n\n"), Qt::SkipEmptyParts);
}

void make(const QString &schema, const QString &path)
{
    Files::write(path, {}); // which is an empty database
    Connection connection;
    connection.open(path);
    Transaction transaction(connection);
    for (const QString &statement : statements(schema)) {
        if (!statement.trimmed().isEmpty())
            connection.execute(statement);
    }
    transaction.commit();
}

} // namespace

/// Makes a database from a schema: a step of the build.
int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("make-database SCHEMA OUT\n", stderr);
        return 2;
    }
    const QString path = QFile::decodeName(argv[2]);
    try {
        make(QFile::decodeName(argv[1]), path);
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(error.source()), qUtf8Printable(error.description()));
        QFile::remove(path);
        return 1;
    }
    return 0;
}
