#include "AsUser.h"
#include "Files.h"
#include "PrintQt.h"
#include "RuntimeError.h"
#include "ScratchHome.h"
#include "ScratchVariable.h"
#include "cRegistry.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

struct RegistryTest : testing::Test
{
    ScratchHome home;
    RegistryStore store;
    cRegistry registry;

    RegistryTest()
    {
        registry.SectionKey = QStringLiteral("SOFTWARE\\Brindlecode\\VBUnZip");
        registry.ValueKey = QStringLiteral("Item");
    }
    std::optional<RegistryValue> stored() const
    {
        return store.value(RegistryStore::Root::User, registry.SectionKey, registry.ValueKey);
    }
    void put(RegistryType type, const std::variant<QString, quint32, QByteArray> &data)
    {
        ASSERT_EQ(
            store.setValue(RegistryStore::Root::User, registry.SectionKey, registry.ValueKey, {type, data}),
            RegistryResult::Ok);
    }
    QVariant writtenAndRead(RegistryType type, const QVariant &value)
    {
        registry.ValueType = type;
        registry.setValue(value);
        return registry.Value();
    }
    static QString classText(const char *section)
    {
        cRegistry key;
        key.ClassKey = cRegistry::ClassesRoot;
        key.SectionKey = QString::fromUtf8(section);
        key.Default = QStringLiteral("none");
        return key.Value().toString();
    }
    static void expectFailure(const char *text, const std::function<void()> &step)
    {
        try {
            step();
            ADD_FAILURE() << "no error: " << text;
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.number(), 26001);
            EXPECT_EQ(error.description(), QString::fromUtf8(text));
            EXPECT_EQ(error.source(), QStringLiteral("QuillOfficeToolsv2.cRegistry"));
        }
    }
    void damageTheStore() const
    {
        QDir().mkpath(home.file(QStringLiteral(".config/QuillOfficeToolsv2")));
        Files::write(home.file(QStringLiteral(".config/QuillOfficeToolsv2/hkcu.json")), "garbage");
    }
};

} // namespace

TEST_F(RegistryTest, AnAbsentValueIsTheDefaultOfWhateverType)
{
    for (const QVariant &fallback : {QVariant(), QVariant(QStringLiteral("text")), QVariant(7),
                                     QVariant(QByteArray("\0x", 2)), QVariant(1.5)}) {
        registry.Default = fallback;
        EXPECT_EQ(registry.Value(), fallback);
        EXPECT_EQ(registry.Value().typeId(), fallback.typeId());
    }
    registry.CreateKey();
    registry.Default = 7;
    EXPECT_EQ(registry.Value(), QVariant(7));
}

TEST_F(RegistryTest, TwoPerCentSignsMakeATextExpandable)
{
    const ScratchVariable variable("QUILL_TEST", "/opt");
    const std::pair<const char *, RegistryType> cases[] = {
        {"plain", RegistryType::String},
        {"100 %", RegistryType::String},
        {"%QUILL_TEST%/a", RegistryType::ExpandableString},
        {"%%", RegistryType::ExpandableString},
        {"a % b % c %", RegistryType::ExpandableString},
        {"", RegistryType::String},
    };
    for (const auto &[text, type] : cases) {
        registry.setValue(QString::fromUtf8(text));
        EXPECT_EQ(*stored(), (RegistryValue{type, QString::fromUtf8(text)}));
    }
    EXPECT_EQ(writtenAndRead(RegistryType::String, QStringLiteral("%QUILL_TEST%/a")),
              QVariant(QStringLiteral("/opt/a")));
    EXPECT_EQ(writtenAndRead(RegistryType::ExpandableString, QStringLiteral("one")),
              QVariant(QStringLiteral("one")));
    EXPECT_EQ(stored()->type, RegistryType::ExpandableString);
}

TEST_F(RegistryTest, NumbersOf16And32BitsBecomeType4)
{
    for (const QVariant &number : {QVariant(-1), QVariant(2147483647), QVariant::fromValue(qint16(-7)),
                                   QVariant::fromValue(quint16(65535)), QVariant(0)}) {
        EXPECT_EQ(writtenAndRead(RegistryType::Number, number).toInt(), number.toInt());
        EXPECT_EQ(stored()->type, RegistryType::Number);
    }
    EXPECT_EQ(writtenAndRead(RegistryType::BigEndianNumber, 5), QVariant(5));
    EXPECT_EQ(stored()->type, RegistryType::Number);
    EXPECT_EQ(writtenAndRead(RegistryType::Number, 4294967295u), QVariant(-1));
}

TEST_F(RegistryTest, ABigEndianNumberIsSwapped)
{
    put(RegistryType::BigEndianNumber, 0x78563412u);
    EXPECT_EQ(registry.Value(), QVariant(0x12345678));
    put(RegistryType::BigEndianNumber, 0x000000FFu);
    EXPECT_EQ(registry.Value(), QVariant(qint32(0xFF000000)));
}

TEST_F(RegistryTest, OtherTypesAreBytes)
{
    const QByteArray bytes("a\0b\0\0", 5);
    for (const RegistryType type : {RegistryType::Binary, RegistryType::Link, RegistryType::MultiString}) {
        EXPECT_EQ(writtenAndRead(type, bytes), QVariant(bytes));
        EXPECT_EQ(stored()->type, type);
    }
}

TEST_F(RegistryTest, ATextIsCutBeforeItsNul)
{
    put(RegistryType::String, QStringLiteral("abc\0def"));
    EXPECT_EQ(registry.Value(), QVariant(QStringLiteral("abc")));
    put(RegistryType::ExpandableString, QStringLiteral("%QUILL\0%"));
    EXPECT_EQ(registry.Value(), QVariant(QStringLiteral("%QUILL")));
}

TEST_F(RegistryTest, ANumberMayBeWrittenAsText)
{
    EXPECT_EQ(writtenAndRead(RegistryType::String, -12), QVariant(QStringLiteral("-12")));
}

TEST_F(RegistryTest, AValueThatDoesNotFitItsTypeIsRefused)
{
    const QByteArray bytes("\1\xff", 2);
    const struct
    {
        RegistryType type;
        QVariant value;
        const char *shown;
    } cases[] = {
        {RegistryType::Binary, QStringLiteral("text"), "text"},
        {RegistryType::Binary, 5, "5"},
        {RegistryType::MultiString, QStringLiteral("text"), "text"},
        {RegistryType::Number, QStringLiteral("5"), "5"},
        {RegistryType::Number, 1.5, "1.5"},
        {RegistryType::Number, bytes, "01ff"},
        {RegistryType::String, bytes, "01ff"},
        {RegistryType(0), 5, "5"},
    };
    registry.setValue(QStringLiteral("before"));
    for (const auto &row : cases) {
        const QByteArray text = "Failed to set registry value Key: '-2147483647',Section: "
                                "'SOFTWARE\\Brindlecode\\VBUnZip',Key: 'Item' to value: '" +
                                QByteArray(row.shown) + "'";
        registry.ValueType = row.type;
        expectFailure(text.constData(), [&] { registry.setValue(row.value); });
    }
    EXPECT_EQ(registry.Value(), QVariant(QStringLiteral("before")));
}

TEST_F(RegistryTest, KeysAreMadeFoundAndDeleted)
{
    EXPECT_FALSE(registry.KeyExists());
    registry.CreateKey();
    EXPECT_TRUE(registry.KeyExists());
    registry.ClassKey = cRegistry::LocalMachine;
    EXPECT_FALSE(registry.KeyExists());
    registry.ClassKey = cRegistry::CurrentUser;
    registry.DeleteKey();
    EXPECT_FALSE(registry.KeyExists());
    registry.SectionKey = QStringLiteral("SOFTWARE");
    EXPECT_TRUE(registry.KeyExists());
}

TEST_F(RegistryTest, ValuesAreDeleted)
{
    registry.setValue(QStringLiteral("x"));
    registry.DeleteValue();
    EXPECT_FALSE(stored());
    EXPECT_TRUE(registry.KeyExists());
}

TEST_F(RegistryTest, WhatIsNotThereCannotBeDeleted)
{
    expectFailure("Failed to delete registry Key: '-2147483647',Section: 'SOFTWARE\\Brindlecode\\VBUnZip'",
                  [&] { registry.DeleteKey(); });
    expectFailure(
        "Failed to open key '-2147483647',Section: 'SOFTWARE\\Brindlecode\\VBUnZip' for delete access",
        [&] { registry.DeleteValue(); });
    registry.CreateKey();
    expectFailure("Failed to delete registry Key: '-2147483647',Section: "
                  "'SOFTWARE\\Brindlecode\\VBUnZip',Key: 'Item'",
                  [&] { registry.DeleteValue(); });
    registry.SectionKey = QStringLiteral("SOFTWARE");
    expectFailure("Failed to delete registry Key: '-2147483647',Section: 'SOFTWARE'",
                  [&] { registry.DeleteKey(); });
}

TEST_F(RegistryTest, ADamagedStoreReadsAsDefaultAndRefusesToBeWritten)
{
    damageTheStore();
    registry.Default = 3;
    EXPECT_EQ(registry.Value(), QVariant(3));
    EXPECT_FALSE(registry.KeyExists());
    expectFailure("Failed to create registry Key: 'SOFTWARE\\Brindlecode\\VBUnZip'",
                  [&] { registry.CreateKey(); });
    expectFailure("Failed to set registry value Key: '-2147483647',Section: "
                  "'SOFTWARE\\Brindlecode\\VBUnZip',Key: 'Item' to value: 'x'",
                  [&] { registry.setValue(QStringLiteral("x")); });
}

TEST_F(RegistryTest, TheMachinesPartNeedsRights)
{
    const AsUser user(home.path());
    RegistryStore::setMachineFolder(QStringLiteral("/var/lib/quill-office-tools-test"));
    cRegistry machine;
    machine.ClassKey = cRegistry::LocalMachine;
    machine.SectionKey = QStringLiteral("Software");
    expectFailure("Failed to create registry Key: 'Software'", [&] { machine.CreateKey(); });
    expectFailure("Failed to set registry value Key: '-2147483646',Section: 'Software',Key: '' to value: 'x'",
                  [&] { machine.setValue(QStringLiteral("x")); });
    EXPECT_FALSE(machine.KeyExists());
}

TEST_F(RegistryTest, AnUnknownRootHasNothing)
{
    registry.ClassKey = 0;
    EXPECT_FALSE(registry.KeyExists());
    expectFailure("Failed to create registry Key: 'SOFTWARE\\Brindlecode\\VBUnZip'",
                  [&] { registry.CreateKey(); });
}

TEST_F(RegistryTest, ListsValuesAndSections)
{
    QStringList names(QStringLiteral("left over"));
    int count = 5;
    EXPECT_FALSE(registry.EnumerateSections(names, count));
    EXPECT_TRUE(names.isEmpty());
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(registry.EnumerateValues(names, count));
    EXPECT_EQ(count, 0);

    registry.setValue(QStringLiteral("x"));
    registry.ValueKey.clear();
    registry.setValue(QStringLiteral("y"));
    EXPECT_TRUE(registry.EnumerateValues(names, count));
    EXPECT_EQ(names, QStringList({QStringLiteral("Item"), QString()}));
    EXPECT_EQ(count, 2);
    EXPECT_TRUE(registry.EnumerateSections(names, count));
    EXPECT_EQ(count, 0);
    registry.SectionKey = QStringLiteral("SOFTWARE");
    EXPECT_TRUE(registry.EnumerateSections(names, count));
    EXPECT_EQ(names, QStringList(QStringLiteral("Brindlecode")));
    EXPECT_EQ(count, 1);
}

TEST_F(RegistryTest, ASectionNameIsCutAtItsNul)
{
    ASSERT_EQ(store.createKey(RegistryStore::Root::User, QStringLiteral("k\\ab\0c")), RegistryResult::Ok);
    registry.SectionKey = QStringLiteral("k");
    QStringList names;
    int count = 0;
    EXPECT_TRUE(registry.EnumerateSections(names, count));
    EXPECT_EQ(names, QStringList(QStringLiteral("ab")));
}

TEST_F(RegistryTest, AnAssociationWritesAllKeys)
{
    registry.CreateEXEAssociation({.exePath = QStringLiteral("  /opt/quill  "),
                                   .className = QStringLiteral("Quill.Zip"),
                                   .description = QStringLiteral("Quill archive"),
                                   .extension = QStringLiteral("qzip"),
                                   .isPrint = true,
                                   .isAdd = true,
                                   .isNew = true,
                                   .defaultIcon = 0});
    EXPECT_EQ(classText(".qzip"), QStringLiteral("Quill.Zip"));
    EXPECT_EQ(classText("Quill.Zip"), QStringLiteral("Quill archive"));
    EXPECT_EQ(classText("Quill.Zip\\shell\\open"), QStringLiteral("&Open"));
    EXPECT_EQ(classText("Quill.Zip\\shell\\open\\command"), QStringLiteral("\"/opt/quill\" \"%1\""));
    EXPECT_EQ(classText("Quill.Zip\\shell\\print"), QStringLiteral("&Print"));
    EXPECT_EQ(classText("Quill.Zip\\shell\\print\\command"), QStringLiteral("\"/opt/quill\" /p \"%1\""));
    EXPECT_EQ(classText("Quill.Zip\\shell\\add"), QStringLiteral("&Install Quill archive"));
    EXPECT_EQ(classText("Quill.Zip\\shell\\add\\command"), QStringLiteral("\"/opt/quill\" /a \"%1\""));
    EXPECT_EQ(classText("Quill.Zip\\shell\\new"), QStringLiteral("&New"));
    EXPECT_EQ(classText("Quill.Zip\\shell\\new\\command"), QStringLiteral("\"/opt/quill\" /n \"%1\""));
    EXPECT_EQ(classText("Quill.Zip\\DefaultIcon"), QStringLiteral("\"/opt/quill\",0"));
    EXPECT_TRUE(
        QFile::exists(home.file(QStringLiteral(".local/share/applications/quill-quill.zip.desktop"))));
    EXPECT_EQ(registry.SectionKey, QStringLiteral("SOFTWARE\\Brindlecode\\VBUnZip"));
}

TEST_F(RegistryTest, AnAssociationWritesOnlyWhatWasAskedFor)
{
    registry.CreateEXEAssociation({.exePath = QStringLiteral("\"/opt/my quill\""),
                                   .className = QStringLiteral("Quill.Zip"),
                                   .description = QStringLiteral("Quill archive"),
                                   .extension = QStringLiteral("qzip"),
                                   .openText = QStringLiteral("&Unzip"),
                                   .printText = QStringLiteral("ignored")});
    EXPECT_EQ(classText("Quill.Zip\\shell\\open"), QStringLiteral("&Unzip"));
    EXPECT_EQ(classText("Quill.Zip\\shell\\open\\command"), QStringLiteral("\"/opt/my quill\" \"%1\""));
    for (const char *absent : {"Quill.Zip\\shell\\print", "Quill.Zip\\shell\\add", "Quill.Zip\\shell\\new",
                               "Quill.Zip\\DefaultIcon"})
        EXPECT_EQ(classText(absent), QStringLiteral("none")) << absent;
}

TEST_F(RegistryTest, TheCallersTextsReplaceTheUsualOnes)
{
    registry.CreateEXEAssociation({.exePath = QStringLiteral("/opt/quill"),
                                   .className = QStringLiteral("Q"),
                                   .description = QStringLiteral("D"),
                                   .extension = QStringLiteral("qzip"),
                                   .isPrint = true,
                                   .printText = QStringLiteral("P"),
                                   .isAdd = true,
                                   .addText = QStringLiteral("A"),
                                   .isNew = true,
                                   .newText = QStringLiteral("N")});
    EXPECT_EQ(classText("Q\\shell\\print"), QStringLiteral("P"));
    EXPECT_EQ(classText("Q\\shell\\add"), QStringLiteral("A"));
    EXPECT_EQ(classText("Q\\shell\\new"), QStringLiteral("N"));
}

TEST_F(RegistryTest, AdditionalCommandsAreTriples)
{
    registry.CreateAdditionalEXEAssociations(QStringLiteral("Q"),
                                             {QStringLiteral("mail"), QStringLiteral("&Mail"),
                                              QStringLiteral("/opt/mail \"%1\""), QStringLiteral("view"),
                                              QStringLiteral("&View"), QStringLiteral("/opt/view \"%1\"")});
    EXPECT_EQ(classText("Q\\shell\\mail"), QStringLiteral("&Mail"));
    EXPECT_EQ(classText("Q\\shell\\mail\\command"), QStringLiteral("/opt/mail \"%1\""));
    EXPECT_EQ(classText("Q\\shell\\view"), QStringLiteral("&View"));
    EXPECT_EQ(classText("Q\\shell\\view\\command"), QStringLiteral("/opt/view \"%1\""));
}

TEST_F(RegistryTest, AListThatIsNoTriplesWritesNothing)
{
    expectFailure(
        "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command", [&] {
            registry.CreateAdditionalEXEAssociations(QStringLiteral("Q"),
                                                     {QStringLiteral("mail"), QStringLiteral("&Mail"),
                                                      QStringLiteral("/opt/mail"), QStringLiteral("view")});
        });
    EXPECT_EQ(classText("Q\\shell\\mail"), QStringLiteral("none"));
}
