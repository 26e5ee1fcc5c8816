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

TEST_F(FilePlacesTest, LeavesOutWhatIsNotThere)
{
    EXPECT_EQ(FilePlaces::complete({QUrl::fromLocalFile(home.file(QStringLiteral("gone")))}, {}),
              QList<QUrl>{homeFolder()});
}

TEST_F(FilePlacesTest, OffersDrivesButNotTheSystemsOwnFileSystems)
{
    // Any folder serves for a drive that is there; /media itself belongs to every system.
    const QStringList mountPoints = {QStringLiteral("/"), QStringLiteral("/proc"), QStringLiteral("/usr"),
                                     QStringLiteral("/media/"), QStringLiteral("/media/nobody/GONE")};
    EXPECT_EQ(FilePlaces::complete({}, mountPoints),
              QList<QUrl>({homeFolder(), QUrl::fromLocalFile(QStringLiteral("/media/"))}));
}

TEST_F(FilePlacesTest, KnowsWhereFileSystemsAreMounted)
{
    EXPECT_TRUE(FilePlaces::mountPoints().contains(QStringLiteral("/")));
}
