#include "RichTextProperties.h"
#include "RowName.h"
#include "WrittenBody.h"

#include <gtest/gtest.h>

namespace {

struct FormatRow
{
    const char *name;
    void (*set)(QTextCharFormat &);
    const char *words;
};

struct RtfWriterCharacters : testing::TestWithParam<FormatRow>
{};

struct ScriptRow
{
    const char *name;
    const char16_t *text;
    const char *written;
};

struct RtfWriterScripts : testing::TestWithParam<ScriptRow>
{};

QTextCharFormat bold()
{
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    return format;
}

QTextCharFormat link(const QString &address)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(address);
    return format;
}

} // namespace

TEST_P(RtfWriterCharacters, AreChangesFromPlainText)
{
    PlainDocument document;
    QTextCharFormat format;
    GetParam().set(format);
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("a"));
    cursor.insertText(QStringLiteral("b"), format);
    cursor.insertText(QStringLiteral("c"), QTextCharFormat());
    const QByteArray words = GetParam().words;
    EXPECT_EQ(bodyOf(document), words.isEmpty() ? QByteArray("abc\\par\n") : "a{" + words + " b}c\\par\n");
}

/// Other word processors keep a look of its own for each script and read it only where it is written so.
TEST_P(RtfWriterScripts, HaveTheirLookInTheirOwnWords)
{
    PlainDocument document;
    QTextCharFormat format = bold();
    format.setFontItalic(true);
    format.setFontPointSize(18);
    format.setFontFamilies({QStringLiteral("Courier New")});
    QTextCursor(&document).insertText(QString::fromUtf16(GetParam().text), format);
    EXPECT_EQ(bodyOf(document), "{" + QByteArray(GetParam().written) + "\\par}\n");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfWriterScripts,
    testing::Values(
        ScriptRow{"Latin", u"a", "\\f1\\fs36\\b\\i a"},
        ScriptRow{"Greek", u"\u03b1\u201c", "\\f1\\fs36\\b\\i \\u945?\\u8220?"},
        ScriptRow{"Hebrew", u"a\u05e9", "\\rtlch\\af1\\afs36\\ab\\ai\\ltrch\\f1\\fs36\\b\\i a\\u1513?"},
        ScriptRow{"Thai", u"\u0e01", "\\rtlch\\af1\\afs36\\ab\\ai\\ltrch\\f1\\fs36\\b\\i \\u3585?"},
        ScriptRow{"Japanese", u"\u65e5 a", "\\dbch\\af1\\loch\\f1\\fs36\\b\\i \\u26085? a"},
        ScriptRow{"Emoji", u"\U0001F600", "\\dbch\\af1\\loch\\f1\\fs36\\b\\i \\u-10179?\\u-8704?"},
        ScriptRow{"Both", u"\u05e9\u65e5",
                  "\\rtlch\\af1\\afs36\\ab\\ai\\ltrch\\dbch\\af1\\loch\\f1\\fs36\\b\\i \\u1513?\\u26085?"}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(RtfWriterScriptsPlain, NameTheirFontEvenThen)
{
    PlainDocument document;
    document.setPlainText(QStringLiteral("\u05e9"));
    EXPECT_EQ(bodyOf(document), QByteArray("{\\rtlch\\af0\\ltrch \\u1513?\\par}\n"));
}

using F = QTextCharFormat;
INSTANTIATE_TEST_SUITE_P(
    Rows, RtfWriterCharacters,
    testing::Values(
        FormatRow{"Bold", [](F &f) { f.setFontWeight(QFont::Bold); }, "\\b"},
        FormatRow{"DemiBold", [](F &f) { f.setFontWeight(QFont::DemiBold); }, "\\b"},
        FormatRow{"Medium", [](F &f) { f.setFontWeight(QFont::Medium); }, ""},
        FormatRow{"Italic", [](F &f) { f.setFontItalic(true); }, "\\i"},
        FormatRow{"Size", [](F &f) { f.setFontPointSize(10.5); }, "\\fs21"},
        FormatRow{"BeyondTheLargestSize", [](F &f) { f.setFontPointSize(9999); }, "\\fs3276"},
        FormatRow{"TheLeastSize", [](F &f) { f.setFontPointSize(0.1); }, "\\fs1"},
        FormatRow{"UsualSize", [](F &f) { f.setFontPointSize(12); }, ""},
        FormatRow{"Pixels", [](F &f) { f.setProperty(QTextFormat::FontPixelSize, 20); }, "\\fs30"},
        FormatRow{"Larger", [](F &f) { f.setProperty(QTextFormat::FontSizeAdjustment, 1); }, "\\fs29"},
        FormatRow{"Font", [](F &f) { f.setFontFamilies({QStringLiteral("Courier New")}); }, "\\f1"},
        FormatRow{"UsualFont", [](F &f) { f.setFontFamilies({QStringLiteral("Arial")}); }, ""},
        FormatRow{"Underline", [](F &f) { f.setFontUnderline(true); }, "\\ul"},
        FormatRow{"Dots", [](F &f) { f.setUnderlineStyle(F::DotLine); }, "\\uld"},
        FormatRow{"Dashes", [](F &f) { f.setUnderlineStyle(F::DashUnderline); }, "\\uldash"},
        FormatRow{"DashDot", [](F &f) { f.setUnderlineStyle(F::DashDotLine); }, "\\uldashd"},
        FormatRow{"DashDotDot", [](F &f) { f.setUnderlineStyle(F::DashDotDotLine); }, "\\uldashdd"},
        FormatRow{"Wave", [](F &f) { f.setUnderlineStyle(F::WaveUnderline); }, "\\ulwave"},
        FormatRow{"SpellingMark", [](F &f) { f.setUnderlineStyle(F::SpellCheckUnderline); }, ""},
        FormatRow{"ColouredLine",
                  [](F &f) {
                      f.setFontUnderline(true);
                      f.setUnderlineColor(Qt::red);
                  },
                  "\\ul\\ulc1"},
        FormatRow{"Strike", [](F &f) { f.setFontStrikeOut(true); }, "\\strike"},
        FormatRow{"Colour", [](F &f) { f.setForeground(Qt::red); }, "\\cf1"},
        FormatRow{"Highlight", [](F &f) { f.setBackground(Qt::yellow); }, "\\highlight1"},
        FormatRow{"NoPaint", [](F &f) { f.setBackground(Qt::NoBrush); }, ""},
        FormatRow{"Transparent", [](F &f) { f.setBackground(QColor(0, 0, 0, 0)); }, ""},
        FormatRow{"Super", [](F &f) { f.setVerticalAlignment(F::AlignSuperScript); }, "\\super"},
        FormatRow{"Sub", [](F &f) { f.setVerticalAlignment(F::AlignSubScript); }, "\\sub"},
        FormatRow{"Up", [](F &f) { f.setProperty(RichTextProperty::BaselineShift, 6); }, "\\up6"},
        FormatRow{"Down", [](F &f) { f.setProperty(RichTextProperty::BaselineShift, -6); }, "\\dn6"},
        FormatRow{"Caps", [](F &f) { f.setFontCapitalization(QFont::AllUppercase); }, "\\caps"},
        FormatRow{"SmallCaps", [](F &f) { f.setFontCapitalization(QFont::SmallCaps); }, "\\scaps"},
        FormatRow{"Language", [](F &f) { f.setProperty(RichTextProperty::Language, 1029); }, "\\lang1029"}),
    RowName());

TEST(RtfWriterCharacterRuns, WritesWhatDiffersFromThePlainSizeOfTheFormat)
{
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Arial"), 9));
    document.setPlainText(QStringLiteral("a"));
    EXPECT_EQ(bodyOf(document), QByteArray("{\\fs18 a\\par}\n"));
}

TEST(RtfWriterCharacterRuns, KeepLettersOutOfFontsOfSigns)
{
    PlainDocument document;
    QTextCharFormat format;
    format.setFontFamilies({QStringLiteral("Symbol")});
    format.setFontItalic(true);
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("abc"), format);
    const QByteArray letters = RtfWriter::write(document);
    EXPECT_FALSE(letters.contains("Symbol")); // in it a reader sees Greek
    EXPECT_EQ(bodyOf(letters), QByteArray("{\\i abc\\par}\n"));
    document.setPlainText(QString());
    cursor.insertText(QString::fromUtf16(u"\u03b1 1"), format);
    EXPECT_EQ(bodyOf(document), QByteArray("{\\f1\\i \\u945? 1\\par}\n"));
}

TEST(RtfWriterCharacterRuns, NamesFontsWithoutWhatEndsOrSteersText)
{
    PlainDocument document;
    QTextCharFormat format;
    format.setFontFamilies({QString::fromUtf16(u"A;\tb\u00ad\u2011c")});
    QTextCursor(&document).insertText(QStringLiteral("x"), format);
    EXPECT_TRUE(RtfWriter::write(document).contains("{\\f1\\fnil A b-c;}"));
}

TEST(RtfWriterCharacterRuns, JoinsFormatsThatAreWrittenAlike)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat heavier = bold();
    heavier.setFontWeight(QFont::Black);
    cursor.insertText(QStringLiteral("a"), bold());
    cursor.insertText(QStringLiteral("b"), heavier);
    EXPECT_EQ(bodyOf(document), QByteArray("{\\b ab\\par}\n"));
}

TEST(RtfWriterCharacterRuns, KeepsTheFormatOfAnEmptyParagraph)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("a"));
    cursor.insertBlock(QTextBlockFormat(), bold());
    EXPECT_EQ(bodyOf(document), QByteArray("a\\par\n{\\b\\par}\n"));
}

TEST(RtfWriterCharacterRuns, CountsColoursByFirstUse)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat format;
    for (const QColor &colour : {QColor(1, 2, 3), QColor(255, 0, 0), QColor(1, 2, 3)}) {
        format.setForeground(colour);
        cursor.insertText(QStringLiteral("a"), format);
    }
    const QByteArray bytes = RtfWriter::write(document);
    EXPECT_TRUE(bytes.contains("{\\colortbl;\\red1\\green2\\blue3;\\red255\\green0\\blue0;}\n"));
    EXPECT_EQ(bodyOf(bytes), QByteArray("{\\cf1 a}{\\cf2 a}{\\cf1 a\\par}\n"));
}

TEST(RtfWriterLinks, AreFields)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat strong = link(QStringLiteral("https://garden.example/"));
    strong.setFontWeight(QFont::Bold);
    cursor.insertText(QStringLiteral("see "));
    cursor.insertText(QStringLiteral("the "), link(QStringLiteral("https://garden.example/")));
    cursor.insertText(QStringLiteral("rules"), strong);
    cursor.insertText(QStringLiteral("."), QTextCharFormat());
    EXPECT_EQ(bodyOf(document),
              QByteArray("see {\\field{\\*\\fldinst HYPERLINK \"https://garden.example/\"}{\\fldrslt the "
                         "{\\b rules}}}.\\par\n"));
}

TEST(RtfWriterLinks, EscapeTheirAddress)
{
    PlainDocument document;
    QTextCursor(&document).insertText(QStringLiteral("a"), link(QStringLiteral("C:\\a\"b{\u00e9}")));
    EXPECT_EQ(
        bodyOf(document),
        QByteArray("{\\field{\\*\\fldinst HYPERLINK \"C:\\\\\\\\a%22b\\{\\u233?\\}\"}{\\fldrslt a}}\\par\n"));
}

TEST(RtfWriterLinks, LeadToPlacesInsideTheDocument)
{
    PlainDocument document;
    QTextCursor(&document).insertText(QStringLiteral("a"), link(QStringLiteral("#end")));
    EXPECT_EQ(bodyOf(document),
              QByteArray("{\\field{\\*\\fldinst HYPERLINK \\\\l \"end\"}{\\fldrslt a}}\\par\n"));
}

TEST(RtfWriterLinks, SideBySideStayTwo)
{
    PlainDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("a"), link(QStringLiteral("x:1")));
    cursor.insertText(QStringLiteral("b"), link(QStringLiteral("x:2")));
    EXPECT_EQ(bodyOf(document), QByteArray("{\\field{\\*\\fldinst HYPERLINK \"x:1\"}{\\fldrslt a}}"
                                           "{\\field{\\*\\fldinst HYPERLINK \"x:2\"}{\\fldrslt b}}\\par\n"));
}
