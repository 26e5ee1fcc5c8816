#include "UnzipLibrary.h"
#include "ZipLibrary.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

// One job of the archive libraries, as bench_archive.py asks for it:
//
//     bench_Archive make ARCHIVE FOLDER      all below the folder, names as they are
//     bench_Archive add ARCHIVE FILE
//     bench_Archive extract ARCHIVE FOLDER   over what is there; the password is "secret"
//     bench_Archive list ARCHIVE
//
// Prints the longest time between two calls of the service function, in ms: that long a window is not
// painted. Then the same without the time in which other programs kept the processors.

namespace {

class Pauses
{
public:
    Pauses() { m_timer.start(); }
    ~Pauses() { std::printf("%lld %lld\n", m_longest / perMillisecond, m_longestOwn / perMillisecond); }

    int call()
    {
        const qint64 now = m_timer.nsecsElapsed();
        const qint64 waited = waitedForProcessor();
        m_longest = qMax(m_longest, now - m_last);
        m_longestOwn = qMax(m_longestOwn, now - m_last - (waited - m_lastWaited));
        m_last = now;
        m_lastWaited = waited;
        return 0;
    }

private:
    static constexpr qint64 perMillisecond = 1'000'000;

    /// In nanoseconds, as the kernel counts for this thread.
    qint64 waitedForProcessor() const
    {
        char line[80] = {};
        long long ran = 0;
        long long waited = 0;
        if (::pread(m_counts, line, sizeof line - 1, 0) > 0)
            std::sscanf(line, "%lld %lld", &ran, &waited);
        return waited;
    }

    const int m_counts = ::open("/proc/thread-self/schedstat", O_RDONLY);
    QElapsedTimer m_timer;
    // Nanoseconds.
    qint64 m_last = 0;
    qint64 m_lastWaited = 0;
    qint64 m_longest = 0;
    qint64 m_longestOwn = 0;
};

int add(const char *archive, const char *name, int recursion, Pauses &pauses)
{
    ZIPUSERFUNCTIONS functions;
    functions.service = [&pauses](QByteArrayView) { return pauses.call(); };
    functions.print = [](QByteArrayView) { return 0; };
    ZPOPT options;
    options.fRecurse = recursion;
    options.fSystem = 1;
    ZpInit(functions);
    ZpSetOptions(options);
    NameList names;
    names.append(name);
    return ZpArchive(archive, names);
}

int unzip(const char *archive, const char *folder, Pauses &pauses)
{
    DCLIST options;
    options.lpszZipFN = archive;
    options.lpszExtractDir = folder ? folder : "";
    options.nvflag = folder ? 0 : 1;
    options.ndflag = 1;
    options.noflag = 1;
    USERFUNCTION functions;
    functions.print = [](QByteArrayView) { return 0; };
    functions.message = [](const ListedEntry &) {};
    functions.password = [](std::span<char> buffer) {
        std::ranges::copy("secret", buffer.begin());
        return 0;
    };
    functions.service = [&pauses](QByteArrayView) { return pauses.call(); };
    return Wiz_SingleEntryUnzip({}, {}, options, functions);
}

} // namespace

int main(int argc, char **argv)
{
    Pauses pauses;
    int result = -1;
    if (argc == 4 && std::strcmp(argv[1], "make") == 0)
        result = add(argv[2], argv[3], 1, pauses);
    else if (argc == 4 && std::strcmp(argv[1], "add") == 0)
        result = add(argv[2], argv[3], 0, pauses);
    else if (argc == 4 && std::strcmp(argv[1], "extract") == 0)
        result = unzip(argv[2], argv[3], pauses);
    else if (argc == 3 && std::strcmp(argv[1], "list") == 0)
        result = unzip(argv[2], nullptr, pauses);
    return result;
}
