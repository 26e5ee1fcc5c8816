#include "FindWords.h"
#include "LiteralLoop.h"
#include "PrintQt.h"
#include "ReplaceAllPlan.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

struct Job
{
    QString text;
    int start = 0;
    int end = 0;
    QString wanted;
    QString replacement;
    int flags = 0;
};

struct Result
{
    QString text;
    int caret = 0;
    bool operator==(const Result &) const = default;
};

void PrintTo(const Result &result, std::ostream *out)
{
    PrintTo(result.text, out);
    *out << ", caret " << result.caret;
}

void PrintTo(const Job &job, std::ostream *out)
{
    for (const QString &text : {job.text, job.wanted, job.replacement}) {
        PrintTo(text, out);
        *out << ' ';
    }
    *out << job.start << " to " << job.end << ", flags " << job.flags;
}

Result planned(const Job &job)
{
    const auto length = int(job.replacement.size());
    Result result{job.text, job.start + length};
    result.text.replace(job.start, job.end - job.start, job.replacement);
    const auto steps =
        ReplaceAllPlan::after(result.text, job.start, result.caret, job.wanted, job.replacement, job.flags);
    for (const int position : steps.positions) {
        result.text.replace(position, job.wanted.size(), job.replacement);
        result.caret = position + length;
    }
    result.caret = steps.refused.value_or(result.caret);
    return result;
}

LiteralLoop loopOf(const Job &job)
{
    LiteralLoop loop;
    loop.text = job.text;
    loop.selStart = job.start;
    loop.selEnd = job.end;
    return loop;
}

Result calm(const Job &job)
{
    LiteralLoop loop = loopOf(job);
    loop.replaceOriginals(job.wanted, job.replacement, job.flags);
    return {loop.text, loop.selEnd};
}

QString some(QRandomGenerator &random, int least, int most, const QString &letters)
{
    QString text;
    for (int i = least + random.bounded(most - least + 1); i > 0; --i)
        text += letters[random.bounded(int(letters.size()))];
    return text;
}

Job randomJob(QRandomGenerator &random, const QString &letters)
{
    Job job;
    job.text = some(random, 1, 14, letters);
    job.start = random.bounded(int(job.text.size()));
    job.end = job.start + 1 + random.bounded(int(job.text.size()) - job.start);
    job.wanted = some(random, 1, 3, letters);
    job.replacement = some(random, 0, 3, letters);
    job.flags = random.bounded(8);
    return job;
}

bool holdsFindText(const Job &job)
{
    return job.replacement.contains(job.wanted,
                                    job.flags & matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

} // namespace

TEST(ReplaceAllPlan, DoesWhatTheLoopDoes)
{
    constexpr int mostSteps = 300;
    QRandomGenerator random(1);
    int ended = 0;
    int endless = 0;
    for (const QString &letters : {latin("ab"), latin("abA ."), latin("ab .")}) {
        for (int i = 0; i < 5000; ++i) {
            const Job job = randomJob(random, letters);
            LiteralLoop loop = loopOf(job);
            if (loop.replaceAll(job.wanted, job.replacement, job.flags, mostSteps)) {
                ASSERT_EQ(planned(job), (Result{loop.text, loop.selEnd})) << testing::PrintToString(job);
                ++ended;
            } else if (holdsFindText(job)) { // others may end later
                ASSERT_EQ(planned(job), calm(job)) << testing::PrintToString(job);
                ++endless;
            }
        }
    }
    EXPECT_GT(ended, 10000);
    EXPECT_GT(endless, 1000);
}

TEST(ReplaceAllPlan, WhatHoldsTheFindTextIsPutInOnceForEachHit)
{
    const Job job{latin("a b a b a"), 4, 5, latin("a"), latin("aa"), down};
    EXPECT_EQ(planned(job), (Result{latin("aa b aa b aa"), 2}));
    const Job back{job.text, 4, 5, job.wanted, job.replacement, up};
    EXPECT_EQ(planned(back), (Result{latin("aa b aa b aa"), 12}));
}

TEST(ReplaceAllPlan, ACaseIsChangedOnce)
{
    EXPECT_EQ(planned({latin("foo Foo foo"), 0, 3, latin("foo"), latin("Foo"), down}).text,
              latin("Foo Foo Foo"));
}

TEST(ReplaceAllPlan, NewHitsAreReplacedUntilNoneIsLeft)
{
    EXPECT_EQ(planned({latin("a          b"), 1, 3, latin("  "), latin(" "), down}).text, latin("a b"));
    EXPECT_EQ(planned({latin("a          b"), 1, 3, latin("  "), latin(" "), up}).text, latin("a b"));
    EXPECT_EQ(planned({QStringLiteral("a") + QString(60, u'b'), 0, 2, latin("ab"), latin("a"), down}).text,
              latin("a"));
}

TEST(ReplaceAllPlan, ARefusedHitEndsTheRun)
{
    const Job job{latin("cat cat cats cat"), 0, 3, latin("cat"), latin("dog"), down | wholeWord};
    EXPECT_EQ(planned(job), (Result{latin("dog dog cats cat"), 11}));
}

TEST(ReplaceAllPlan, WholeWordsThatHoldTheFindTextEndAtTheRefusedOne)
{
    const Job job{latin("cat cat"), 0, 3, latin("cat"), latin("concat"), down | wholeWord};
    EXPECT_EQ(planned(job), (Result{latin("concat concat"), 6}));
}

TEST(ReplaceAllPlan, TheSelectionIsReplacedWhateverItIs)
{
    EXPECT_EQ(planned({latin("xyz a"), 0, 3, latin("a"), latin("b"), down}), (Result{latin("b b"), 3}));
    EXPECT_EQ(planned({latin("xyz"), 0, 3, latin("nowhere"), latin(""), down}), (Result{latin(""), 0}));
}

TEST(ReplaceAllPlan, ARunThatNearlyNeverEndsIsCutShort)
{
    // The loop would double the text with each letter.
    const Job doubling{QString(64, u'a') + u'b', 63, 65, latin("ab"), latin("bba"), down};
    EXPECT_EQ(planned(doubling), calm(doubling));
    const Job upwards{QStringLiteral("b") + QString(64, u'a'), 0, 2, latin("ba"), latin("abb"), up};
    EXPECT_EQ(planned(upwards), calm(upwards));
}

TEST(ReplaceAllPlan, ACarriageReturnSeparatesWordsAndIsNeverHit)
{
    EXPECT_EQ(planned({latin("x a\ra"), 0, 1, latin("a"), latin("b"), down | wholeWord}).text,
              latin("b b\rb"));
    EXPECT_EQ(planned({latin("x\ry"), 0, 1, latin("\r"), latin("b"), down}).text, latin("b\ry"));
}

TEST(ReplaceAllPlan, ManyHitsAreNoBurden)
{
    constexpr int hits = 500000; // the loop would take an hour
    const QString text = latin("word ").repeated(hits);
    for (const int flags : {down, up, down | matchCase, up | wholeWord}) {
        const auto steps = ReplaceAllPlan::after(text, 0, 0, latin("word"), latin("other"), flags);
        EXPECT_EQ(steps.positions.size(), hits) << flags;
        EXPECT_EQ(steps.positions.constLast(), flags & down ? 6 * (hits - 1) : 0) << flags;
    }
}
