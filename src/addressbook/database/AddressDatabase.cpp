#include "AddressDatabase.h"

#include "DailyCopies.h"
#include "DataError.h"
#include "FileNames.h"
#include "Paths.h"
#include "Recordset.h"
#include "ShownText.h"

#include <unistd.h>

namespace {

constexpr int version = 1; // of the schema

[[noreturn]] void refuse(const QString &path, const QString &reason)
{
    throw RuntimeError(DataError::Engine,
                       QStringLiteral("The address database \"%1\" %2").arg(ShownText::line(path), reason),
                       path);
}

/// Where a user finds an older state of the file.
QString copiesHint()
{
    return DailyCopies::any() ? QStringLiteral(" Copies of the last days are in \"%1\".")
                                    .arg(ShownText::line(DailyCopies::folder()))
                              : QString();
}

struct State
{
    qint64 version;
    QString damage;
};

State openedState(const QString &path)
{
    AddressConnection.open(path);
    Recordset found;
    found.open(QStringLiteral("pragma user_version"), AddressConnection);
    return {found.field(0).number(), AddressConnection.damage()};
}

State stateOf(const QString &path)
{
    try {
        return openedState(path);
    } catch (const RuntimeError &error) {
        if (DataError::isLocked(error)) // which passes, and needs no copy
            throw;
        refuse(path, QStringLiteral("cannot be opened: %1.").arg(error.description()) + copiesHint());
    }
}

void openSound(const QString &path)
{
    if (::access(FileNames::toBytes(path).constData(), F_OK) != 0)
        refuse(path, QStringLiteral("does not exist.") + copiesHint());
    const State state = stateOf(path);
    if (!state.damage.isEmpty())
        refuse(path, QStringLiteral("is damaged: %1.").arg(state.damage) + copiesHint());
    if (state.version != version)
        refuse(path,
               QStringLiteral("is empty, or was made by another version of the program.") + copiesHint());
}

} // namespace

QString AddressDatabase::path()
{
    return Paths::native(Paths::appPath() + QStringLiteral("\\data97.mdb"));
}

void AddressDatabase::open(const QString &path)
{
    AddressConnection.close();
    try {
        openSound(path);
    } catch (...) {
        AddressConnection.close();
        throw;
    }
}

void OpenAddressDatabase()
{
    AddressDatabase::open(AddressDatabase::path());
    DailyCopies::make(AddressConnection, QDate::currentDate());
}
