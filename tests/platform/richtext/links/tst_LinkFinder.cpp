#include "LinkFinder.h"

#include <QTextCursor>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

struct Row
{
    const char *name;
    const char *text;
    const char *link; ///< empty for none
};

class Address : public ::testing::TestWithParam<Row>
{};

QStringList linksOf(const QString &text)
{
    QTextDocument document;
    document.setPlainText(text);
    QStringList links;
    for (const LinkFinder::Link &link : LinkFinder::between(document, 0, document.characterCount()))
        links.append(text.mid(link.first, link.end - link.first));
    return links;
}

} // namespace

TEST_P(Address, IsFoundAsPeopleReadIt)
{
    const QString link = QString::fromUtf8(GetParam().link);
    EXPECT_EQ(linksOf(QString::fromUtf8(GetParam().text)),
              link.isEmpty() ? QStringList() : QStringList(link));
}

INSTANTIATE_TEST_SUITE_P(
    All, Address,
    ::testing::Values(Row{"Http", "a http://example.org b", "http://example.org"},
                      Row{"Https", "https://example.org/a?b=c&d=%20#e", "https://example.org/a?b=c&d=%20#e"},
                      Row{"Ftp", "ftp://example.org/", "ftp://example.org/"},
                      Row{"File", "file:///home/a/b.rtf", "file:///home/a/b.rtf"},
                      Row{"Mailto", "mailto:me@example.org", "mailto:me@example.org"},
                      Row{"Www", "www.example.org/a", "www.example.org/a"},
                      Row{"Mail", "write to first.last+tag@mail.example.org!",
                          "first.last+tag@mail.example.org"},
                      Row{"Capitals", "HTTP://EXAMPLE.ORG", "HTTP://EXAMPLE.ORG"},
                      Row{"Umlauts", "www.müller.example", "www.müller.example"},
                      Row{"FullStop", "www.example.org.", "www.example.org"},
                      Row{"Comma", "www.example.org, and", "www.example.org"},
                      Row{"Question", "www.example.org?", "www.example.org"},
                      Row{"Quotes", "\"www.example.org\"", "www.example.org"},
                      Row{"Angles", "<http://example.org/a>", "http://example.org/a"},
                      Row{"Brackets", "(see www.example.org)", "www.example.org"},
                      Row{"BracketsWithin", "http://example.org/a_(b)", "http://example.org/a_(b)"},
                      Row{"BracketAndStop", "(http://example.org/a).", "http://example.org/a"},
                      Row{"SchemeAlone", "http://", ""}, Row{"WwwAlone", "www.", ""},
                      Row{"MailtoAlone", "mailto:", ""}, Row{"NoDomain", "me@home", ""},
                      Row{"At", "a @ b", ""}, Row{"Word", "awww.example.org", ""},
                      Row{"OtherScheme", "javascript:alert(1)", ""}, Row{"Nothing", "", ""}),
    [](const auto &row) { return row.param.name; });

TEST(LinkFinder, FindsAllOfAParagraph)
{
    EXPECT_EQ(
        linksOf(QStringLiteral("www.a.org www.b.org\nc@d.org")),
        QStringList({QStringLiteral("www.a.org"), QStringLiteral("www.b.org"), QStringLiteral("c@d.org")}));
}

TEST(LinkFinder, LooksOnlyWhereItIsAsked)
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("www.a.org\nwww.b.org\nwww.c.org"));
    const QList<LinkFinder::Link> links = LinkFinder::between(document, 12, 14);
    ASSERT_EQ(links.size(), 1);
    EXPECT_EQ(links.first().first, 10);
    EXPECT_EQ(links.first().end, 19);
}

TEST(LinkFinder, AnAddressEndsBeforeItsEnd)
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("www.a.org b"));
    EXPECT_TRUE(LinkFinder::at(document, 0).has_value());
    EXPECT_TRUE(LinkFinder::at(document, 8).has_value());
    EXPECT_FALSE(LinkFinder::at(document, 9).has_value());
    EXPECT_FALSE(LinkFinder::at(document, 1000).has_value());
}

TEST(LinkFinder, AHyperlinkOfManyFormatsIsOne)
{
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(QStringLiteral("https://example.org"));
    cursor.insertText(QStringLiteral("www."), format);
    format.setFontItalic(true);
    cursor.insertText(QStringLiteral("other.org"), format);
    const QList<LinkFinder::Link> links = LinkFinder::between(document, 0, document.characterCount());
    ASSERT_EQ(links.size(), 1);
    EXPECT_EQ(links.first(), (LinkFinder::Link{0, 13, QStringLiteral("https://example.org")}));
}

TEST(LinkFinder, AParagraphOfMillionsOfSignsTakesNoTime)
{
    QTextDocument document;
    document.setPlainText(QString(5000000, u'a') + QStringLiteral(" www.a.org ") + QString(5000000, u'.'));
    for (int i = 0; i < 100; ++i)
        EXPECT_TRUE(LinkFinder::at(document, 5000003).has_value());
}
