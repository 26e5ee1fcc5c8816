#include "Program.h"

#include <QStandardPaths>

QString Program::find(const QString &name)
{
    const QString inPath = QStandardPaths::findExecutable(name);
    return !inPath.isEmpty() ? inPath : QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin")});
}
