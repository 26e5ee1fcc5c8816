#include "ReadDocument.h"

#include <gtest/gtest.h>

namespace {

const QByteArray &sample()
{
    static const QByteArray rtf = framed(
        "{\\stylesheet{\\s1\\b\\fs32\\li300 A;}{\\*\\cs2\\i B;}}"
        "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}}"
        "\\listid7}}"
        "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}"
        "\\pard\\s1 Alpha\\par\\pard\\plain\\f1\\tx720 caf\\'e9 \\u8364\\'80 {\\b bold}{\\*\\unknown{x}}\\par"
        "{\\listtext 1.\\tab}\\ls1 one\\par\\pard{\\*\\pn\\pnlvlblt{\\pntxtb *}}two\\par\\pard"
        "\\trowd\\trgaph70\\clbrdrt\\brdrs\\cellx1000\\clvmgf\\cellx2000\\intbl A\\cell B\\cell\\row"
        "\\trowd\\cellx1500\\clvmrg\\cellx2000\\intbl C\\par\\itap2 D\\nestcell"
        "{\\*\\nesttableprops\\trowd\\cellx500\\nestrow}\\pard\\intbl E\\cell F\\cell\\row\\pard"
        "{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt link}}note{\\footnote text}"
        "{\\*\\shppict{\\pict\\pngblip\\picw1\\pich1\\bin4 }{\\\\ff}}{\\nonshppict{\\pict\\wmetafile8 00}}"
        "{\\shp{\\*\\shpinst{\\sp{\\sn a}{\\sv 1}}{\\shptxt box\\par}}}{\\upr{u}{\\*\\ud v}}end\\par");
    return rtf;
}

TEST(RtfReaderDamage, CutAnywhere)
{
    for (qsizetype length = 0; length < sample().size(); ++length) {
        ReadDocument read(sample().first(length));
        const QString text = read.document().toRawText();
        EXPECT_FALSE(text.contains(QStringLiteral("levelnfc"))) << length;
        if (length > sample().indexOf("Alpha") + 5) {
            EXPECT_TRUE(text.startsWith(QStringLiteral("Alpha"))) << length;
        }
    }
}

TEST(RtfReaderDamage, AnyByteGone)
{
    for (qsizetype place = 0; place < sample().size(); ++place) {
        QByteArray rtf = sample();
        rtf.remove(place, 1);
        EXPECT_LT(textOf(rtf).size(), size_t(rtf.size())) << place;
    }
}

TEST(RtfReaderDamage, AnyByteAnother)
{
    for (const char other : {'{', '}', '\\', '\0', '9', '\xff'}) {
        for (qsizetype place = 0; place < sample().size(); ++place) {
            QByteArray rtf = sample();
            rtf[place] = other;
            EXPECT_LT(textOf(rtf).size(), size_t(rtf.size())) << place;
        }
    }
}

TEST(RtfReaderDamage, DeepGroups)
{
    for (const int depth : {5000, 1000000}) {
        const QByteArray open = QByteArray("{").repeated(depth);
        const QByteArray close = QByteArray("}").repeated(depth);
        EXPECT_EQ(textOf(framed("a" + open + "b" + close + "c\\par")), "abc");
        EXPECT_EQ(textOf(framed("a" + open + "b")), "ab");
        EXPECT_EQ(textOf(framed("a{\\*\\x" + open + "b" + close + "}c")), "ac");
    }
}

TEST(RtfReaderDamage, DeepDestinations)
{
    constexpr int depth = 40000;
    EXPECT_EQ(textOf(framed(QByteArray("{\\field{\\fldrslt ").repeated(depth) + "a")), "a");
    EXPECT_EQ(textOf(framed(QByteArray("{\\fonttbl").repeated(depth))), "");
    EXPECT_EQ(textOf(framed("a" + QByteArray("{\\shptxt ").repeated(depth) + "b")), "a|b");
    ReadDocument notes(framed(QByteArray("{\\footnote a").repeated(1000)));
    EXPECT_GT(notes.document().toRawText().count(u'a'), 900);
}

struct DamageRow
{
    const char *name;
    QByteArray rtf;
    const char *text;
};

void PrintTo(const DamageRow &row, std::ostream *out)
{
    *out << row.name;
}

class RtfReaderOddities : public testing::TestWithParam<DamageRow>
{};

TEST_P(RtfReaderOddities, Reads)
{
    EXPECT_EQ(textOf(GetParam().rtf), GetParam().text);
}

const DamageRow damageRows[] = {
    {"Nothing", "", ""},
    {"OnlyBraces", "{}", ""},
    {"StrayBraces", "}}{\\rtf1 a}}}b", ""},
    {"BracesBehind", "{\\rtf1 a}}}b", "a"},
    {"NoGroup", "\\rtf1 a", ""},
    {"LoneBackslash", "{\\rtf1 a\\", "a"},
    {"HalfByte", "{\\rtf1 a\\'e", "ae"},
    {"Nuls", QByteArray("{\\rtf1 a\0b\\'00c}", 16), "abc"},
    {"LongBinary", "{\\rtf1 a{\\pict\\bin999999999 abc}}", "a\uFFFC"},
    {"NegativeBinary", "{\\rtf1 a{\\pict\\bin-5 }b}", "ab"},
    {"LongNumbers", "{\\rtf1\\li99999999999999999999999 a\\fs-999999999999999999999 b}", "ab"},
    {"NumberOfNothing", "{\\rtf1 a\\fs- b}", "a- b"},
    {"PairWithoutSecond", "{\\rtf1{\\upr{a}}b}", "b"},
    {"ResultWithoutField", "{\\rtf1{\\fldrslt a}{\\*\\fldinst HYPERLINK x}b}", "ab"},
    {"FontsBehindHalfACharacter", "{\\rtf1\\ansi\\ansicpg932 \\'82{\\fonttbl{\\f0\\fcharset204 A;}}\\'cf}",
     "\uFFFD\u041F"},
    {"PageBehindHalfACharacter", "{\\rtf1\\ansi\\ansicpg932 \\'82\\ansicpg1251 \\'cf}", "\uFFFD\u041F"},
    {"DefaultFontBehindHalfACharacter", "{\\rtf1\\ansi\\ansicpg932 \\'82\\deff3 a}", "\uFFFDa"},
    {"NestedTablesWithoutTable", "{\\rtf1\\itap999999 a\\par\\pard b}", "a|b"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RtfReaderOddities, testing::ValuesIn(damageRows),
                         [](const auto &row) { return row.param.name; });

TEST(RtfReaderDamage, ManyWordsOfOneKind)
{
    constexpr int count = 300000;
    EXPECT_EQ(textOf(framed("\\trowd" + QByteArray("\\cellx1000000000").repeated(count) + "\\pard a")), "a");
    EXPECT_EQ(textOf(framed("\\pard" + QByteArray("\\tx700").repeated(count) + " a")), "a");
    EXPECT_EQ(textOf(framed("{\\fonttbl" + QByteArray("{\\f0 A;}").repeated(count) + "}\\f0 a")), "a");
    EXPECT_EQ(textOf(framed("{\\colortbl" + QByteArray("\\red1;").repeated(count) + "}\\cf299999 a")), "a");
}

/// A program of old keeps these numbers in 16 bits.
TEST(RtfReaderDamage, ManyFonts)
{
    constexpr int last = 32760;
    QByteArray table = "{\\fonttbl";
    for (int number = 0; number < last; ++number)
        table += "{\\f" + QByteArray::number(number) + " A;}";
    table += "{\\f" + QByteArray::number(last) + "\\fcharset204 B;}}";
    EXPECT_EQ(textOf(framed(table + "\\f32760 \\'cf\\f0 \\'e9\\f32761 a\\f-1 b")), "\u041F\u00E9ab");
}

} // namespace
