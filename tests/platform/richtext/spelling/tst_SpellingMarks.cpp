#include "PrintQt.h"
#include "RichTextFixture.h"
#include "ScratchDictionary.h"
#include "Spellers.h"

#include <QContextMenuEvent>
#include <QMenu>

namespace {

/// The number of French as spoken in Monaco, of which no machine has a dictionary.
constexpr char language[] = "\\lang6156";

class SpellingMarksTest : public RichTextFixture
{
protected:
    ScratchHome home;

    void SetUp() override
    {
        addDictionary(home, QStringLiteral("fr_MC"), "UTF-8", {"maison", "rouge", "la"});
        box.setSpellingMarks(true);
        open("la maison rouge");
        show();
        if (!Spellers::shared().of(QStringLiteral("fr_MC"))) {
            ASSERT_TRUE(QSignalSpy(&Spellers::shared(), &Spellers::loaded).wait(20000));
        }
    }
    void open(const QByteArray &text)
    {
        box.setTextRTF(QByteArray("{\\rtf1\\ansi ") + language + ' ' + text + '}');
    }
    QStringList marked()
    {
        box.viewport()->repaint();
        QStringList words;
        for (const QTextEdit::ExtraSelection &mark : box.extraSelections()) {
            if (mark.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
                words.append(mark.cursor.selectedText());
        }
        return words;
    }
    /// The items of the context menu at \a position before the first separator; \a choose is triggered.
    QStringList menuAt(int position, const QString &choose = {})
    {
        const QPoint point = pointAt(position);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, box.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(box.viewport(), &event);
        auto *menu = box.findChild<QMenu *>();
        QStringList texts;
        for (QAction *item : menu->actions()) {
            if (item->isSeparator())
                break;
            texts.append(item->text());
            if (item->text() == choose)
                item->trigger();
        }
        menu->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return texts;
    }
};

} // namespace

TEST_F(SpellingMarksTest, UnknownWordsAreUnderlinedAndTheDocumentStays)
{
    open("la masion rouge, la maison roug");
    const QByteArray before = box.TextRTF();
    EXPECT_EQ(marked(), QStringList({QStringLiteral("masion"), QStringLiteral("roug")}));
    EXPECT_EQ(box.TextRTF(), before);
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST_F(SpellingMarksTest, AddressesNumbersAndSignsArePassedOver)
{
    open("la2 12 x http://masion.example/roug masion@roug.example ...");
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(SpellingMarksTest, TextOfALanguageWithoutDictionaryIsPassedOver)
{
    open("masion {\\lang1024 masion} {\\lang1125 masion} roug");
    EXPECT_EQ(marked(), QStringList({QStringLiteral("masion"), QStringLiteral("roug")}));
}

TEST_F(SpellingMarksTest, TheWordThatIsTypedIsLeftInPeace)
{
    box.setSelStart(15);
    QTest::keyClicks(&box, QStringLiteral(" ro"));
    EXPECT_EQ(marked(), QStringList());
    QTest::keyClicks(&box, QStringLiteral(" la"));
    EXPECT_EQ(marked(), QStringList(QStringLiteral("ro")));
}

TEST_F(SpellingMarksTest, ALockedTextIsNotMarked)
{
    open("masion la");
    box.setLocked(true);
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(SpellingMarksTest, MarksGoWhenTheyAreSwitchedOff)
{
    open("masion la");
    ASSERT_EQ(marked().size(), 1);
    box.setSpellingMarks(false);
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(SpellingMarksTest, TheContextMenuOffersBetterWordsFirst)
{
    open("la {\\b masion} rouge");
    const QStringList offered = menuAt(5, QStringLiteral("maison"));
    EXPECT_EQ(offered, QStringList(QStringLiteral("maison")));
    EXPECT_EQ(box.Text(), QStringLiteral("la maison rouge"));
    select(3, 9);
    EXPECT_EQ(box.SelBold(), true);
    box.undo();
    EXPECT_EQ(box.Text(), QStringLiteral("la masion rouge"));
}

TEST_F(SpellingMarksTest, TheContextMenuOfAKnownWordIsTheUsualOne)
{
    EXPECT_FALSE(menuAt(5).contains(QStringLiteral("maison")));
}
