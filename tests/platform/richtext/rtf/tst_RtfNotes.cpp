#include "ReadDocument.h"
#include "RtfWriter.h"
#include "WrittenBody.h"

#include <QTextDocumentFragment>
#include <gtest/gtest.h>

namespace {

struct NoteRow
{
    const char *name;
    const char *rtf;
    const char *written;
};

void PrintTo(const NoteRow &row, std::ostream *out)
{
    *out << row.rtf;
}

std::string rowName(const testing::TestParamInfo<NoteRow> &row)
{
    return row.param.name;
}

struct RtfNotes : testing::TestWithParam<NoteRow>
{};

/// In the font that text without a font has, so that it is written without words.
struct PlainReadDocument : ReadDocument
{
    explicit PlainReadDocument(const QByteArray &rtf)
        : ReadDocument(rtf)
    {
        document().setDefaultFont(QFont(QStringLiteral("Arial"), 12));
    }
};

/// Two paragraphs with a note each, and the notes behind them.
struct RtfNotesEdited : testing::Test
{
    void select(const QString &text)
    {
        cursor = read.document().find(text, 0, QTextDocument::FindCaseSensitively);
        ASSERT_FALSE(cursor.isNull());
    }
    std::string written() const { return bodyOf(read.document()).toStdString(); }

    mutable PlainReadDocument read{
        "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super\\chftn}{\\footnote\\pard{\\super\\chftn} one}b\\par "
        "c{\\super\\chftn}{\\footnote\\pard{\\super\\chftn} two}d\\par}"};
    QTextCursor cursor{&read.document()};
};

const std::string noteOne = "{\\footnote\\pard\\plain {\\super{\\chftn}} one\n}";
const std::string noteTwo = "{\\footnote\\pard\\plain {\\super{\\chftn}} two\n}";
const std::string markOne = "{\\super{\\chftn}" + noteOne + "}";
const std::string markTwo = "{\\super{\\chftn}" + noteTwo + "}";

} // namespace

TEST_P(RtfNotes, AreWrittenBackAtTheirMarks)
{
    PlainReadDocument read(GetParam().rtf);
    const QByteArray written = RtfWriter::write(read.document());
    EXPECT_TRUE(bodyOf(written).contains(GetParam().written)) << bodyOf(written).constData();
    PlainReadDocument again(written);
    EXPECT_EQ(again.text(), read.text());
    EXPECT_EQ(RtfWriter::write(again.document()).toStdString(), written.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RtfNotes,
    testing::Values(
        NoteRow{"Counted",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super\\chftn}{\\footnote\\pard{\\super\\chftn} n}b\\par}",
                "a{\\super{\\chftn}{\\footnote\\pard\\plain {\\super{\\chftn}} n\n}}b\\par\n"},
        NoteRow{"CountedByTheReader", "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote n}b\\par}",
                "a{\\super{\\chftn}{\\footnote\\pard\\plain {\\super{\\chftn}} n\n}}b\\par\n"},
        NoteRow{"WithAMarkOfItsOwn",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super *}{\\footnote{\\super *}n}b\\par}",
                "a{\\super *{\\footnote\\pard\\plain {\\super *}n\n}}b\\par\n"},
        NoteRow{"WithAPictureForAMark",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super{\\pict\\wbitmap0 cf}}{\\footnote n}b\\par}",
                "a{\\super{\\pict\\wbitmap0 cf}{\\footnote\\pard\\plain n\n}}b\\par\n"},
        NoteRow{
            "WithAMarkThatIsNotThatOfTheNext",
            "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super *}{\\footnote m}{\\footnote n}b\\par}",
            "a{\\super *{\\footnote\\pard\\plain m\n}{\\chftn}{\\footnote\\pard\\plain {\\super{\\chftn}} "
            "n\n}}b\\par\n"},
        NoteRow{"AtTheEndOfTheText", "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote\\ftnalt n}b\\par}",
                "{\\footnote\\ftnalt\\pard\\plain {\\super{\\chftn}} n\n}"},
        NoteRow{"OfSeveralParagraphs",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote\\qc m\\par\\pard n\\par}b\\par}",
                "{\\footnote\\pard\\plain \\pard\\qc{\\super{\\chftn}} m\\par\n\\pard n\n}"},
        NoteRow{"WithAnEmptyLastParagraph", "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote n\\par\\par}b\\par}",
                " n\\par\n\\par\n}}b\\par\n"},
        NoteRow{"WithAnEmptyFirstParagraph", "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote\\par n}b\\par}",
                "a{\\super{\\chftn}{\\footnote\\pard\\plain \\par\n{\\super{\\chftn}} n\n}}b\\par\n"},
        NoteRow{"InLoweredText", "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\dn6 a{\\footnote n}}b\\par}",
                "{\\dn6 a}{\\super{\\chftn}{\\footnote\\pard\\plain {\\super{\\chftn}} n\n}}b\\par\n"},
        NoteRow{"WithOneMarkForTwo",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super\\chftn\\chftn}{\\footnote n}b\\par}",
                "a{\\super 11{\\footnote\\pard\\plain {\\super 1} n\n}}b\\par\n"},
        NoteRow{"WithATable",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote m\\par\\trowd\\cellx1000\\intbl "
                "c\\cell\\row\\pard n}b\\par}",
                " m\\par\n\\trowd\\cellx1000\n\\pard\\intbl c\\cell\n\\row\n\\pard n\n}}b\\par\n"},
        NoteRow{"WithTwoTables",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote "
                "m{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx900\\intbl c\\cell\\row}}}"
                "\\trowd\\cellx900\\intbl d\\cell\\row\\pard n}b\\par}",
                " d\\cell\n\\row\n\\pard n\n}}b\\par\n"},
        NoteRow{"WithATableThatLacksCells",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote m\\par\\trowd\\cellx1000\\cellx2000\\intbl "
                "c\\cell\\row\\pard n}b\\par}",
                "\\pard\\intbl c\\cell\n\\cell\n\\row\n\\pard n\n}}b\\par\n"},
        NoteRow{"ThatBeginsWithATable",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\super *}{\\footnote\\trowd\\cellx1000\\intbl "
                "c\\cell\\row\\pard n}b\\par}",
                "{\\footnote\\pard\\plain \\par\n\\trowd\\cellx1000\n\\pard\\intbl c\\cell\n\\row\n\\pard "
                "n\n}}b\\par\n"},
        NoteRow{
            "WithAShape",
            "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote m{\\shp{\\*\\shpinst{\\shptxt s\\par}}}n}b\\par}",
            " m\\par\ns\\par\nn\n}}b\\par\n"},
        NoteRow{"InATable",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\trowd\\cellx1000\\intbl a{\\footnote n}\\cell\\row\\pard "
                "b\\par}",
                "\\pard\\intbl a{\\super{\\chftn}{\\footnote\\pard\\plain {\\super{\\chftn}} n\n}\\cell}\n"},
        NoteRow{"InAnInnerTable",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\pard\\intbl\\itap2 a{\\footnote n}b\\nestcell"
                "{\\*\\nesttableprops\\trowd\\cellx30\\nestrow}"
                "\\pard\\intbl\\cell\\trowd\\cellx99\\row\\pard x\\par}",
                "a{\\super{\\chftn}{\\footnote\\pard\\plain {\\super{\\chftn}} n\n}}b\\nestcell"},
        NoteRow{"InANote", "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote m{\\footnote n}}b\\par}",
                " m{\\super 2{\\footnote\\pard\\plain {\\super 2} n\n}}\n}}b\\par\n"},
        NoteRow{"InANoteBehindRaisedText",
                "{\\rtf1{\\fonttbl{\\f0 Arial;}}a{\\footnote {\\chftn\\chftn\\footnote\\par\\chftn}}b\\par}",
                "{\\super 112{\\footnote\\pard\\plain \\par\n{\\super 2}\n}}\n}"}),
    rowName);

TEST_F(RtfNotesEdited, StayWithTheirMarks)
{
    EXPECT_EQ(written(), "a" + markOne + "b\\par\n\\pard c" + markTwo + "d\\par\n");
}

TEST_F(RtfNotesEdited, HaveWhatIsWrittenIntoThem)
{
    select(QStringLiteral("one"));
    cursor.clearSelection();
    cursor.insertText(QStringLiteral(" x"));
    cursor.insertBlock();
    cursor.insertText(QStringLiteral("y"));
    EXPECT_NE(written().find("{\\super{\\chftn}} one x\\par\ny\n}}b\\par\n"), std::string::npos) << written();
}

TEST_F(RtfNotesEdited, AreTextWithoutTheirMarks)
{
    cursor.setPosition(1);
    cursor.deleteChar();
    EXPECT_EQ(written(), "ab\\par\nc" + markTwo + "d\\par\n\\pard{\\super 1} one\\par\n");
}

TEST_F(RtfNotesEdited, AreGoneWithTheirText)
{
    select(QStringLiteral("one"));
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    EXPECT_EQ(written(), "a{\\super 1}b\\par\nc" + markTwo + "d\\par\n");
}

TEST_F(RtfNotesEdited, AreNotCountedWhereTheMarkWasChanged)
{
    cursor.setPosition(2);
    cursor.insertText(QStringLiteral("x"), read.formatOf(QStringLiteral("1")));
    EXPECT_EQ(written(), "a{\\super 1x{\\footnote\\pard\\plain {\\super 1} one\n}}b\\par\n\\pard c" +
                             markTwo + "d\\par\n");
}

TEST_F(RtfNotesEdited, AreNotCountedWhereTheirTextHasNoNumber)
{
    select(QStringLiteral("1 one"));
    cursor.setPosition(cursor.selectionStart());
    cursor.deleteChar();
    EXPECT_EQ(written(),
              "a{\\super 1{\\footnote\\pard\\plain  one\n}}b\\par\n\\pard c" + markTwo + "d\\par\n");
}

TEST_F(RtfNotesEdited, AreTextWhereTheMarkIsNotRaised)
{
    cursor.setPosition(1);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    QTextCharFormat plain;
    plain.setVerticalAlignment(QTextCharFormat::AlignNormal);
    cursor.mergeCharFormat(plain);
    cursor.insertText(QStringLiteral("x"));
    EXPECT_EQ(written(), "axb\\par\nc" + markTwo + "d\\par\n\\pard{\\super 1} one\\par\n");
}

TEST_F(RtfNotesEdited, BelongToTheFirstMarkOfSeveral)
{
    cursor.setPosition(0);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    const QTextDocumentFragment copy = cursor.selection();
    cursor.setPosition(0);
    cursor.insertFragment(copy);
    EXPECT_EQ(written(), "a" + markOne + "ba{\\super 1}b\\par\n\\pard c" + markTwo + "d\\par\n");
}

TEST_F(RtfNotesEdited, AreOnceWhereTheirTextIsCopied)
{
    select(QStringLiteral("one"));
    cursor.select(QTextCursor::BlockUnderCursor);
    const QTextDocumentFragment copy = cursor.selection();
    cursor.movePosition(QTextCursor::End);
    cursor.insertFragment(copy);
    EXPECT_EQ(written(),
              "a" + markOne + "b\\par\n\\pard c" + markTwo + "d\\par\n\\pard{\\super 1} one\\par\n");
}

TEST_F(RtfNotesEdited, AreTextInASelection)
{
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    EXPECT_EQ(bodyOf(RtfWriter::writeSelection(cursor)).toStdString(), "a{\\super 1}b");
}
