#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "ScratchSnapper.h"
#include "Snapper.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {

struct SnapperTest : testing::Test
{
    /// Each snapshot on a line.
    static QString listed()
    {
        QStringList lines;
        for (const Snapper::Snapshot &snapshot : Snapper::list())
            lines << QStringLiteral("%1 %2 %3")
                         .arg(snapshot.number)
                         .arg(snapshot.time.toString(QStringLiteral("yyyyMMdd-HHmmss")),
                              snapshot.description);
        return lines.join(u'\n');
    }
    static QString refusal()
    {
        try {
            Snapper::create(QStringLiteral("a"));
        } catch (const RuntimeError &error) {
            return QStringLiteral("%1 %2").arg(error.number()).arg(error.description());
        }
        return QStringLiteral("none");
    }

    ScratchSnapper snapper;
};

} // namespace

TEST_F(SnapperTest, ListsSnapshotsInItsOrderWithoutThePresentState)
{
    snapper.answer("list", "number,date,description\n0,,current\n12,2026-11-20 23:51:09,second\n"
                           "3,2026-01-02 03:04:05,\"first, \"\"quoted\"\"\"\n");
    EXPECT_EQ(listed(), QStringLiteral("12 20261120-235109 second\n3 20260102-030405 first, \"quoted\""));
    EXPECT_EQ(snapper.calls(),
              QStringList(QStringLiteral("--machine-readable|csv|--config|root|list|--columns|"
                                         "number,date,description")));
}

TEST_F(SnapperTest, MayHaveNone)
{
    EXPECT_EQ(listed(), QString());
}

TEST_F(SnapperTest, TakesTheOnlyConfigurationOrTheUsualOne)
{
    snapper.answer("list-configs", "config,subvolume\nhome,/home\n");
    Snapper::create(QStringLiteral("a"));
    snapper.answer("list-configs", "config,subvolume\nhome,/home\nroot,/\n");
    Snapper::create(QStringLiteral("a"));
    snapper.answer("list-configs", "config,subvolume\n");
    Snapper::create(QStringLiteral("a"));
    const QString call = QStringLiteral("--config|%1|create|--type|single|--description|a");
    EXPECT_EQ(snapper.calls(),
              QStringList({call.arg(QStringLiteral("home")), call.arg(QStringLiteral("root")),
                           call.arg(QStringLiteral("root"))}));
}

TEST_F(SnapperTest, TakesAnyTextForADescription)
{
    for (const char *text : {"  ", "--help", "a 'b' \"c\" $(d) `e`; f", "\xc3\xa9"}) {
        Snapper::create(QString::fromUtf8(text));
        EXPECT_EQ(snapper.calls().last(),
                  QStringLiteral("--config|root|create|--type|single|--description|") +
                      QString::fromUtf8(text));
    }
}

TEST_F(SnapperTest, SaysWhyItRefuses)
{
    snapper.answer("create", {}, 1, "No permissions.\n");
    EXPECT_EQ(refusal(), QStringLiteral("-2147217407 No permissions."));
    snapper.answer("create", {}, 1, QByteArray(100'000, 'x'));
    EXPECT_EQ(refusal(), QStringLiteral("-2147217407 ") + QString(300, u'x'));
    snapper.answer("create", {}, 1, "a\x1b[1mb\nc");
    EXPECT_EQ(refusal(), QStringLiteral("-2147217407 a\uFFFD[1mb\uFFFDc"));
}

TEST_F(SnapperTest, ThatDiesIsAnError)
{
    snapper.runs("create", "kill -9 $$\n");
    EXPECT_EQ(refusal(), QStringLiteral("-2147217407 snapper did not answer."));
}

TEST_F(SnapperTest, ThatTalksWithoutAnEndIsEnded)
{
    snapper.runs("create", "exec yes\n");
    EXPECT_EQ(refusal(), QStringLiteral("-2147217407 snapper did not answer."));
}

TEST_F(SnapperTest, ThatIsMissingIsAnError)
{
    snapper.uninstall();
    EXPECT_EQ(refusal(),
              QStringLiteral("429 Restore points need the program \"snapper\", which is not installed."));
    EXPECT_EQ(errorNumberOf([] { Snapper::list(); }), 429);
}

TEST_F(SnapperTest, EventsRunMeanwhile)
{
    QTimer::singleShot(0, [this] { snapper.runs("go", {}); });
    snapper.runs("create", "while [ ! -e \"$folder/go.sh\" ]; do sleep 0.01; done\n");
    EXPECT_EQ(refusal(), QStringLiteral("none"));
}
