#include "Files.h"
#include "RichTextBox.h"
#include "ScratchHome.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTextTable>
#include <gtest/gtest.h>

namespace {

struct WordProcessor
{
    const char *program;
    QStringList (*arguments)(const QString &in, const QString &folder);
};

const WordProcessor wordProcessors[] = {
    {"abiword",
     [](const QString &in, const QString &folder) {
         return QStringList{QStringLiteral("--to=rtf"), QStringLiteral("-o"),
                            folder + QStringLiteral("/in.rtf"), in};
     }},
    {"soffice",
     [](const QString &in, const QString &folder) {
         return QStringList{QStringLiteral("--headless"),
                            QStringLiteral("--convert-to"),
                            QStringLiteral("rtf"),
                            QStringLiteral("--outdir"),
                            folder,
                            in};
     }},
};

/// A document with every formatting, saved here, opened and saved again by another word processor, and opened
/// here again.
struct RichTextBoxInterop : testing::TestWithParam<WordProcessor>
{
    ScratchHome home;
    RichTextBox written;
    RichTextBox returned;

    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QString::fromLatin1(GetParam().program)).isEmpty())
            GTEST_SKIP() << GetParam().program << " is not installed";
    }

    void add(const char *words) { written.setSelText(QString::fromUtf8(words)); }
    void endParagraph()
    {
        written.setSelText(QStringLiteral("\n"));
        written.setSelAlignment(0);
        written.setSelBullet(false);
        written.setSelIndent(0);
        written.setSelRightIndent(0);
    }
    void writeStyles();
    void writeScripts();
    void writeParagraphs();
    void writeTable();
    void sendRound();
};

QString of(const std::optional<bool> &state, const char *word)
{
    return state == true ? QString::fromLatin1(word) : QString();
}

/// One line for each character: the character, what it looks like, and its paragraph.
QStringList described(RichTextBox &text)
{
    constexpr int twipsToPoint = 20;
    QStringList lines;
    const QString characters = text.Text();
    for (int i = 0; i < characters.size(); ++i) {
        if (characters[i] == u'\n' || characters[i] == QChar::ObjectReplacementCharacter)
            continue;
        text.setSelStart(i);
        text.setSelLength(1);
        lines << QStringList{characters.mid(i, 1),
                             text.SelFontName().value_or(QString()),
                             QString::number(text.SelFontSize().value_or(0)),
                             of(text.SelBold(), "bold"),
                             of(text.SelItalic(), "italic"),
                             of(text.SelUnderline(), "underline"),
                             of(text.SelStrikeThru(), "struck"),
                             text.SelColor().value_or(QColor()).name(),
                             QString::number(text.SelAlignment().value_or(-1)),
                             of(text.SelBullet(), "bullet"),
                             QString::number(text.SelIndent().value_or(0) / twipsToPoint),
                             QString::number(text.SelRightIndent().value_or(0) / twipsToPoint)}
                     .join(u' ');
    }
    return lines;
}

/// The first character that came back otherwise; empty when none did.
std::string firstDifference(RichTextBox &returned, RichTextBox &written)
{
    const QStringList back = described(returned);
    const QStringList sent = described(written);
    for (qsizetype i = 0; i < qMax(back.size(), sent.size()); ++i) {
        if (back.value(i) != sent.value(i))
            return QStringLiteral("%1: sent '%2', back '%3'")
                .arg(i)
                .arg(sent.value(i), back.value(i))
                .toStdString();
    }
    return {};
}

} // namespace

void RichTextBoxInterop::writeStyles()
{
    add("plain ");
    written.setSelBold(true);
    add("bold ");
    written.setSelBold(false);
    written.setSelItalic(true);
    add("italic ");
    written.setSelItalic(false);
    written.setSelUnderline(true);
    add("underlined ");
    written.setSelUnderline(false);
    written.setSelStrikeThru(true);
    add("struck ");
    written.setSelStrikeThru(false);
    written.setSelColor(Qt::red);
    add("red ");
    written.setSelColor(Qt::black);
    written.setSelFontName(QStringLiteral("Liberation Serif"));
    written.setSelFontSize(18);
    add("large žluťoučký €");
    written.setSelFontName(QStringLiteral("Liberation Sans"));
    written.setSelFontSize(10);
    endParagraph();
}

void RichTextBoxInterop::writeScripts()
{
    add("before");
    endParagraph();
    written.setSelFontName(QStringLiteral("Liberation Serif"));
    written.setSelFontSize(18);
    written.setSelBold(true);
    add("日本語");
    endParagraph();
    add("שלום");
    endParagraph();
    written.setSelBold(false);
    written.setSelItalic(true);
    add("Latin 日本 語、12 שלום, דג! กา end");
    endParagraph();
    written.setSelAlignment(1);
    add("ימין abc");
    endParagraph();
    written.setSelItalic(false);
    written.setSelFontSize(12);
    add("日本 שלום plain");
}

void RichTextBoxInterop::writeParagraphs()
{
    written.setSelAlignment(2);
    add("centred");
    endParagraph();
    written.setSelAlignment(1);
    add("right");
    endParagraph();
    written.setSelIndent(720);
    written.setSelRightIndent(1440);
    add("indented");
    endParagraph();
    add("after");
}

void RichTextBoxInterop::writeTable()
{
    QTextTable *table = written.textCursor().insertTable(2, 2);
    for (int cell = 0; cell < 4; ++cell)
        table->cellAt(cell / 2, cell % 2)
            .firstCursorPosition()
            .insertText(QStringLiteral("cell %1").arg(cell));
}

void RichTextBoxInterop::sendRound()
{
    const QString in = home.file(QStringLiteral("in.rtf"));
    const QString folder = home.file(QStringLiteral("out"));
    QDir().mkpath(folder);
    written.SaveFile(in, RichTextFile::Format::Rtf);
    QProcess program;
    program.start(QString::fromLatin1(GetParam().program), GetParam().arguments(in, folder));
    constexpr int patience = 100'000; // milliseconds
    ASSERT_TRUE(program.waitForFinished(patience)) << qPrintable(program.errorString());
    returned.LoadFile(folder + QStringLiteral("/in.rtf"));
}

TEST_P(RichTextBoxInterop, StylesComeBackCharacterByCharacter)
{
    writeStyles();
    ASSERT_NO_FATAL_FAILURE(sendRound());
    EXPECT_EQ(firstDifference(returned, written), "");
}

TEST_P(RichTextBoxInterop, OtherScriptsComeBackCharacterByCharacter)
{
    writeScripts();
    ASSERT_NO_FATAL_FAILURE(sendRound());
    EXPECT_EQ(firstDifference(returned, written), "");
}

TEST_P(RichTextBoxInterop, ParagraphsComeBack)
{
    writeParagraphs();
    ASSERT_NO_FATAL_FAILURE(sendRound());
    EXPECT_EQ(firstDifference(returned, written), "");
}

TEST_P(RichTextBoxInterop, BulletsComeBack)
{
    written.setSelBullet(true);
    add("one\ntwo");
    endParagraph();
    add("after");
    ASSERT_NO_FATAL_FAILURE(sendRound());
    EXPECT_EQ(firstDifference(returned, written), "");
}

TEST_P(RichTextBoxInterop, TableAndPictureComeBack)
{
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    written.document()->addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("a")), picture);
    written.textCursor().insertImage(QStringLiteral("a"));
    endParagraph();
    writeTable();
    ASSERT_NO_FATAL_FAILURE(sendRound());
    EXPECT_EQ(firstDifference(returned, written), "");
    EXPECT_TRUE(returned.TextRTF().contains("\\pict"));
    EXPECT_EQ(returned.TextRTF().count("\\row"), 2);
}

INSTANTIATE_TEST_SUITE_P(WordProcessors, RichTextBoxInterop, testing::ValuesIn(wordProcessors),
                         [](const auto &tested) { return std::string(tested.param.program); });
