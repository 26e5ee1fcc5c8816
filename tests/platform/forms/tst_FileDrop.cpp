#include "DropFiles.h"
#include "EventGate.h"
#include "FileDrop.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

namespace {

struct FileDropTest : testing::Test
{
    ScratchFolder scratch;
    QWidget widget;
    QStringList dropped;
    int drops = 0;

    FileDropTest()
    {
        on(new FileDrop(widget), &FileDrop::Dropped, &widget, [this](const QStringList &paths) {
            dropped = paths;
            ++drops;
        });
        scratch.addFile("one.txt");
        scratch.addFile("two.txt");
        scratch.addFolder("folder");
    }
    QString path(const QByteArray &name) const { return QString::fromUtf8(scratch.file(name)); }
};

struct FileDropNameTest : FileDropTest, testing::WithParamInterface<HostileName>
{};

} // namespace

TEST_F(FileDropTest, FilesComeInTheirOrder)
{
    EXPECT_TRUE(dropFiles(widget, {scratch.file("two.txt"), scratch.file("one.txt")}));
    EXPECT_EQ(dropped, QStringList({path("two.txt"), path("one.txt")}));
    EXPECT_EQ(drops, 1);
}

TEST_F(FileDropTest, FoldersAndMissingFilesAreLeftOut)
{
    EXPECT_TRUE(dropFiles(widget, {scratch.file("folder"), scratch.file("one.txt"), scratch.file("none")}));
    EXPECT_EQ(dropped, QStringList(path("one.txt")));
    EXPECT_FALSE(dropFiles(widget, {scratch.file("folder"), scratch.file("none")}));
    EXPECT_EQ(drops, 1);
}

TEST_F(FileDropTest, WhatIsNotOnThisComputerIsRefused)
{
    EXPECT_FALSE(dropUris(widget, {"http://127.0.0.1:9/one.txt", "mailto:a@b"}));
    EXPECT_FALSE(dropUris(widget, {}));
    EXPECT_EQ(drops, 0);
}

TEST_F(FileDropTest, TheDropComesWhenTheDragIsOver)
{
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), "file://" + scratch.file("one.txt"));
    QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    QDropEvent drop({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &drop);
    EXPECT_EQ(drops, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(drops, 1);
}

TEST_P(FileDropNameTest, AnyNameArrives)
{
    scratch.addFile(GetParam().bytes);
    EXPECT_TRUE(dropFiles(widget, {scratch.file(GetParam().bytes)}));
    EXPECT_EQ(dropped, QStringList(path("") + GetParam().text()));
}

INSTANTIATE_TEST_SUITE_P(Names, FileDropNameTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
