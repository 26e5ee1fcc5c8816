#include "Files.h"
#include "RichTextFile.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "SameDocument.h"

#include <QDir>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

const QString folder = QStringLiteral(QUILL_TEST_DATA "/rtf/");

std::vector<std::string> samples()
{
    std::vector<std::string> names;
    const QStringList files = QDir(folder).entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        names.push_back(file.chopped(4).toStdString());
    return names;
}

std::string sampleName(const testing::TestParamInfo<std::string> &info)
{
    return QString::fromStdString(info.param).replace(u'-', u'_').toStdString();
}

struct RtfSample : testing::TestWithParam<std::string>
{
    RtfSample() { RtfReader::read(Files::read(path(".rtf")), document); }
    static QString path(const char *ending)
    {
        return folder + QString::fromStdString(GetParam()) + QLatin1String(ending);
    }

    QTextDocument document;
};

struct RtfHtml : testing::TestWithParam<const char *>
{
    RtfHtml() { document.setHtml(QString::fromUtf8(GetParam())); }

    QTextDocument document;
};

/// Reads what \a document is written as into \a again and returns those bytes.
QByteArray readBack(const QTextDocument &document, QTextDocument &again)
{
    const QByteArray bytes = RtfWriter::write(document);
    RtfReader::read(bytes, again);
    return bytes;
}

} // namespace

TEST_P(RtfSample, HasItsText)
{
    const QString expected = QString::fromUtf8(Files::read(path(".txt")));
    EXPECT_EQ((RichTextFile::text(document) + u'\n').toStdString(), expected.toStdString());
}

TEST_P(RtfSample, ComesBackAsItWasWritten)
{
    QTextDocument again;
    readBack(document, again);
    EXPECT_EQ(firstDifference(document, again).toStdString(), std::string());
}

TEST_P(RtfSample, IsWrittenAlikeTheSecondTime)
{
    QTextDocument again;
    const QByteArray bytes = readBack(document, again);
    EXPECT_EQ(bytes.toStdString(), RtfWriter::write(again).toStdString());
}

INSTANTIATE_TEST_SUITE_P(Samples, RtfSample, testing::ValuesIn(samples()), sampleName);

TEST_P(RtfHtml, KeepsItsText)
{
    QTextDocument again;
    readBack(document, again);
    EXPECT_EQ(RichTextFile::text(document).toStdString(), RichTextFile::text(again).toStdString());
}

TEST_P(RtfHtml, IsWrittenAlikeTheSecondTime)
{
    QTextDocument again;
    const QByteArray bytes = readBack(document, again);
    EXPECT_EQ(bytes.toStdString(), RtfWriter::write(again).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Pasted, RtfHtml,
    testing::Values("", "plain", "<p>one</p><p></p><p>three</p>",
                    "<h1>Big</h1><p>a <b>b</b> <i>c</i> <u>d</u> <s>e</s> <sub>f</sub> <sup>g</sup></p>",
                    "<p style='font-family:Courier New;font-size:9pt;color:red;background:yellow'>x</p>",
                    "<p align=center>a</p><p align=right dir=rtl>ב</p><p align=justify>c</p>",
                    "<ul><li>a<li>b<ul><li>c</ul></ul><ol><li>d<ol type=a><li>e</ol><li>f</ol>",
                    "<ul style='list-style-type:none'><li>a</ul>", "<ol start=1 type=I><li><li>x</ol>",
                    "<table border=1><tr><td>a<td>b<tr><td>c<td>d</table>",
                    "<table><tr><td colspan=2>a<td rowspan=2>b<tr><td>c<td>d</table>x<table><tr><td></table>",
                    "<table border=1><tr><td bgcolor=red><td><table border=1><tr><td>in</table></table>",
                    "<table width=50% align=right cellpadding=3><tr><td width=30>a<td>b</table>",
                    "<p>a <a href='https://garden.example/?a=\"b\"&c'>link</a><a href='#x'>y</a> b</p>",
                    "<p>a\u00a0b&shy;c\u2011d\u2028e\tf 😀 {\\}</p>", "<pre>a\n  b\tc</pre><hr>end",
                    "<div style='margin:10px;text-indent:5px;line-height:150%;background:#eee'>x</div>"));
