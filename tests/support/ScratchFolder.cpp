#include "ScratchFolder.h"

#include <QFile>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t open = 0755; ///< others may look in

/// In memory where that can be: a test may make tens of thousands of files.
QByteArray parentFolder()
{
    if (::access("/dev/shm", W_OK | X_OK) == 0)
        return "/dev/shm";
    return QByteArray::fromStdString(
        std::filesystem::canonical(std::filesystem::temp_directory_path()).string());
}

} // namespace

ScratchFolder::ScratchFolder()
    : m_path(parentFolder() + "/quill-test-XXXXXX")
{
    EXPECT_NE(::mkdtemp(m_path.data()), nullptr);
    EXPECT_EQ(::chmod(m_path.constData(), open), 0);
}

ScratchFolder::~ScratchFolder()
{
    std::filesystem::remove_all(m_path.toStdString());
}

QString ScratchFolder::path() const
{
    return QFile::decodeName(m_path);
}

void ScratchFolder::addFile(const QByteArray &name, const QByteArray &content) const
{
    std::FILE *made = std::fopen(file(name).constData(), "w");
    ASSERT_NE(made, nullptr) << name.constData();
    std::fwrite(content.constData(), 1, size_t(content.size()), made);
    std::fclose(made);
}

void ScratchFolder::addFolder(const QByteArray &name) const
{
    ASSERT_EQ(::mkdir(file(name).constData(), open), 0) << name.constData();
}

void ScratchFolder::addLink(const QByteArray &name, const QByteArray &target) const
{
    ASSERT_EQ(::symlink(target.constData(), file(name).constData()), 0) << name.constData();
}
