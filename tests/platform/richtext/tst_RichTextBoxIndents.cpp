#include "RichTextFixture.h"
#include "ScratchHome.h"

#include <QRandomGenerator>
#include <array>

namespace {

/// What was last set on a paragraph.
struct Paragraph
{
    int indent = 0;
    int rightIndent = 0;
    bool bullet = false;
};

/// Indents, right indents, bullets, saves and loads in an order drawn at random.
class Indents : public RichTextFixture, public ::testing::WithParamInterface<int>
{
protected:
    Indents() { box.setText(QStringLiteral("one\ntwo\nthree\nfour\nfive")); }

    int random(int below) { return m_random.bounded(below); }
    int length()
    {
        static constexpr std::array lengths = {0, 1, 5, 7, 15, 240, 245, 500, 567, 1440, -5, -300};
        return lengths.at(size_t(random(int(lengths.size()))));
    }
    void selectFrom(int first, int last)
    {
        select(paragraph(first).position(), paragraph(last).position() + paragraph(last).length() - 1);
    }
    template<class Change>
    void change(Change change)
    {
        const int first = random(count);
        const int last = first + random(count - first);
        selectFrom(first, last);
        for (int i = first; i <= last; ++i)
            change(m_expected.at(size_t(i)));
    }
    void step()
    {
        const int value = length();
        switch (random(6)) {
        case 0:
            change([&](Paragraph &paragraph) { paragraph.indent = value; });
            box.setSelIndent(value);
            break;
        case 1:
            change([&](Paragraph &paragraph) { paragraph.rightIndent = value; });
            box.setSelRightIndent(value);
            break;
        case 2:
            box.setBulletIndent(qMax(0, value));
            change([&](Paragraph &paragraph) { paragraph.bullet = true; });
            box.setSelBullet(true);
            break;
        case 3:
            change([&](Paragraph &paragraph) { paragraph.bullet = false; });
            box.setSelBullet(false);
            break;
        case 4:
            box.setTextRTF(box.TextRTF());
            break;
        default:
            box.SaveFile(m_home.file(QStringLiteral("indents.rtf")), RichTextFile::Format::Rtf);
            box.LoadFile(m_home.file(QStringLiteral("indents.rtf")));
            break;
        }
    }
    void expectWhatWasSet()
    {
        for (int i = 0; i < count; ++i) {
            SCOPED_TRACE(i);
            selectFrom(i, i);
            const Paragraph &expected = m_expected.at(size_t(i));
            ASSERT_EQ(box.SelIndent(), expected.indent);
            ASSERT_EQ(box.SelRightIndent(), expected.rightIndent);
            ASSERT_EQ(box.SelBullet(), expected.bullet);
        }
    }

    static constexpr int count = 5;

private:
    QRandomGenerator m_random{quint32(GetParam())};
    std::array<Paragraph, count> m_expected;
    ScratchHome m_home;
};

using IndentsAtZero = RichTextFixture;

} // namespace

TEST_P(Indents, StayAsLastSet)
{
    constexpr int steps = 60;
    for (int i = 0; i < steps && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        step();
        expectWhatWasSet();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Indents, ::testing::Range(1, 21));

TEST_F(IndentsAtZero, AnIndentGoesBackToZero)
{
    box.setSelIndent(500);
    box.setSelIndent(0);
    EXPECT_EQ(box.SelIndent(), 0);
    box.setSelRightIndent(500);
    box.setSelRightIndent(0);
    EXPECT_EQ(box.SelRightIndent(), 0);
    EXPECT_EQ(paragraph(0).blockFormat().leftMargin(), 0);
    EXPECT_EQ(paragraph(0).blockFormat().rightMargin(), 0);
    EXPECT_FALSE(box.TextRTF().contains("\\li"));
    EXPECT_FALSE(box.TextRTF().contains("\\ri"));
}

TEST_F(IndentsAtZero, ABulletLeavesNoIndent)
{
    const QByteArray before = box.TextRTF();
    box.setSelBullet(true);
    box.setSelBullet(false);
    EXPECT_EQ(box.SelIndent(), 0);
    EXPECT_EQ(box.TextRTF(), before);
}

TEST_F(IndentsAtZero, ABulletMovesByItsIndentAlone)
{
    box.setText(QStringLiteral("item"));
    box.setSelBullet(true);
    const double before = paragraph(0).blockFormat().leftMargin();
    box.setBulletIndent(5);
    box.applyBulletIndent();
    EXPECT_EQ(box.SelIndent(), 0);
    EXPECT_NEAR(paragraph(0).blockFormat().leftMargin(), before, 1);
    EXPECT_TRUE(box.TextRTF().contains("\\fi-245\\li245")) << box.TextRTF().toStdString();
}
