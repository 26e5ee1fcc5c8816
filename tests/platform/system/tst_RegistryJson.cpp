#include "PrintQt.h"
#include "RegistryJson.h"

#include <gtest/gtest.h>

namespace {

struct BadFile
{
    const char *name;
    const char *bytes;
};

struct BadRegistryFileTest : testing::TestWithParam<BadFile>
{};

} // namespace

TEST_P(BadRegistryFileTest, IsRefusedWhole)
{
    EXPECT_FALSE(RegistryJson::fromBytes(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(
    Faults, BadRegistryFileTest,
    testing::Values(BadFile{"Empty", ""}, BadFile{"List", "[]"}, BadFile{"Cut", "{\"keys\": ["},
                    BadFile{"ValuesAreNoList", R"({"values": {}})"},
                    BadFile{"KeysAreNoList", R"({"keys": 1})"},
                    BadFile{"KeyWithoutName", R"({"keys": [{}]})"},
                    BadFile{"KeyWithEmptyName", R"({"keys": [{"name": ""}]})"},
                    BadFile{"KeyIsNoObject", R"({"keys": ["a"]})"},
                    BadFile{"ValueWithoutName", R"({"values": [{"t": 1, "s": "x"}]})"},
                    BadFile{"TypeOutside", R"({"values": [{"n": "v", "t": 8, "s": "x"}]})"},
                    BadFile{"NoType", R"({"values": [{"n": "v", "s": "x"}]})"},
                    BadFile{"TextForNumber", R"({"values": [{"n": "v", "t": 4, "s": "x"}]})"},
                    BadFile{"NumberForText", R"({"values": [{"n": "v", "t": 1, "d": 1}]})"},
                    BadFile{"NumberTooLarge", R"({"values": [{"n": "v", "t": 4, "d": 4294967296}]})"},
                    BadFile{"NumberNegative", R"({"values": [{"n": "v", "t": 4, "d": -1}]})"},
                    BadFile{"NumberBroken", R"({"values": [{"n": "v", "t": 5, "d": 1.5}]})"},
                    BadFile{"BytesNotHexadecimal", R"({"values": [{"n": "v", "t": 3, "b": "0g"}]})"},
                    BadFile{"HalfAByte", R"({"values": [{"n": "v", "t": 7, "b": "012"}]})"}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(RegistryJson, ReadsAFileWrittenByHand)
{
    const auto root = RegistryJson::fromBytes(R"({"keys": [{"name": "Software", "values": [
        {"n": "", "t": 1, "s": "text"}, {"n": "b", "t": 3, "b": "00FF"}, {"n": "d", "t": 4, "d": 4294967295}]}]})");
    ASSERT_TRUE(root);
    const RegistryKey *key = root->find({QStringLiteral("software")});
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(*key->value({}), (RegistryValue{RegistryType::String, QStringLiteral("text")}));
    EXPECT_EQ(*key->value(QStringLiteral("B")),
              (RegistryValue{RegistryType::Binary, QByteArray("\0\xff", 2)}));
    EXPECT_EQ(*key->value(QStringLiteral("d")), (RegistryValue{RegistryType::Number, 0xFFFFFFFFu}));
}

TEST(RegistryJson, TooDeepAFileIsRefusedAndHarmless)
{
    EXPECT_FALSE(RegistryJson::fromBytes(QByteArray("{\"keys\": [").repeated(100000)));
}

TEST(RegistryJson, TheSameTreeGivesTheSameBytes)
{
    RegistryKey root;
    root.make({QStringLiteral("b"), QStringLiteral("c")});
    root.make({QStringLiteral("a")}).setValue(QStringLiteral("v"), {RegistryType::Number, 7u});
    const QByteArray bytes = RegistryJson::toBytes(root);
    const auto again = RegistryJson::fromBytes(bytes);
    ASSERT_TRUE(again);
    EXPECT_EQ(RegistryJson::toBytes(*again), bytes);
}
