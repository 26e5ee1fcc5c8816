#include "TypingFixture.h"

#include <QRandomGenerator>

namespace {

constexpr int rounds = 150;

/// Edits at random, each compared with the plain view, for each of many seeds.
class RandomTyping : public TypingFixture, public ::testing::WithParamInterface<int>
{
protected:
    int random(int bound) { return int(m_random.bounded(bound)); }

    /// A place in the text, mostly in view.
    int position()
    {
        const QTextDocument &document = *plain.document();
        if (random(15) == 0)
            return random(document.characterCount() / 2); // where paragraphs enough are below
        const QPointF point(random(400), viewTop() + random(300));
        return document.documentLayout()->hitTest(point, Qt::FuzzyHit);
    }
    QString text()
    {
        const QStringList texts = {
            QStringLiteral("x"),          QStringLiteral(" "),
            QStringLiteral("Wide words"), QStringLiteral("a longer text that wraps ").repeated(3),
            QStringLiteral("one\ntwo"),   QString(QChar::LineSeparator)};
        return texts.at(random(int(texts.size())));
    }
    void scrollSomewhere()
    {
        scrollTo(random(3) == 0 ? random(plain.verticalScrollBar()->maximum() / 2)
                                : viewTop() + random(400) - 200);
    }
    void format(int first)
    {
        const int end = qMin(first + random(100), plain.document()->characterCount() - 1);
        QTextCharFormat look;
        look.setFontPointSize(8 + random(10));
        QTextBlockFormat space;
        space.setTopMargin(random(10));
        space.setBottomMargin(random(10));
        edit(first, end, [&](QTextCursor &cursor) {
            cursor.mergeCharFormat(look);
            cursor.mergeBlockFormat(space);
        });
    }
    void editSomehow()
    {
        const int first = position();
        const int last = plain.document()->characterCount() - 1;
        switch (random(16)) {
        case 0:
            scrollSomewhere();
            break;
        case 1:
            format(first);
            break;
        case 2:
            undo();
            break;
        case 3:
            redo();
            break;
        case 4:
            remove(first, qMin(last, first + random(150)));
            break;
        case 5:
            edit(first, first, [](QTextCursor &cursor) { cursor.createList(QTextListFormat::ListDecimal); });
            break;
        case 6:
        case 7:
            splitAt(first);
            break;
        case 8:
        case 9:
        case 10:
            remove(first, qMin(last, first + 1));
            break;
        default:
            type(first, text());
            break;
        }
    }
    void run(int perTable, const QString &word = QStringLiteral("some words "))
    {
        open(perTable, word);
        compare();
    }
    void compare()
    {
        int timesBehind = 0;
        for (int i = 0; i < rounds && !HasFailure(); ++i) {
            SCOPED_TRACE(i);
            editSomehow();
            timesBehind += isBehind() ? 1 : 0;
            if (random(2) == 0)
                expectSameView();
            expectSameHit(QPointF(random(400), viewTop() + random(300)));
            expectSameCaret(position());
            if (random(50) == 0)
                expectSameLayout();
        }
        expectSameView();
        expectSameLayout();
        if (QuickLayout::isAvailable() && !HasFailure()) { // which ends the rounds early
            EXPECT_GT(timesBehind, rounds / 10);
        }
    }

private:
    QRandomGenerator m_random{quint32(GetParam())};
};

} // namespace

TEST_P(RandomTyping, LooksAsIfLaidOutAtOnce)
{
    run(0);
}

TEST_P(RandomTyping, LooksAsIfLaidOutAtOnceAmongTables)
{
    run(60);
}

TEST_P(RandomTyping, LooksAsIfLaidOutAtOnceFromTheRight)
{
    run(60, QStringLiteral("\u05E9\u05DC\u05D5\u05DD or "));
}

TEST_P(RandomTyping, LooksAsIfLaidOutAtOnceInAWideDocument)
{
    open(60);
    edit(viewTop() + 100, viewTop() + 100, [](QTextCursor &cursor) {
        QTextBlockFormat format;
        format.setNonBreakableLines(true);
        cursor.mergeBlockFormat(format);
        cursor.insertText(QStringLiteral("a wide line ").repeated(10));
    });
    compare();
}

class RandomTypingInTables : public RandomTyping
{};

TEST_P(RandomTypingInTables, LooksAsIfLaidOutAtOnce)
{
    run(8);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTyping, ::testing::Range(0, 2));
INSTANTIATE_TEST_SUITE_P(Seeds, RandomTypingInTables, ::testing::Range(1, 4));
