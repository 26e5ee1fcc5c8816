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

    /// As the file system's names become texts. What is not UTF-8 does not come back from it.
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

/// Those that a text can hold without a loss.
QList<HostileName> texts();
/// Those that a file can have and a text can hold.
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
