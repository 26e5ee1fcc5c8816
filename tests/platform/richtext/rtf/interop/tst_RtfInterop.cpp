#include "Files.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "ScratchHome.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <gtest/gtest.h>

namespace {

/// What we write, opened by another word processor.
struct RtfInterop : testing::Test
{
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("abiword")).isEmpty())
            GTEST_SKIP() << "abiword is not installed";
    }

    /// The text that the other program finds, without empty lines and the blanks around each line.
    QStringList linesSeen(const QTextDocument &document) const
    {
        const QString rich = home.file(QStringLiteral("a.rtf"));
        const QString plain = home.file(QStringLiteral("a.txt"));
        Files::write(rich, RtfWriter::write(document));
        QProcess program;
        program.start(QStringLiteral("abiword"),
                      {QStringLiteral("--to=txt"), QStringLiteral("-o"), plain, rich});
        EXPECT_TRUE(program.waitForFinished());
        QStringList lines;
        const QString text = QString::fromUtf8(Files::read(plain));
        for (const QString &line : text.split(u'\n')) {
            if (!line.trimmed().isEmpty())
                lines.append(line.trimmed());
        }
        return lines;
    }

    ScratchHome home;
};

} // namespace

TEST_F(RtfInterop, FindsTheSameParagraphs)
{
    QTextDocument document;
    document.setHtml(
        QString::fromUtf8("<h1>Příliš</h1><p>a <b>b</b> \\{c} 😀 <a href='https://x.example/'>d</a></p>"
                          "<p dir=rtl>שלום</p><ul><li>one<li>two</ul><p>Ж日本</p>"));
    EXPECT_EQ(linesSeen(document).join(u'|').toStdString(), "Příliš|a b \\{c} 😀 d|שלום|one|two|Ж日本");
}

TEST_F(RtfInterop, FindsTheSameCells)
{
    QTextDocument document;
    QTextTable *table = QTextCursor(&document).insertTable(3, 2);
    for (int i = 0; i < 6; ++i)
        table->cellAt(i / 2, i % 2).firstCursorPosition().insertText(QString(QChar(u'a' + i)));
    table->mergeCells(0, 0, 2, 1);
    EXPECT_EQ(linesSeen(document).join(u'|').toStdString(), "a|c|b|d|e|f");
}
