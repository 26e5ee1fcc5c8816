#include "ZipRun.h"

#include <algorithm>

ZipRun::ZipRun()
{
    options.fNoDirEntries = 1;
}

int ZipRun::run(const QByteArray &archive, const QByteArrayList &names)
{
    ZIPUSERFUNCTIONS functions;
    functions.print = [this](QByteArrayView text) {
        messages.append(text.toByteArray());
        return 0;
    };
    functions.comment = [this](CommentBuffer &buffer) {
        ++commentRequests;
        std::copy_n(comment.begin(), comment.size(), buffer.begin());
    };
    functions.password = [this](std::span<char> buffer) {
        if (passwords.isEmpty())
            return 1;
        const QByteArray password = passwords.takeFirst();
        std::copy_n(password.begin(), password.size(), buffer.begin());
        return 0;
    };
    functions.service = [this](QByteArrayView name) {
        services.append(name.toByteArray());
        return isCancelled(name) ? 1 : 0;
    };
    ZpInit(functions);
    ZpSetOptions(options);
    NameList list;
    for (const QByteArray &name : names)
        list.append(name);
    return ZpArchive(archive, list);
}

int ZipRun::remove(const QByteArray &archive, const QByteArrayList &names)
{
    options.fDeleteEntries = 1;
    const int result = run(archive, names);
    options.fDeleteEntries = 0;
    return result;
}
