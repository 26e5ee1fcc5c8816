#include "PrintQt.h"
#include "RegistryStore.h"
#include "ScratchHome.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

using Root = RegistryStore::Root;

struct RegistryStoreTest : testing::Test
{
    ScratchHome home;
    RegistryStore store;
    QString section = QStringLiteral("Software\\Quill");

    static RegistryValue text(const char *words) { return {RegistryType::String, QString::fromUtf8(words)}; }
    void set(Root root, const char *key, const char *name, const RegistryValue &value)
    {
        EXPECT_EQ(store.setValue(root, QString::fromUtf8(key), QString::fromUtf8(name), value),
                  RegistryResult::Ok);
    }
    QString textAt(Root root, const char *key, const char *name) const
    {
        const auto found = store.value(root, QString::fromUtf8(key), QString::fromUtf8(name));
        return found ? std::get<QString>(found->data) : QStringLiteral("none");
    }
};

QString nested(int levels)
{
    return QStringList(levels, QStringLiteral("k")).join(u'\\');
}

} // namespace

TEST_F(RegistryStoreTest, KeepsEachTypeBesideItsData)
{
    const QByteArray bytes("\0\1\xff", 3);
    const QList<RegistryValue> values = {
        {RegistryType::String, QStringLiteral("caf\u00e9 \U0001F600 \"\\ \n")},
        {RegistryType::ExpandableString, QStringLiteral("%HOME%")},
        {RegistryType::Binary, bytes},
        {RegistryType::Number, 0xFFFFFFFFu},
        {RegistryType::BigEndianNumber, 0x78563412u},
        {RegistryType::Link, QByteArray("x")},
        {RegistryType::MultiString, QByteArray("a\0b\0\0", 5)},
    };
    for (const RegistryValue &value : values) {
        EXPECT_EQ(store.setValue(Root::User, section, QStringLiteral("v"), value), RegistryResult::Ok);
        EXPECT_EQ(RegistryStore().value(Root::User, section, QStringLiteral("v")), value);
    }
}

TEST_F(RegistryStoreTest, EveryTextSurvives)
{
    for (const QString &words : {QString(), QStringLiteral("a\0b"), QString(QChar(0xD800)),
                                 QString(QChar(0xFFFF)), QString(100000, u'x')}) {
        const RegistryValue value = {RegistryType::String, words};
        EXPECT_EQ(store.setValue(Root::User, words.left(200), words, value), RegistryResult::Ok);
        EXPECT_EQ(store.value(Root::User, words.left(200), words), value);
    }
}

TEST_F(RegistryStoreTest, NamesGoWithoutCaseAndStayAsFirstWritten)
{
    set(Root::User, "Software\\Quill", "Zeta", text("1"));
    set(Root::User, "SOFTWARE\\quill", "ZETA", text("2"));
    EXPECT_EQ(textAt(Root::User, "software\\QUILL", "zeta"), QStringLiteral("2"));
    EXPECT_EQ(store.sectionNames(Root::User, {}), QStringList(QStringLiteral("Software")));
    EXPECT_EQ(store.valueNames(Root::User, section), QStringList(QStringLiteral("Zeta")));
}

TEST_F(RegistryStoreTest, ValuesStayInOrderAndKeysAreSorted)
{
    for (const char *name : {"Zeta", "alpha", "", "Mu"})
        set(Root::User, "k", name, text("x"));
    for (const char *key : {"k\\b", "k\\C", "k\\a"})
        set(Root::User, key, "", text("x"));
    EXPECT_EQ(
        store.valueNames(Root::User, QStringLiteral("k")),
        QStringList({QStringLiteral("Zeta"), QStringLiteral("alpha"), QString(), QStringLiteral("Mu")}));
    EXPECT_EQ(store.sectionNames(Root::User, QStringLiteral("k")),
              QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("C")}));
}

TEST_F(RegistryStoreTest, TheRootsAreSeparate)
{
    set(Root::User, "k", "v", text("user"));
    set(Root::Machine, "k", "v", text("machine"));
    EXPECT_EQ(textAt(Root::User, "k", "v"), QStringLiteral("user"));
    EXPECT_EQ(textAt(Root::Machine, "k", "v"), QStringLiteral("machine"));
    EXPECT_TRUE(QFile::exists(home.file(QStringLiteral(".config/QuillOfficeToolsv2/hkcu.json"))));
    EXPECT_TRUE(QFile::exists(home.file(QStringLiteral("machine/hklm.json"))));
}

TEST_F(RegistryStoreTest, TheClassesAreTheUsersOverTheMachines)
{
    set(Root::Machine, "Software\\Classes\\.zip", "", text("Machine.Zip"));
    set(Root::Machine, "Software\\Classes\\.zip", "kind", text("archive"));
    set(Root::Machine, "Software\\Classes\\.arc", "", text("Machine.Arc"));
    set(Root::Classes, ".ZIP", "", text("User.Zip"));
    set(Root::Classes, ".bz", "", text("User.Bz"));

    EXPECT_EQ(textAt(Root::Classes, ".zip", ""), QStringLiteral("User.Zip"));
    EXPECT_EQ(textAt(Root::Classes, ".zip", "kind"), QStringLiteral("archive"));
    EXPECT_EQ(textAt(Root::User, "Software\\Classes\\.zip", ""), QStringLiteral("User.Zip"));
    EXPECT_EQ(textAt(Root::Machine, "Software\\Classes\\.zip", ""), QStringLiteral("Machine.Zip"));
    EXPECT_EQ(store.sectionNames(Root::Classes, {}),
              QStringList({QStringLiteral(".arc"), QStringLiteral(".bz"), QStringLiteral(".ZIP")}));
    EXPECT_EQ(store.valueNames(Root::Classes, QStringLiteral(".zip")),
              QStringList({QString(), QStringLiteral("kind")}));
    EXPECT_EQ(store.deleteKey(Root::Classes, QStringLiteral(".arc")), RegistryResult::Absent);
}

TEST_F(RegistryStoreTest, WhatIsNotThereIsAbsent)
{
    set(Root::User, "k", "v", text("x"));
    EXPECT_FALSE(store.keyExists(Root::User, QStringLiteral("other")));
    EXPECT_FALSE(store.value(Root::User, QStringLiteral("k"), QStringLiteral("w")));
    EXPECT_FALSE(store.valueNames(Root::User, QStringLiteral("k\\below")));
    EXPECT_FALSE(store.sectionNames(Root::User, QStringLiteral("other")));
    EXPECT_EQ(store.deleteKey(Root::User, QStringLiteral("other")), RegistryResult::Absent);
    EXPECT_EQ(store.deleteValue(Root::User, QStringLiteral("k"), QStringLiteral("w")),
              RegistryResult::Absent);
    EXPECT_EQ(store.createKey(Root(0x80000003), section), RegistryResult::Absent);
    EXPECT_FALSE(store.keyExists(Root(0x80000003), {}));
}

TEST_F(RegistryStoreTest, DeletesOnlyWhatWasAskedFor)
{
    set(Root::User, "k\\below", "v", text("x"));
    set(Root::User, "k", "v", text("x"));
    set(Root::User, "k", "w", text("x"));
    EXPECT_EQ(store.deleteKey(Root::User, QStringLiteral("K")), RegistryResult::NoRights);
    EXPECT_EQ(store.deleteValue(Root::User, QStringLiteral("K"), QStringLiteral("V")), RegistryResult::Ok);
    EXPECT_EQ(store.valueNames(Root::User, QStringLiteral("k")), QStringList(QStringLiteral("w")));
    EXPECT_EQ(store.deleteKey(Root::User, QStringLiteral("K\\BELOW")), RegistryResult::Ok);
    EXPECT_EQ(store.deleteKey(Root::User, QStringLiteral("K")), RegistryResult::Ok);
    EXPECT_FALSE(store.keyExists(Root::User, QStringLiteral("k")));
}

TEST_F(RegistryStoreTest, ARootIsAKeyThatStays)
{
    EXPECT_EQ(store.createKey(Root::User, {}), RegistryResult::Ok);
    EXPECT_TRUE(store.keyExists(Root::User, {}));
    EXPECT_EQ(store.deleteKey(Root::User, {}), RegistryResult::NoRights);
}

TEST_F(RegistryStoreTest, NamesAndDepthHaveTheirLimits)
{
    EXPECT_EQ(store.createKey(Root::User, nested(255)), RegistryResult::Ok);
    EXPECT_EQ(store.createKey(Root::User, QString(255, u'n')), RegistryResult::Ok);
    EXPECT_EQ(store.createKey(Root::User, nested(256)), RegistryResult::InvalidPath);
    EXPECT_EQ(store.createKey(Root::User, QString(256, u'n')), RegistryResult::InvalidPath);
    set(Root::User, qPrintable(nested(255)), "v", text("deep"));
    EXPECT_EQ(textAt(Root::User, qPrintable(nested(255)), "v"), QStringLiteral("deep"));
}
