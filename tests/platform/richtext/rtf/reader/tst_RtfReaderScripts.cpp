#include "ReadDocument.h"

#include <gtest/gtest.h>

namespace {

/// Two more fonts, A for East Asian text and C for complex scripts, and the start of a paragraph as word
/// processors write it: a look for each script.
QByteArray scripted(const QByteArray &body)
{
    return framed(
        "{\\fonttbl{\\f0 Serif;}{\\f1 Sans;}{\\f2 A;}{\\f3 C;}}"
        "\\pard\\plain \\s0\\rtlch\\af3\\afs30\\alang1081 \\ltrch\\lang1033\\langfe2052\\hich\\af1\\loch"
        "\\nowidctlpar\\f0\\fs24\\lang1033\\kerning1\\dbch\\af2\\langfe2052\\ql\\ltrpar" +
        body + "\n\\par ");
}

std::string lookOf(const ReadDocument &read, const char16_t *text)
{
    const QTextCharFormat format = read.formatOf(QString::fromUtf16(text));
    QString look =
        format.fontFamilies().toStringList().join(u',') + u' ' + QString::number(format.fontPointSize());
    if (format.fontWeight() >= QFont::Bold)
        look += QStringLiteral(" bold");
    if (format.fontItalic())
        look += QStringLiteral(" italic");
    if (format.fontStrikeOut())
        look += QStringLiteral(" strike");
    if (format.fontUnderline())
        look += QStringLiteral(" line");
    if (format.foreground().style() != Qt::NoBrush)
        look += u' ' + format.foreground().color().name();
    return look.toStdString();
}

struct ScriptTextRow
{
    const char *name;
    const char *body;
    const char16_t *text; ///< what is looked at
    const char *look;
};

void PrintTo(const ScriptTextRow &row, std::ostream *out)
{
    *out << row.body;
}

class RtfReaderScripts : public testing::TestWithParam<ScriptTextRow>
{};

TEST_P(RtfReaderScripts, Reads)
{
    ReadDocument read(scripted(GetParam().body));
    EXPECT_EQ(lookOf(read, GetParam().text), GetParam().look);
}

const char *const latin =
    "{\\rtlch\\af3\\afs32\\ab \\ltrch\\hich\\af1\\loch\\fs20\\i\\f1\\dbch\\af2\\loch\nlat }";
const char *const japanese = "{\\rtlch\\af3\\afs32 \\ltrch\\hich\\af1\\loch\\f1\\dbch\\afs36\\ab\\af2\\dbch\n"
                             "\\u26085\\'3f\\u26412\\'3f \\u8220\\'93}";
const char *const hebrew = "{\\ltrch \\rtlch\\afs36\\ab\\ai\\af1\n\\u1513\\'3f\\u1500\\'3f }";
const char *const thai = "{\\rtlch\\afs36\\ab\\af3 \\ltrch\\hich\\af1\\loch\\f1\\fs20\\dbch\\af2\\afs22\n"
                         "\\u3585\\'3f x}";
const char *const oldJapanese = "{\\fs21\\loch\\af0\\hich\\af0\\dbch\\f1 \\u26085\\'3f}";
const char *const rightToLeft = "{\\ltrch\\fcs0 \\af0\\afs20 \\rtlch\\fcs1 \\f1\\fs36\\b \\u1513?, 12}";

const ScriptTextRow scriptTextRows[] = {
    {"Latin", latin, u"lat", "Sans 10 italic"},
    {"EastAsian", japanese, u"\u65E5", "A 18 bold"},
    {"BlankInEastAsian", japanese, u" ", "A 18 bold"},
    {"SignInEastAsian", japanese, u"\u201C", "A 18 bold"},
    {"EastAsianItalic", "{\\hich\\af1\\loch\\f1\\dbch\\afs36\\i\\dbch\n\\u26085?}", u"\u65E5", "A 18 italic"},
    {"EastAsianBoldOff", "\\b{\\dbch\\ab0\\dbch \\u26085?}", u"\u65E5", "A 12"},
    {"PlainWordsBehindTheMark", oldJapanese, u"\u65E5", "Sans 10.5"},
    {"RightToLeft", hebrew, u"\u05E9", "Sans 18 bold italic"},
    {"BlankInRightToLeft", hebrew, u" ", "Sans 18 bold italic"},
    {"LatinMarkInRightToLeft", "{\\ltrch \\rtlch\\af1\\afs32\\ab\\loch\n, }", u",", "Sans 16 bold"},
    {"RightToLeftUnmarked", "{\n\\u1513\\'3f}", u"\u05E9", "C 15"},
    {"PlainWordsRightToLeft", rightToLeft, u"\u05E9", "Sans 18 bold"},
    {"DigitsRightToLeft", rightToLeft, u"12", "Sans 18 bold"},
    {"ComplexLeftToRight", thai, u"\u0E01", "C 18 bold"},
    {"LatinBesideComplex", thai, u"x", "Sans 10"},
    {"UnmarkedIsLatin", " x", u"x", "Serif 12"},
    {"PlainEndsIt", "\\rtlch\\af1\\ab\\plain \\u1513?", u"\u05E9", "Serif 12"},
    {"GroupEndsIt", "{\\dbch\\afs36\\dbch \\u26085?}x", u"x", "Serif 12"},
    {"Lines", "{\\ltrch\\rtlch\\aul\\astrike\\acf2 \\u1513?}", u"\u05E9", "C 15 strike line #0000ff"},
    {"NoneInNotes", "{\\dbch\\afs36\\dbch \\u26085?{\\footnote x}}", u"x", "Serif 12"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RtfReaderScripts, testing::ValuesIn(scriptTextRows),
                         [](const auto &row) { return row.param.name; });

TEST(RtfReaderScriptBytes, AreInTheCodePageOfTheirOwnFont)
{
    ReadDocument read("{\\rtf1\\ansi{\\fonttbl{\\f0 Serif;}{\\f1\\fcharset128 Gothic;}}"
                      "{\\hich\\af0\\loch\\f0\\dbch\\af1\\dbch\\'93\\'fa}}");
    EXPECT_EQ(read.text(), "\u65E5");
    EXPECT_EQ(lookOf(read, u"\u65E5"), "Gothic 12");
}

} // namespace
