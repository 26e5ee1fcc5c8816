#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <ostream>

/// A name that others choose (of a file, a host, an entry of an archive) and that a careless window misreads.
struct HostileName
{
    const char *what; ///< for the names of tests
    QByteArray bytes;

    /// As FileNames has it, so that it leads back to the bytes.
    QString text() const;
    bool isUtf8() const;
    /// A file can have this name: it is not too long, and no folder's own.
    bool canBeFile() const;
};

/// Names for tests that meet a name from outside:
///
///     INSTANTIATE_TEST_SUITE_P(Names, TheTest, testing::ValuesIn(HostileNames::all()), HostileNames::what);
namespace HostileNames {

const QList<HostileName> &all();

/// Those that are UTF-8, for what stores texts and not names of files.
QList<HostileName> texts();
/// Those that a file can have. There is room behind each for an extension.
QList<HostileName> files();

template<class Row>
std::string what(const Row &row)
{
    return row.param.what;
}

} // namespace HostileNames

inline void PrintTo(const HostileName &name, std::ostream *out)
{
    *out << name.what;
}
