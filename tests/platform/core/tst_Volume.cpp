#include "PrintQt.h"
#include "Volume.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

const QString home = QStringLiteral("/home/anna");

/// One line a volume: kind, path, name.
QStringList described(const QList<Volume> &volumes)
{
    QStringList lines;
    for (const Volume &volume : volumes)
        lines += QStringLiteral("%1 %2 %3").arg(int(volume.kind)).arg(volume.path, volume.name);
    return lines;
}

/// Of the volumes behind the two that are always there.
QStringList mounted(const QByteArray &mounts)
{
    return described(Volume::of(mounts, home)).mid(2);
}

} // namespace

TEST(VolumeTest, TheSystemAndTheHomeAreAlwaysThere)
{
    EXPECT_EQ(described(Volume::of({}, home)),
              QStringList({QStringLiteral("0 / File System"), QStringLiteral("1 /home/anna Home")}));
    EXPECT_GE(Volume::all().size(), 2);
}

TEST(VolumeTest, DrivesAndSharesAreOffered)
{
    EXPECT_EQ(
        mounted("/dev/sdb1 /media/anna/KINGSTON vfat rw 0 0\n"
                "/dev/sdc1 /run/media/anna/BACKUP ext4 rw 0 0\n"
                "/dev/sda4 /data ext4 rw 0 0\n"
                "server:/export /mnt/team nfs4 rw 0 0\n"
                "anna@server:/ /home/anna/remote fuse.sshfs rw 0 0\n"),
        QStringList({QStringLiteral("3 /media/anna/KINGSTON KINGSTON"),
                     QStringLiteral("3 /run/media/anna/BACKUP BACKUP"), QStringLiteral("2 /data data"),
                     QStringLiteral("4 /mnt/team team"), QStringLiteral("4 /home/anna/remote remote")}));
}

TEST(VolumeTest, PartsOfTheSystemAreLeftOut)
{
    EXPECT_EQ(mounted("proc /proc proc rw 0 0\n"
                      "tmpfs /mnt/ram tmpfs rw 0 0\n"
                      "/dev/sda2 / ext4 rw 0 0\n"
                      "/dev/sda1 /boot/efi vfat rw 0 0\n"
                      "/dev/sda3 /home ext4 rw 0 0\n"
                      "/dev/sda5 /home/anna ext4 rw 0 0\n"
                      "/dev/loop3 /snap/core/1 squashfs ro 0 0\n"
                      "portal /run/user/1000/doc fuse.portal rw 0 0\n"
                      "\nshort /media/line\n"),
              QStringList());
}

TEST(VolumeTest, EachPathIsOfferedOnce)
{
    EXPECT_EQ(mounted("/dev/sda4 /data ext4 rw 0 0\n/dev/sda4 /data ext4 rw 0 0\n").size(), 1);
}

TEST(VolumeTest, EscapedNamesAreRead)
{
    EXPECT_EQ(mounted("/dev/sdb1 /media/anna/My\\040\\134Stick\\012 vfat rw 0 0\n"),
              QStringList(QStringLiteral("3 /media/anna/My \\Stick\n My \\Stick\n")));
    EXPECT_EQ(mounted("/dev/sdb1 /media/M\xfcll vfat rw 0 0\n"),
              QStringList(QString::fromUtf16(u"3 /media/M\xdcfcll M\xdcfcll")));
}
