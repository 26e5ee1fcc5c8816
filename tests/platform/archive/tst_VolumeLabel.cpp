#include "PrintQt.h"
#include "ScratchFolder.h"
#include "VolumeLabel.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

TEST(VolumeLabelTest, FindsTheLabelOfTheDevice)
{
    const ScratchFolder scratch;
    const QByteArray path = scratch.path().toUtf8();
    struct stat state = {};
    ASSERT_EQ(::stat(path.constData(), &state), 0);
    if (::mknod(scratch.file("device").constData(), S_IFBLK | 0600, state.st_dev) != 0)
        GTEST_SKIP() << "only root can make a device";
    ASSERT_EQ(::mknod(scratch.file("other").constData(), S_IFBLK | 0600, state.st_dev + 1), 0);
    scratch.addFolder("labels");
    scratch.addLink("labels/OTHER", "../other");
    scratch.addLink("labels/file", "../labels");
    EXPECT_EQ(VolumeLabel::of(path, scratch.file("labels")), QByteArray());
    scratch.addLink("labels/MY\\x20DISK\\x", "../device");
    EXPECT_EQ(VolumeLabel::of(path, scratch.file("labels")), QByteArray("MY DISK\\x"));
}

TEST(VolumeLabelTest, IsEmptyWhereThereIsNone)
{
    EXPECT_EQ(VolumeLabel::of(".", "/nonexistent"), QByteArray());
    EXPECT_EQ(VolumeLabel::of("/nonexistent"), QByteArray());
}
