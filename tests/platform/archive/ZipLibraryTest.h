#pragma once

#include "DirectoryReader.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

/// Jobs of the zip library on two files in the current folder.
struct ZipLibraryTest : testing::Test
{
    static constexpr mode_t permissions = 07777;
    ScratchFolder scratch;
    std::filesystem::path before = std::filesystem::current_path();
    QByteArray archive = scratch.file("a.zip");
    ZipRun job;

    ZipLibraryTest()
    {
        scratch.addFolder("in");
        std::filesystem::current_path((scratch.path() + QStringLiteral("/in")).toStdString());
        add("one.txt", "first file, first file, first file");
        add("two.txt", "second file, second file");
    }
    ~ZipLibraryTest() override { std::filesystem::current_path(before); }

    void add(const QByteArray &name, const QByteArray &content) const
    {
        scratch.addFile("in/" + name, content);
    }
    ArchiveDirectory directory() const
    {
        return DirectoryReader(FileDescriptor::open(archive, O_RDONLY)).read();
    }
    QByteArrayList names() const
    {
        QByteArrayList names;
        for (const ArchiveEntry &entry : directory().entries)
            names.append(entry.name);
        return names;
    }
    /// The files of the archive, by extracting them.
    QMap<QByteArray, QByteArray> content(const QByteArrayList &passwords = {}) const
    {
        const ScratchFolder target;
        UnzipRun unzip;
        unzip.passwords = passwords;
        EXPECT_EQ(unzip.extract(archive, target.file("x")), UnzipResult::Success);
        return FolderContent::filesOf(target.file("x"));
    }
    QByteArray bytes() const { return FolderContent::read(archive); }
    /// What is in the archive's own folder.
    QByteArrayList beside() const
    {
        QByteArrayList files = FolderContent::filesOf(scratch.path().toUtf8()).keys();
        files.removeIf([](const QByteArray &name) { return name.startsWith("in/"); });
        return files;
    }
    mode_t modeOf(const QByteArray &path) const
    {
        struct stat state = {};
        EXPECT_EQ(::stat(path.constData(), &state), 0);
        return state.st_mode & permissions;
    }
};
