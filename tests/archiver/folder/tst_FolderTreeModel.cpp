#include "AsUser.h"
#include "FileNames.h"
#include "FolderTreeModel.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScratchHome.h"
#include "Volume.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

struct FolderTreeModelTest : testing::Test
{
    ScratchFolder scratch;

    FolderTreeModelTest()
    {
        scratch.addFolder("b");
        scratch.addFolder("a");
        scratch.addFolder("a/sub");
        scratch.addFolder(".hidden");
        scratch.addFile("file");
    }
    QString path(const QByteArray &name) const { return FileNames::fromBytes(scratch.file(name)); }
    static QStringList below(FolderTreeModel &model, const QModelIndex &folder)
    {
        model.fetchMore(folder);
        QStringList names;
        for (int row = 0; row < model.rowCount(folder); ++row)
            names << model.index(row, 0, folder).data().toString();
        return names;
    }
};

constexpr auto foldersAlone = FolderTreeModel::Content::Folders;

} // namespace

TEST_F(FolderTreeModelTest, BeginsWithTheRoot)
{
    FolderTreeModel model(scratch.path() + u'/', foldersAlone);
    const QAbstractItemModelTester tester(&model);
    ASSERT_EQ(model.rowCount(), 1);
    const QModelIndex root = model.index(0, 0);
    EXPECT_EQ(model.pathAt(root), scratch.path());
    EXPECT_EQ(below(model, root), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(below(model, model.index(0, 0, root)), QStringList(QStringLiteral("sub")));
}

TEST_F(FolderTreeModelTest, BeginsWithTheVolumesWithoutARoot)
{
    const FolderTreeModel model({}, foldersAlone);
    const QList<Volume> volumes = Volume::all();
    ASSERT_EQ(model.rowCount(), volumes.size());
    for (int row = 0; row < model.rowCount(); ++row) {
        EXPECT_EQ(model.pathAt(model.index(row, 0)), volumes[row].path);
        EXPECT_EQ(model.index(row, 0).data().toString(), volumes[row].name);
        EXPECT_FALSE(model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    }
}

TEST_F(FolderTreeModelTest, FilesComeWhereTheyAreIncluded)
{
    FolderTreeModel model(scratch.path(), FolderTreeModel::Content::FoldersAndFiles);
    EXPECT_EQ(below(model, model.index(0, 0)),
              QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("file")}));
    EXPECT_FALSE(model.hasChildren(model.indexOf(path("file"))));
}

TEST_F(FolderTreeModelTest, AFolderCanBeOpenedUntilItIsFoundEmpty)
{
    FolderTreeModel model(scratch.path(), foldersAlone);
    const QModelIndex folder = model.indexOf(path("b"));
    EXPECT_TRUE(model.hasChildren(folder));
    EXPECT_TRUE(model.canFetchMore(folder));
    model.fetchMore(folder);
    EXPECT_FALSE(model.hasChildren(folder));
    EXPECT_FALSE(model.canFetchMore(folder));
}

TEST_F(FolderTreeModelTest, FindsAPath)
{
    FolderTreeModel model(scratch.path(), foldersAlone);
    const QAbstractItemModelTester tester(&model);
    for (const char *name : {"a/sub", "a", "b", ".hidden"}) {
        EXPECT_EQ(model.pathAt(model.indexOf(path(name))), path(name));
        EXPECT_EQ(model.pathAt(model.indexOf(path(name) + u'/')), path(name));
    }
    EXPECT_EQ(model.indexOf(scratch.path()), model.index(0, 0));
    for (const QString &name : {path("none"), path("a/none"), path("file"), QStringLiteral("/"), QString(),
                                scratch.path() + u'x', QStringLiteral("a")})
        EXPECT_FALSE(model.indexOf(name).isValid()) << qUtf8Printable(name);
}

TEST_F(FolderTreeModelTest, FindsWhatWasMadeLater)
{
    FolderTreeModel model(scratch.path(), foldersAlone);
    const QAbstractItemModelTester tester(&model);
    below(model, model.index(0, 0));
    scratch.addFolder("new");
    const QModelIndex place = model.indexOf(path("new"));
    EXPECT_EQ(model.pathAt(place), path("new"));
    EXPECT_EQ(model.parent(place), model.index(0, 0));
    EXPECT_EQ(below(model, model.index(0, 0)).last(), QStringLiteral("new"));
}

/// The home folder, and not the file system that it is in, which comes before it.
TEST_F(FolderTreeModelTest, TheNearestVolumeIsTaken)
{
    const ScratchHome home;
    const QString folder = home.file(QStringLiteral("inner"));
    ASSERT_TRUE(QDir().mkpath(folder));
    FolderTreeModel model({}, foldersAlone);
    const QModelIndex place = model.indexOf(folder);
    EXPECT_EQ(model.pathAt(place), folder);
    EXPECT_EQ(model.pathAt(place.parent()), home.path());
    EXPECT_FALSE(place.parent().parent().isValid());
}

TEST_F(FolderTreeModelTest, AFolderThatMayNotBeReadIsEmpty)
{
    std::filesystem::permissions(scratch.file("a").constData(), std::filesystem::perms::none);
    const AsUser user(scratch.path());
    FolderTreeModel model(scratch.path(), foldersAlone);
    EXPECT_EQ(below(model, model.index(0, 0)).size(), 2);
    EXPECT_EQ(below(model, model.index(0, 0, model.index(0, 0))), QStringList());
}

TEST_F(FolderTreeModelTest, AnyNameLeadsToItsFolder)
{
    for (const HostileName &name : HostileNames::files())
        scratch.addFolder(name.bytes);
    FolderTreeModel model(scratch.path(), foldersAlone);
    for (const HostileName &name : HostileNames::files()) {
        const QModelIndex place = model.indexOf(path(name.bytes));
        ASSERT_TRUE(place.isValid()) << name.what;
        EXPECT_EQ(model.pathAt(place), path(name.bytes)) << name.what;
        EXPECT_EQ(place.data().toString(), name.text()) << name.what;
    }
}
