#include "ErrorNumberOf.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchHome.h"
#include "cMRU.h"
#include "cRegistry.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <vector>

namespace {

QStringList itemsOf(const cMRU &list)
{
    QStringList items;
    for (int i = 1; i <= list.Count(); ++i)
        items << list.item(i);
    return items;
}

cMRU listOf(const QString &items)
{
    cMRU list;
    for (const QString &item : items.split(u' ', Qt::SkipEmptyParts))
        list.Add(item);
    return list;
}

QString text(int number)
{
    return QStringLiteral("/home/a %1.zip").arg(number);
}

struct MruStorageTest : testing::Test
{
    ScratchHome home;
    cRegistry registry;

    MruStorageTest() { registry.SectionKey = QStringLiteral("SOFTWARE\\Brindlecode\\VBUnZip\\FileOpenMRU"); }

    void put(const char *name, const QVariant &value)
    {
        registry.ValueKey = QString::fromLatin1(name);
        registry.ValueType = value.typeId() == QMetaType::Int ? RegistryType::Number : RegistryType::String;
        registry.setValue(value);
    }
    QVariant stored(const char *name)
    {
        registry.ValueKey = QString::fromLatin1(name);
        return registry.Value();
    }
};

} // namespace

TEST(cMRU, IsEmptyAtFirstWithRoomFor16)
{
    const cMRU list;
    EXPECT_EQ(list.MaxCount(), 16);
    EXPECT_EQ(list.Count(), 0);
}

TEST(cMRU, TheNewestItemIsTheFirst)
{
    EXPECT_EQ(itemsOf(listOf(QStringLiteral("a b c"))).join(u' '), QStringLiteral("c b a"));
}

TEST(cMRU, AddingAgainMovesToTheTop)
{
    EXPECT_EQ(itemsOf(listOf(QStringLiteral("a b c a"))).join(u' '), QStringLiteral("a c b"));
    EXPECT_EQ(itemsOf(listOf(QStringLiteral("a b c b"))).join(u' '), QStringLiteral("b c a"));
}

TEST(cMRU, AddingTheNewestAgainChangesNothing)
{
    EXPECT_EQ(itemsOf(listOf(QStringLiteral("a b c c"))).join(u' '), QStringLiteral("c b a"));
}

TEST(cMRU, TextsThatDifferInCaseAreDistinct)
{
    EXPECT_EQ(itemsOf(listOf(QStringLiteral("a A"))).join(u' '), QStringLiteral("A a"));
}

TEST(cMRU, The17thTextDropsTheOldest)
{
    cMRU list;
    for (int i = 1; i <= 17; ++i)
        list.Add(text(i));
    EXPECT_EQ(list.Count(), 16);
    EXPECT_EQ(list.item(1), text(17));
    EXPECT_EQ(list.item(16), text(2));
}

TEST(cMRU, ALowerMaxCountDropsTheOldestForGood)
{
    cMRU list = listOf(QStringLiteral("a b c d"));
    list.setMaxCount(2);
    EXPECT_EQ(list.Count(), 2);
    list.setMaxCount(4);
    EXPECT_EQ(itemsOf(list).join(u' '), QStringLiteral("d c"));
}

TEST(cMRU, BelowOneNothingIsKept)
{
    for (const int count : {0, -3}) {
        cMRU list = listOf(QStringLiteral("a b"));
        list.setMaxCount(count);
        EXPECT_EQ(list.Count(), 0);
        list.Add(QStringLiteral("c"));
        EXPECT_EQ(list.Count(), 0);
    }
}

TEST(cMRU, AnIndexOutsideIsAnError)
{
    const cMRU list = listOf(QStringLiteral("a b"));
    for (const int index : {-1, 0, 3})
        EXPECT_EQ(errorNumberOf([&] { list.item(index); }), 9);
    EXPECT_EQ(errorNumberOf([] { cMRU().item(1); }), 9);
}

TEST(cMRU, AgreesWithASimpleModel)
{
    QRandomGenerator random(11);
    cMRU list;
    std::vector<QString> model; // the oldest first
    for (int step = 0; step < 20000; ++step) {
        if (random.bounded(50) == 0)
            list.setMaxCount(random.bounded(12));
        const QString item = text(random.bounded(20));
        list.Add(item);
        std::erase(model, item);
        model.push_back(item);
        while (int(model.size()) > list.MaxCount())
            model.erase(model.begin());
        ASSERT_EQ(itemsOf(list), QStringList(model.rbegin(), model.rend())) << "step " << step;
    }
}

TEST_F(MruStorageTest, ComesBackAsItWasStored)
{
    cMRU list = listOf(QStringLiteral("a %b %c d"));
    list.setMaxCount(7);
    list.Serialise(registry);
    cMRU other = listOf(QStringLiteral("x y z"));
    other.DeSerialise(registry);
    EXPECT_EQ(other.MaxCount(), 7);
    EXPECT_EQ(itemsOf(other), itemsOf(list));
}

TEST_F(MruStorageTest, AnyNameComesBack)
{
    cMRU list;
    for (const HostileName &name : HostileNames::texts())
        list.Add(u'/' + name.text());
    list.Serialise(registry);
    cMRU other;
    other.DeSerialise(registry);
    EXPECT_EQ(itemsOf(other), itemsOf(list));
    EXPECT_EQ(other.Count(), HostileNames::texts().size());
}

TEST_F(MruStorageTest, TheNumbersAndItemsHaveTheirNames)
{
    listOf(QStringLiteral("a b")).Serialise(registry);
    EXPECT_EQ(stored("MaxCount"), QVariant(16));
    EXPECT_EQ(stored("Count"), QVariant(2));
    EXPECT_EQ(stored("Item1"), QVariant(QStringLiteral("b")));
    EXPECT_EQ(stored("Item2"), QVariant(QStringLiteral("a")));
    QStringList names;
    int count = 0;
    EXPECT_TRUE(registry.EnumerateValues(names, count));
    EXPECT_EQ(count, 4);
}

TEST_F(MruStorageTest, TheCallersRegistryStaysAsItWas)
{
    registry.ValueKey = QStringLiteral("mine");
    registry.Default = QStringLiteral("own");
    cMRU list = listOf(QStringLiteral("a"));
    list.Serialise(registry);
    list.DeSerialise(registry);
    EXPECT_EQ(registry.ValueKey, QStringLiteral("mine"));
    EXPECT_EQ(registry.Value(), QVariant(QStringLiteral("own")));
}

TEST_F(MruStorageTest, AnAbsentSectionKeepsMaxCountAndEmptiesTheList)
{
    cMRU list = listOf(QStringLiteral("a b"));
    list.setMaxCount(5);
    list.DeSerialise(registry);
    EXPECT_EQ(list.MaxCount(), 5);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(MruStorageTest, ACountAboveMaxCountIsCut)
{
    listOf(QStringLiteral("a b c d")).Serialise(registry);
    put("MaxCount", 3);
    put("Count", 4);
    cMRU list;
    list.DeSerialise(registry);
    EXPECT_EQ(itemsOf(list).join(u' '), QStringLiteral("d c b"));
}

TEST_F(MruStorageTest, AMaxCountBelow1Reads16)
{
    for (const int stored : {0, -1}) {
        put("MaxCount", stored);
        cMRU list;
        list.setMaxCount(3);
        list.DeSerialise(registry);
        EXPECT_EQ(list.MaxCount(), 16);
    }
}

TEST_F(MruStorageTest, AMissingItemIsAnEmptyText)
{
    put("Count", 3);
    put("Item2", QStringLiteral("two"));
    cMRU list;
    list.DeSerialise(registry);
    EXPECT_EQ(itemsOf(list), QStringList({QString(), QStringLiteral("two"), QString()}));
}

TEST_F(MruStorageTest, DamagedNumbersAreHarmless)
{
    put("MaxCount", QStringLiteral("many"));
    put("Count", QStringLiteral("some"));
    cMRU list = listOf(QStringLiteral("a"));
    list.DeSerialise(registry);
    EXPECT_EQ(list.MaxCount(), 16);
    EXPECT_EQ(list.Count(), 0);

    put("MaxCount", 2147483647);
    put("Count", 2147483647);
    list.DeSerialise(registry);
    EXPECT_EQ(list.MaxCount(), 2147483647);
    EXPECT_EQ(list.Count(), 1000);

    put("Count", -5);
    list.DeSerialise(registry);
    EXPECT_EQ(list.Count(), 0);
}
