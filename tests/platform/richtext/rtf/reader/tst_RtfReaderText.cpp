#include "ReadDocument.h"
#include "RowName.h"
#include "RtfReader.h"

#include <QDate>
#include <gtest/gtest.h>

namespace {

struct ReadRow
{
    const char *name;
    const char *body;
    const char *text;
};

void PrintTo(const ReadRow &row, std::ostream *out)
{
    *out << row.body;
}

class RtfReaderText : public testing::TestWithParam<ReadRow>
{};

TEST_P(RtfReaderText, Reads)
{
    EXPECT_EQ(textOf(framed(GetParam().body)), GetParam().text);
}

const ReadRow paragraphs[] = {
    {"Nothing", "", ""},
    {"LastEndAddsNoParagraph", "a\\par b\\par", "a|b"},
    {"LastParagraphWithoutEnd", "a\\par b", "a|b"},
    {"EmptyParagraphs", "a\\par\\par b\\par\\par", "a||b|"},
    {"EscapedLineEnd", "a\\\nb\\\r\nc", "a|b|c"},
    {"LineEndsOfTheFile", "a\r\nb\nc", "abc"},
    {"Lines", "a\\line b\\softline c\\lbr0 d", "a/b/c/d"},
    {"Column", "a\\column b", "a/b"},
    {"Sections", "a\\sect\\sectd b\\par", "a|b"},
    {"Pages", "a\\page b\\par\\page c", "a|b|c"},
    {"HiddenEndJoins", "a{\\v x\\par}b\\par", "ab"},
    {"DeletedEndJoins", "a{\\deleted x\\par}b{\\revised c}", "abc"},
};

const ReadRow signsAndBytes[] = {
    {"Escapes", "\\{a\\}\\\\", "{a}\\"},
    {"Hyphens", "a\\-b\\_c\\~d", "a\u00ADb\u2011c\u00A0d"},
    {"Dashes", "\\emdash\\endash\\bullet", "\u2014\u2013\u2022"},
    {"Quotes", "\\lquote a\\rquote\\ldblquote b\\rdblquote", "\u2018a\u2019\u201Cb\u201D"},
    {"Spaces", "\\emspace\\enspace\\qmspace .", "\u2003\u2002\u2005."},
    {"Joiners", "\\zwj\\zwnj\\ltrmark\\rtlmark", "\u200D\u200C\u200E\u200F"},
    {"Tabs", "a\\tab b\tc", "a\tb\tc"},
    {"ControlBytes", "a\x01\x02\x1F\x62", "ab"},
    {"Windows1252", "\\'80\\'e9\\'FC \xe9", "\u20AC\u00E9\u00FC \u00E9"},
    {"BadByte", "a\\'zzb\\'4", "azzb4"},
    {"IndexMarks", "a\\|b\\:c", "abc"},
    {"UnknownWords", "a\\foo b\\foobar-12 c", "abc"},
    {"DateOfToday", "a\\chdate\\chtime b", "ab"},
};

const ReadRow unicode[] = {
    {"Fallback", "\\u8364?x", "\u20ACx"},
    {"FallbackByte", "\\u8364\\'80x", "\u20ACx"},
    {"FallbackOfTwo", "\\uc2\\u12354\\'82\\'a0x", "\u3042x"},
    {"NoFallback", "\\uc0\\u8364x", "\u20ACx"},
    {"WordIsOneCharacter", "\\uc3\\u8364 a\\bullet bx", "\u20ACx"},
    {"BinaryIsOneCharacter", "\\uc2\\u8364\\bin3 }{\\ax", "\u20ACx"},
    {"EndOfGroupEndsFallback", "{\\uc2\\u8364}ab", "\u20ACab"},
    {"CountOfGroup", "{\\uc0\\u8364a}\\u8364?b", "\u20ACa\u20ACb"},
    {"Negative", "\\u-4064?", "\uF020"},
    {"Pair", "\\u-10179?\\u-8704?", "\U0001F600"},
    {"PairWithoutFallback", "\\u55357\\u56832?", "\U0001F600"},
    {"WholeCode", "\\u128512?", "\U0001F600"},
    {"LoneHigh", "a\\u-10179?b", "a\uFFFDb"},
    {"LoneLow", "a\\u-8704?b", "a\uFFFDb"},
    {"Absurd", "\\u99999999?\\u-99999?x", "\uFFFD\uFFFDx"},
    {"Nul", "\\u0?", "\uFFFD"},
    {"FrameSigns", "\\u64976?\\u64977?\\u65532?", "\uFFFD\uFFFD\uFFFD"},
    {"LineEnds", "\\u10?\\u8233?\\u8232?", "///"},
    {"CarriageReturn", "a\\u13?\\u10?b", "a/b"},
    {"BothForms", "a{\\upr{x{y}}{\\*\\ud{\\u8364?}}}b", "a\u20ACb"},
};

const ReadRow groups[] = {
    {"UnknownDestination", "a{\\*\\foo b{c}\\bin2 }}d}e", "ae"},
    {"UnknownGroup", "a{\\foo b{c}}d", "abcd"},
    {"BinaryOfText", "a\\bin3 }}}b", "ab"},
    {"TextBehindTheEnd", "a}b\\par c{", "a"},
    {"Info", "{\\info{\\title T}{\\author A}}a", "a"},
    {"HeaderAndFooter", "{\\header h\\par}{\\footerl f}{\\headerf g}a", "a"},
    {"Annotation", "a{\\*\\atnid X}{\\*\\atnauthor Y}{\\annotation note}b", "ab"},
    {"Bookmark", "{\\*\\bkmkstart here}a{\\*\\bkmkend here}", "a"},
    {"IndexAndContents", "a{\\xe{\\v entry}}{\\tc entry}b", "ab"},
    {"Object", "a{\\object\\objemb{\\*\\objclass X}{\\*\\objdata 00ff}{\\result{b}}}c", "abc"},
    {"Math", "{\\mmath{\\*\\moMath{\\mr x}{\\*\\mf{\\*\\mnum{\\mr 1}}{\\*\\mden{\\mr 2}}}}}", "x12"},
};

const ReadRow fields[] = {
    {"Result", "{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}", "7"},
    {"NoResult", "a{\\field{\\*\\fldinst QUOTE x}}b", "ab"},
    {"Button", "{\\field{\\*\\fldinst { MACROBUTTON  NoMacro [Your  name] }}{\\fldrslt}}", "[Your  name]"},
    {"ButtonWithResult", "{\\field{\\*\\fldinst MACROBUTTON NoMacro Name}{\\fldrslt Ann}}", "Ann"},
    {"Picture", "{\\field{\\*\\fldinst DATE \\\\@ \"'day' 'YMD'\"}}", "day YMD"},
    {"Information",
     "{\\info{\\title A \\'e9}{\\author B}{\\subject C}{\\nofpages7}}{\\field{\\*\\fldinst TITLE}} "
     "{\\field{\\*\\fldinst AUTHOR}{\\fldrslt}} {\\field{\\*\\fldinst SUBJECT}{\\fldrslt D}} "
     "{\\field{\\*\\fldinst NUMPAGES}}",
     "A \u00E9 B D 7"},
    {"FileName", "{\\field{\\*\\fldinst FILENAME}}", ""},
    {"InstructionInGroups", "{\\field{\\*\\fldinst{\\b HYPER}{LINK \"u\"}}{\\fldrslt{t}}}", "t"},
    {"Nested", "{\\field{\\*\\fldinst A}{\\fldrslt a{\\field{\\*\\fldinst B}{\\fldrslt b}}c}}", "abc"},
    {"Symbol", "{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}{\\fldrslt ?}}x", "\u2022x"},
    {"SymbolOfText", "{\\field{\\*\\fldinst SYMBOL 0x80}{\\fldrslt}}", "\u20AC"},
};

const ReadRow notes[] = {
    {"WithReference", "a{\\super\\chftn{\\footnote\\pard{\\super\\chftn} n}}b\\par c\\par", "a1b|c|1 n"},
    {"WithoutReference", "a{\\footnote n}b", "a1b|1 n"},
    {"Two", "a{\\footnote m}b{\\footnote\\ftnalt n}", "a1b2|1 m|2 n"},
    {"TwoAtOnePlace", "a{\\footnote m}{\\footnote n}b", "a12b|1 m|2 n"},
    {"OwnMark", "a{\\super *}{\\footnote {\\super *}n}b{\\footnote m}", "a*b1|*n|1 m"},
    {"ParagraphsOfANote", "a{\\footnote m\\par n\\par}b", "a1b|1 m|n"},
    {"EmptyNote", "a{\\footnote}b", "a1b|1 "},
    {"NoteInTheGroupOfANote", "a{\\footnote\\footnote n}b", "a1b|1 n"},
    {"PictureInTheGroupOfANote", "a{\\footnote m\\pict n}b", "a1b|1 mn"},
    {"BookmarkInTheGroupOfANote", "a{\\footnote m\\bkmkstart n}b", "a1b|1 mn"},
    {"NoteInANote", "a{\\footnote m{\\footnote n}}", "a1|1 m2|2 n"},
};

const ReadRow shapes[] = {
    {"Text", "a{\\shp{\\*\\shpinst\\shpleft0{\\sp{\\sn x}{\\sv 1}}{\\shptxt b\\par c\\par}}{\\shprslt z}}d",
     "a|b|c|d"},
    {"AtTheStart", "{\\shp{\\*\\shpinst{\\shptxt b}}}d\\par", "b|d"},
    {"OlderDrawing", "{\\*\\do\\dobxpage{\\dptxbx{\\dptxbxtext b\\par}}}a", "b|a"},
    {"OnlyResult", "{\\shp{\\shprslt b}}a", "ba"},
};

const ReadRow fallingOut[] = {
    {"CellOutsideATable", "a\\cell b\\row c", "a|b|c"},
    {"InTableWithoutATable", "\\intbl a\\par\\pard b", "a|b"},
    {"Label", "{\\listtext 1.\\tab}a\\par", "1.\ta"},
    {"OldLabel", "{\\pntext 1.\\tab}a\\par", "1.\ta"},
};

INSTANTIATE_TEST_SUITE_P(Paragraphs, RtfReaderText, testing::ValuesIn(paragraphs), RowName());
INSTANTIATE_TEST_SUITE_P(Signs, RtfReaderText, testing::ValuesIn(signsAndBytes), RowName());
INSTANTIATE_TEST_SUITE_P(Unicode, RtfReaderText, testing::ValuesIn(unicode), RowName());
INSTANTIATE_TEST_SUITE_P(Groups, RtfReaderText, testing::ValuesIn(groups), RowName());
INSTANTIATE_TEST_SUITE_P(Fields, RtfReaderText, testing::ValuesIn(fields), RowName());
INSTANTIATE_TEST_SUITE_P(Notes, RtfReaderText, testing::ValuesIn(notes), RowName());
INSTANTIATE_TEST_SUITE_P(Shapes, RtfReaderText, testing::ValuesIn(shapes), RowName());
INSTANTIATE_TEST_SUITE_P(FallingOut, RtfReaderText, testing::ValuesIn(fallingOut), RowName());

struct PageRow
{
    const char *name;
    const char *rtf;
    const char *text;
};

void PrintTo(const PageRow &row, std::ostream *out)
{
    *out << row.rtf;
}

class RtfReaderCodePage : public testing::TestWithParam<PageRow>
{};

TEST_P(RtfReaderCodePage, Reads)
{
    EXPECT_EQ(textOf(GetParam().rtf), GetParam().text);
}

const PageRow pages[] = {
    {"Pc437", "{\\rtf1\\pc \\'81\\'e1}", "\u00FC\u00DF"},
    {"Pca850", "{\\rtf1\\pca \\'9b}", "\u00F8"},
    {"Mac", "{\\rtf1\\mac \\'8e\\'a5}", "\u00E9\u2022"},
    {"Page852", "{\\rtf1\\ansi\\ansicpg852 \\'88}", "\u0142"},
    {"Page866", "{\\rtf1\\ansi\\ansicpg866 \\'80\\'e0}", "\u0410\u0440"},
    {"Page874", "{\\rtf1\\ansi\\ansicpg874 \\'a1}", "\u0E01"},
    {"Page932", "{\\rtf1\\ansi\\ansicpg932 \\'82\\'a0\\'b1}", "\u3042\uFF71"},
    {"LeadAsByteTrailAsLetter", "{\\rtf1\\ansi\\ansicpg932 \\'83J\\'83\\\\x}", "\u30AB\u30BDx"},
    {"LeadAndTrailAsTheyAre", "{\\rtf1\\ansi\\ansicpg932 a\x82\xa0z}", "a\u3042z"},
    {"Page936", "{\\rtf1\\ansi\\ansicpg936 \\'d6\\'d0}", "\u4E2D"},
    {"Page949", "{\\rtf1\\ansi\\ansicpg949 \\'b0\\'a1}", "\uAC00"},
    {"Page950", "{\\rtf1\\ansi\\ansicpg950 \\'a4\\'a4}", "\u4E2D"},
    {"Page1250", "{\\rtf1\\ansi\\ansicpg1250 \\'b3\\'9c}", "\u0142\u015B"},
    {"Page1251", "{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0}", "\u041F\u0440"},
    {"Page1253", "{\\rtf1\\ansi\\ansicpg1253 \\'e1}", "\u03B1"},
    {"Page1254", "{\\rtf1\\ansi\\ansicpg1254 \\'fd}", "\u0131"},
    {"Page1255", "{\\rtf1\\ansi\\ansicpg1255 \\'e0}", "\u05D0"},
    {"Page1256", "{\\rtf1\\ansi\\ansicpg1256 \\'c7}", "\u0627"},
    {"Page1257", "{\\rtf1\\ansi\\ansicpg1257 \\'e0}", "\u0105"},
    {"Page1258", "{\\rtf1\\ansi\\ansicpg1258 \\'d0}", "\u0110"},
    {"Page1361", "{\\rtf1\\ansi\\ansicpg1361 \\'88\\'61\\'ff.}", "\uAC00\uFFFD."},
    {"MacCyrillic", "{\\rtf1\\ansi\\ansicpg10007 \\'80}", "\u0410"},
    {"Utf8", "{\\rtf1\\ansi\\ansicpg65001 \xe2\x82\xac\\'c3\\'a9\\'ef\\'b7\\'90}", "\u20AC\u00E9\uFFFD"},
    {"UnknownPage", "{\\rtf1\\ansi\\ansicpg4711 \\'80}", "\u20AC"},
    {"HalfCharacter", "{\\rtf1\\ansi\\ansicpg932 \\'82}", "\uFFFD"},
    {"PageOfFont",
     "{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\cpg1253 B;}{\\f2 C;}}\\'cf\\f1\\'e1\\f2\\'e9}",
     "\u041F\u03B1\u00E9"},
    {"PageOfDefaultFont", "{\\rtf1\\deff3{\\fonttbl{\\f3\\fcharset161 A;}}\\'e1}", "\u03B1"},
    {"Symbol", "{\\rtf1{\\fonttbl{\\f0\\fcharset2 Symbol;}}a\\'b7\\u-3913?}", "\u03B1\u2022\u2022"},
    {"Wingdings", "{\\rtf1{\\fonttbl{\\f0\\fcharset2 Wingdings;}}\\'a7\\'fc}", "\u25AA\u2713"},
    {"OtherSigns", "{\\rtf1{\\fonttbl{\\f0\\fcharset2 Webdings;}}a}", "\uF061"},
};

INSTANTIATE_TEST_SUITE_P(Pages, RtfReaderCodePage, testing::ValuesIn(pages),
                         [](const auto &row) { return row.param.name; });

TEST(RtfReader, RecognisesRichText)
{
    EXPECT_TRUE(RtfReader::recognises("{\\rtf1 a}"));
    EXPECT_TRUE(RtfReader::recognises("\xEF\xBB\xBF{\\rtf"));
    EXPECT_TRUE(RtfReader::recognises(" \r\n\t{\\rtf1"));
    EXPECT_FALSE(RtfReader::recognises("{\\rt"));
    EXPECT_FALSE(RtfReader::recognises("x{\\rtf1"));
    EXPECT_FALSE(RtfReader::recognises({}));
}

TEST(RtfReader, FieldsShowTheFileAndTheTimeOfNow)
{
    QTextDocument document;
    RtfReader::read("{\\rtf1{\\field{\\*\\fldinst FILENAME}} {\\field{\\*\\fldinst TIME \\\\@ \"YYYY\"}}}",
                    document, QStringLiteral("letter.rtf"));
    EXPECT_EQ(document.toPlainText(), QStringLiteral("letter.rtf %1").arg(QDate::currentDate().year()));
}

TEST(RtfReader, LeavesNothingToUndo)
{
    QTextDocument document;
    RtfReader::read("{\\rtf1 a\\par b}", document);
    EXPECT_TRUE(document.isUndoRedoEnabled());
    EXPECT_FALSE(document.isUndoAvailable());
    EXPECT_FALSE(document.isModified());
}

} // namespace
