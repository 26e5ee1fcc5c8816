#include "UnzipLibrary.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// A folder in memory: the target, and a file beside it that has to stay alone.
std::filesystem::path makeFolder()
{
    std::string name = "/dev/shm/fuzz-archive-XXXXXX";
    if (!::mkdtemp(name.data()))
        fail("no folder");
    return name;
}

/// Whether \a name is that of a file that was being extracted. Archives may have ".part" too.
bool isHalf(const std::string &name)
{
    return name.starts_with(".quill-") && name.ends_with(".part");
}

int run(const QByteArray &archive, const std::filesystem::path &target, int lists, int tests)
{
    DCLIST options;
    options.lpszZipFN = archive;
    options.lpszExtractDir = QByteArray::fromStdString(target.string());
    options.nvflag = lists;
    options.ntflag = tests;
    options.ndflag = 1;
    options.noflag = 1;
    USERFUNCTION functions;
    functions.print = [](QByteArrayView) { return 0; };
    functions.message = [](const ListedEntry &entry) {
        if (entry.fname.size() > 255)
            fail("a name is too long");
    };
    functions.password = [](std::span<char> buffer) {
        buffer[0] = 'p';
        return 0;
    };
    return Wiz_SingleEntryUnzip({}, {}, options, functions);
}

} // namespace

/// Lists, tests and extracts any bytes: nothing is written beside the target, no link comes into it, and what
/// is listed as an archive is one for all three.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const std::filesystem::path folder = makeFolder();
    static const int memory = ::memfd_create("archive", MFD_CLOEXEC);
    static const QByteArray archive = "/proc/self/fd/" + QByteArray::number(memory);
    if (::ftruncate(memory, 0) != 0 || ::pwrite(memory, data, size, 0) != ssize_t(size))
        fail("no memory");
    const std::filesystem::path target = folder / "target";
    const bool isArchive = run(archive, target, 1, 0) != UnzipResult::NoArchive;
    if (isArchive != (run(archive, target, 0, 1) != UnzipResult::NoArchive))
        fail("listed, but not tested");
    run(archive, target, 0, 0);
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path() != target)
            fail("written outside");
    }
    if (!std::filesystem::exists(target))
        return 0;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(target)) {
        if (entry.is_symlink() || isHalf(entry.path().filename().string()))
            fail("a link, or half a file");
    }
    std::filesystem::remove_all(target);
    return 0;
}
