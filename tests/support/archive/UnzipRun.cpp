#include "UnzipRun.h"

#include <algorithm>

UnzipRun::UnzipRun()
{
    options.ndflag = 1;
}

int UnzipRun::list(const QByteArray &archive)
{
    options.nvflag = 1;
    options.lpszZipFN = archive;
    return run();
}

int UnzipRun::extract(const QByteArray &archive, const QByteArray &folder)
{
    options.nvflag = 0;
    options.lpszZipFN = archive;
    options.lpszExtractDir = folder;
    return run();
}

int UnzipRun::run()
{
    USERFUNCTION functions;
    functions.print = [this](QByteArrayView text) {
        messages.append(text.toByteArray());
        return 0;
    };
    functions.replace = [this](QByteArrayView name) {
        questions.append(name.toByteArray());
        return answers.isEmpty() ? OverwriteAnswer::No : answers.takeFirst();
    };
    functions.password = [this](std::span<char> buffer) {
        ++passwordRequests;
        if (passwords.isEmpty())
            return 1;
        const QByteArray password = passwords.takeFirst();
        std::copy_n(password.begin(), password.size(), buffer.begin());
        return 0;
    };
    functions.message = [this](const ListedEntry &entry) { entries.append(entry); };
    functions.service = [this](QByteArrayView name) {
        services.append(name.toByteArray());
        return isCancelled(name) ? 1 : 0;
    };
    NameList names;
    for (const QByteArray &name : included)
        names.append(name);
    return Wiz_SingleEntryUnzip(names, {}, options, functions);
}
