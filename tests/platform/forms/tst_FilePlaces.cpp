#include "FilePlaces.h"
#include "PrintQt.h"
#include "ScratchHome.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

struct FilePlacesTest : testing::Test
{
    ScratchHome home;
    QUrl folder(const char *name) const
    {
        const QString path = home.file(QString::fromLatin1(name));
        QDir().mkpath(path);
        return QUrl::fromLocalFile(path);
    }
    QUrl homeFolder() const { return QUrl::fromLocalFile(home.path()); }
};

} // namespace

TEST_F(FilePlacesTest, OffersDocumentsAndDownloadsBehindWhatIsOfferedAlready)
{
    const QUrl computer(QStringLiteral("file:"));
    const QUrl own = folder("own");
    const QUrl documents = folder("Documents");
    const QUrl downloads = folder("Downloads");
    EXPECT_EQ(FilePlaces::complete({computer, homeFolder(), own}, {}),
              QList<QUrl>({computer, homeFolder(), own, documents, downloads}));
}

TEST_F(FilePlacesTest, LeavesOutStandardFoldersThatAreNotThere)
{
    EXPECT_EQ(FilePlaces::complete({}, {}), QList<QUrl>{homeFolder()});
}

TEST_F(FilePlacesTest, OffersDrivesButNoShares)
{
    // None of them is there: drives are not asked.
    const QString drive = QStringLiteral("/media/anna/STICK");
    const QString disk = QStringLiteral("/gone/data");
    const QList<Volume> volumes = {
        {Volume::Kind::System, QStringLiteral("/"), QStringLiteral("File System")},
        {Volume::Kind::Home, home.path(), QStringLiteral("Home")},
        {Volume::Kind::Removable, drive, QStringLiteral("STICK")},
        {Volume::Kind::Network, QStringLiteral("/mnt/team"), QStringLiteral("team")},
        {Volume::Kind::Disk, disk, QStringLiteral("data")},
    };
    EXPECT_EQ(FilePlaces::complete({}, volumes),
              QList<QUrl>({homeFolder(), QUrl::fromLocalFile(drive), QUrl::fromLocalFile(disk)}));
}
