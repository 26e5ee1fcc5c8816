#include "LibzipEntries.h"

#include "BadArchive.h"
#include "DirectoryCheck.h"
#include "WrongPassword.h"

namespace {

class LibzipData : public PackedData
{
public:
    explicit LibzipData(zip_file_t *file)
        : m_file(file, zip_fclose)
    {}

    qsizetype read(char *to, qsizetype size) override;

private:
    std::unique_ptr<zip_file_t, int (*)(zip_file_t *)> m_file;
};

qsizetype LibzipData::read(char *to, qsizetype size)
{
    qsizetype done = 0;
    while (done < size) {
        const zip_int64_t got = zip_fread(m_file.get(), to + done, zip_uint64_t(size - done));
        if (got < 0)
            throw BadArchive{"its data is damaged"};
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

[[noreturn]] void fail(int code)
{
    if (code == ZIP_ER_WRONGPASSWD || code == ZIP_ER_NOPASSWD)
        throw WrongPassword();
    if (code == ZIP_ER_ENCRNOTSUPP)
        throw BadArchive{"its encryption is not supported", BadArchive::Unsupported};
    if (code == ZIP_ER_COMPNOTSUPP)
        throw BadArchive{"its compression method is not supported", BadArchive::Unsupported};
    throw BadArchive{"its data is damaged"};
}

} // namespace

LibzipEntries::LibzipEntries(const FileDescriptor &file, const ArchiveDirectory &directory,
                             const std::function<void()> &betweenEntries)
    : m_source(file, directory.prefix)
    , m_archive(m_source.open(ZIP_RDONLY), zip_discard)
{
    if (!m_archive)
        throw BadArchive{"its directory is damaged"};
    DirectoryCheck::requireSame(m_archive.get(), directory, betweenEntries);
}

bool LibzipEntries::canUnpack(quint16 method)
{
    return zip_compression_method_supported(method, 0) == 1;
}

std::unique_ptr<PackedData> LibzipEntries::open(std::size_t index, const QByteArray &password, bool unpacks)
{
    const zip_flags_t flags = unpacks ? 0 : ZIP_FL_COMPRESSED;
    zip_file_t *file = zip_fopen_index_encrypted(m_archive.get(), index, flags,
                                                 password.isEmpty() ? nullptr : password.constData());
    if (!file)
        fail(zip_error_code_zip(zip_get_error(m_archive.get())));
    return std::make_unique<LibzipData>(file);
}
