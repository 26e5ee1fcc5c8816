#include "FindWords.h"
#include "LiteralLoop.h"
#include "PrintQt.h"
#include "TextSearch.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace TextSearch {

static void PrintTo(const Hit &hit, std::ostream *out)
{
    *out << "position " << hit.position << ", end " << hit.end;
}

static void PrintTo(const Word &word, std::ostream *out)
{
    ::PrintTo(word.text, out);
    *out << " from " << word.start << " to " << word.end;
}

} // namespace TextSearch

namespace {

using TextSearch::Hit;
using TextSearch::Word;

QString utf(const char *text)
{
    return QString::fromUtf8(text);
}

struct Row
{
    const char *name;
    const char *text;
    int start;
    int end;
    const char *wanted;
    int flags;
    std::optional<Hit> hit;
};

const Row rows[] = {
    {"FromTheCaret", "one two one", 0, 0, "one", down, Hit{1, 3}},
    {"BehindTheSelection", "one two one", 0, 3, "one", down, Hit{9, 11}},
    {"TheSelectionsEndCounts", "aaaa", 1, 2, "aa", down, Hit{3, 4}},
    {"WrapsToTheBeginning", "one two", 3, 3, "one", down, Hit{1, 3}},
    {"WrapsOntoTheSelectionItself", "one", 0, 3, "one", down, Hit{1, 3}},
    {"FromTheVeryEnd", "one", 3, 3, "one", down, Hit{1, 3}},
    {"NowhereDown", "one two", 2, 2, "three", down, {}},
    {"EmptyFindText", "one", 0, 0, "", down, {}},
    {"EmptyFindTextUp", "one", 3, 3, "", up, {}},
    {"LongerThanTheText", "one", 0, 0, "ones", down, {}},
    {"UpFromTheSelectionsStart", "one two one", 8, 11, "one", up, Hit{1, 3}},
    {"UpNotBeyondTheStart", "one two", 2, 2, "one", up, Hit{1, 3}}, // by the wrap
    {"UpEndsAtTheStart", "one two", 3, 3, "one", up, Hit{1, 3}},
    {"UpWrapsToTheEnd", "two one", 0, 0, "one", up, Hit{5, 7}},
    {"UpTakesTheNearest", "one one one", 11, 11, "one", up, Hit{9, 11}},
    {"NowhereUp", "one two", 7, 7, "three", up, {}},
    {"AnyCase", "One ONE", 0, 0, "oNe", down, Hit{1, 3}},
    {"AnyCaseBeyondAscii", "\xC3\x84RGER", 0, 0, "\xC3\xA4rger", down, Hit{1, 5}},
    {"AnyCaseBeyond16Bits", "\xF0\x90\x90\x80", 0, 0, "\xF0\x90\x90\xA8", down, Hit{1, 2}},
    {"LettersWithoutALowerCaseOfTheirLength", "\xC4\xB0x", 0, 0, "X", down, Hit{2, 2}},
    {"SameCase", "One one", 0, 0, "one", down | matchCase, Hit{5, 7}},
    {"SameCaseUp", "one One", 7, 7, "one", up | matchCase, Hit{1, 3}},
    {"SameCaseNowhere", "ONE", 0, 0, "one", down | matchCase, {}},
    {"WholeWord", "a cat.", 0, 0, "cat", down | wholeWord, Hit{3, 5}},
    {"WholeText", "cat", 0, 0, "cat", down | wholeWord, Hit{1, 3}},
    {"RefusedByTheCharacterBefore", "tomcat", 0, 0, "cat", down | wholeWord, Hit{0, 6}},
    {"RefusedByTheCharacterBehind", "cats", 0, 0, "cat", down | wholeWord, Hit{0, 3}},
    {"RefusedThoughAWholeOneFollows", "cats cat", 0, 0, "cat", down | wholeWord, Hit{0, 3}},
    {"RefusedUp", "cat cats", 8, 8, "cat", up | wholeWord, Hit{0, 7}},
    {"ATabIsNoSeparator", "a\tcat", 0, 0, "cat", down | wholeWord, Hit{0, 5}},
    {"ASemicolonAndAColonAre", "a;cat:b", 0, 0, "cat", down | wholeWord, Hit{3, 5}},
    {"LineEndsAndACommaAre", "a\ncat,b", 0, 0, "cat", down | wholeWord, Hit{3, 5}},
    {"ASelectionBeyondAStaleText", "one", 9, 12, "one", down, Hit{1, 3}},
    {"ASelectionBeyondAStaleTextUp", "one", 9, 12, "one", up, Hit{1, 3}},
};

struct WordRow
{
    const char *name;
    const char *text;
    int start;
    int end;
    Word word;
};

const WordRow wordRows[] = {
    {"InsideAWord", "one two three", 5, 5, {utf("two"), 4, 7}},
    {"AtAWordsStart", "one two three", 4, 4, {utf("two"), 4, 7}},
    {"AtAWordsEndItIsTheNext", "one two three", 3, 3, {utf("two"), 4, 7}},
    {"InTheFirstWord", "one two", 1, 1, {utf("one"), 0, 3}},
    {"AtTheStart", "one two", 0, 0, {utf("one"), 0, 3}},
    {"InTheLastWord", "one two", 5, 5, {utf("two"), 4, 7}},
    {"AtTheEnd", "one two", 7, 7, {utf("two"), 4, 7}},
    {"BeforeTheLastCharacter", "one two", 6, 6, {utf("two"), 4, 7}},
    {"OneCharacter", "a", 0, 0, {utf("a"), 0, 1}},
    {"OneCharacterAtItsEnd", "a", 1, 1, {utf("a"), 0, 1}},
    {"BetweenSeparators", "a , b", 2, 2, {utf(""), 3, 3}},
    {"BehindATrailingBlank", "one ", 4, 4, {utf(""), 4, 4}},
    {"TheVeryFirstSeparatorIsSelectedToo", " one", 2, 2, {utf("one"), 0, 4}},
    {"OnTheVeryFirstSeparator", " one", 0, 0, {utf("one"), 0, 4}},
    {"OneLetterBetweenSeparators", ".a.", 1, 1, {utf("a"), 0, 2}},
    {"ASelection", "one two three", 2, 9, {utf("e two t"), 2, 9}},
    {"ASelectionWithoutItsOuterBlanks", "one  two three", 3, 9, {utf("two"), 3, 9}},
    {"OnlyBlanksSelected", "a   b", 1, 4, {utf(""), 1, 4}},
    {"OtherBlanksStay", "a\t b", 1, 3, {utf("\t"), 1, 3}},
};

template<class RowType>
std::string rowName(const testing::TestParamInfo<RowType> &info)
{
    return info.param.name;
}

struct SearchRows : testing::TestWithParam<Row>
{};

struct WordRows : testing::TestWithParam<WordRow>
{};

} // namespace

TEST_P(SearchRows, IsFound)
{
    const Row &row = GetParam();
    EXPECT_EQ(TextSearch::find(utf(row.text), row.start, row.end, utf(row.wanted), row.flags), row.hit);
}

TEST_P(WordRows, IsTaken)
{
    const WordRow &row = GetParam();
    EXPECT_EQ(TextSearch::wordAt(utf(row.text), row.start, row.end), row.word);
}

INSTANTIATE_TEST_SUITE_P(TextSearch, SearchRows, testing::ValuesIn(rows), rowName<Row>);
INSTANTIATE_TEST_SUITE_P(TextSearch, WordRows, testing::ValuesIn(wordRows), rowName<WordRow>);

TEST(TextSearch, FindsWhatTheLiteralStepsFind)
{
    QRandomGenerator random(1);
    const auto some = [&random](int most) {
        QString text;
        for (int i = random.bounded(most + 1); i > 0; --i)
            text += QStringLiteral("abA .")[random.bounded(5)];
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        LiteralLoop loop;
        loop.text = some(12);
        loop.selStart = random.bounded(int(loop.text.size()) + 1);
        loop.selEnd = loop.selStart + random.bounded(int(loop.text.size()) + 1 - loop.selStart);
        const QString wanted = some(3);
        const int flags = random.bounded(8);
        const auto expected = loop.search(wanted, flags);
        const auto hit = TextSearch::find(loop.text, loop.selStart, loop.selEnd, wanted, flags);
        ASSERT_EQ(hit.has_value(), expected.found)
            << qUtf8Printable(loop.text) << '|' << qUtf8Printable(wanted);
        if (hit) {
            ASSERT_EQ(*hit, (Hit{expected.position, expected.end}))
                << qUtf8Printable(loop.text) << '|' << qUtf8Printable(wanted) << '|' << flags;
        }
    }
}
