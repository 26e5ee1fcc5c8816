#include "TransferCommand.h"

#include "FileNames.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <QList>
#include <algorithm>
#include <iterator>

namespace {

struct VerbRow
{
    const char *word;
    TransferCommand::Verb verb;
    int names;
};

constexpr VerbRow verbRows[] = {
    {"DIR", TransferCommand::Dir, 0},       {"CD", TransferCommand::Cd, 1},
    {"CDUP", TransferCommand::CdUp, 0},     {"GET", TransferCommand::Get, 2},
    {"PUT", TransferCommand::Put, 2},       {"SIZE", TransferCommand::Size, 1},
    {"DELETE", TransferCommand::Delete, 1}, {"RMDIR", TransferCommand::RmDir, 1},
    {"MKDIR", TransferCommand::MkDir, 1},   {"RENAME", TransferCommand::Rename, 2},
    {"CLOSE", TransferCommand::Close, 0},
};

constexpr QByteArrayView between = "\" \"";

[[noreturn]] void fail(int code = TransferError::InvalidParameter)
{
    throw TransferFailure(code);
}

struct Names
{
    QByteArray first;
    QByteArray second;
};

QByteArray checkedName(const QByteArray &name)
{
    if (name.isEmpty() || name.contains('\r') || name.contains('\n') || name.contains('\0'))
        fail();
    return name;
}

/// The text between the outer quotation marks of the arguments.
QByteArray unquoted(const QByteArray &arguments)
{
    if (arguments.size() < 2 || !arguments.startsWith('"') || !arguments.endsWith('"'))
        fail();
    return arguments.sliced(1, arguments.size() - 2);
}

QList<Names> splits(const QByteArray &text)
{
    QList<Names> found;
    for (qsizetype at = text.indexOf(between); at >= 0; at = text.indexOf(between, at + 1))
        found.append({text.left(at), text.mid(at + between.size())});
    return found;
}

/// Whether \a path is a file of the name \a name in some folder.
bool isPathOf(const QByteArray &path, const QByteArray &name)
{
    return path.startsWith('/') && path.endsWith('\\' + name) && !name.contains('/');
}

/// The one split there is, or that at which \a fits; the names are then both checked.
Names namesIn(const QByteArray &arguments, bool (*fits)(const Names &))
{
    const QList<Names> all = splits(unquoted(arguments));
    const auto best = std::find_if(all.cbegin(), all.cend(), fits);
    if (best == all.cend() && all.size() != 1)
        fail();
    const Names names = best == all.cend() ? all.constFirst() : *best;
    return {checkedName(names.first), checkedName(names.second)};
}

/// Folders are listed with "/" behind their names, which is no part of them.
QByteArray withoutSlash(QByteArray name)
{
    while (name.size() > 1 && name.endsWith('/'))
        name.chop(1);
    return name;
}

/// Splits \a path, "folder\file", where the file is called \a name if it can be; else at the last separator.
void setLocal(TransferCommand &command, const QByteArray &path, const QByteArray &name)
{
    qsizetype length = path.contains('\\') ? path.lastIndexOf('\\') : path.lastIndexOf('/');
    if (path.endsWith('\\' + name))
        length = path.size() - name.size() - 1;
    command.folder = path.left(std::max<qsizetype>(length, 0));
    command.file = path.mid(length + 1);
    if (command.folder.isEmpty() && path.startsWith('/'))
        command.folder = "/";
    if (!command.folder.startsWith('/'))
        fail(TransferError::PathNotFound);
    if (command.file.isEmpty() || command.file == "." || command.file == ".." || command.file.contains('/'))
        fail(TransferError::InvalidName);
}

} // namespace

TransferCommand TransferCommand::parse(const QString &text)
{
    const QByteArray bytes = FileNames::toBytes(text);
    const qsizetype blank = bytes.indexOf(' ');
    const QByteArray word = blank < 0 ? bytes : bytes.first(blank);
    const QByteArray arguments = blank < 0 ? QByteArray() : bytes.sliced(blank + 1);
    const auto row = std::find_if(std::begin(verbRows), std::end(verbRows),
                                  [&](const VerbRow &candidate) { return word == candidate.word; });
    if (row == std::end(verbRows) || (row->names == 0) != (blank < 0))
        fail();

    TransferCommand command = {row->verb, {}, {}, {}, {}};
    if (row->names == 1)
        command.name = checkedName(unquoted(arguments));
    if (command.verb == Get) {
        const Names names = namesIn(arguments, [](const Names &n) { return isPathOf(n.second, n.first); });
        command.name = names.first;
        setLocal(command, names.second, names.first);
    } else if (command.verb == Put) {
        const Names names = namesIn(arguments, [](const Names &n) { return isPathOf(n.first, n.second); });
        command.name = names.second;
        setLocal(command, names.first, names.second);
    } else if (command.verb == Rename) {
        const Names names = namesIn(arguments, [](const Names &) { return false; });
        command.name = withoutSlash(names.first);
        command.newName = withoutSlash(names.second);
    } else if (command.verb == Cd || command.verb == RmDir || command.verb == MkDir) {
        command.name = withoutSlash(command.name);
    }
    return command;
}
