#include "EventGate.h"
#include "FatalErrors.h"
#include "PrintQt.h"
#include "RuntimeError.h"

#include <QCoreApplication>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

constexpr int mismatch = ErrorNumber::TypeMismatch;

[[noreturn]] void failStep()
{
    throw RuntimeError(mismatch);
}

struct EventGateTest : testing::Test
{
    FatalErrors fatal;
};

/// A control whose key press fails.
struct FailingControl : QWidget
{
    void keyPressEvent(QKeyEvent *) override { run(failStep); }
};

/// An engine that asks its owner through a reference.
class Engine : public QObject
{
    Q_OBJECT

public:
    bool mayGoOn()
    {
        bool cancel = false;
        Q_EMIT progress(50, cancel);
        return !cancel;
    }

Q_SIGNALS:
    void progress(int percent, bool &cancel);
};

struct Receiver : QObject
{
    explicit Receiver(QList<int> &percents)
        : seen(percents)
    {}
    void engine_progress(int percent) { seen << percent; }
    QList<int> &seen;
};

} // namespace

TEST_F(EventGateTest, ReportsAnErrorInAClick)
{
    QPushButton button;
    on(&button, &QPushButton::clicked, &button, failStep);
    fatal.expect(mismatch, QStringLiteral("Type mismatch"));
    button.click();
    EXPECT_EQ(fatal.ends(), QList<int>{EXIT_FAILURE});
}

TEST_F(EventGateTest, ReportsAnErrorInATimer)
{
    QTimer timer;
    timer.setSingleShot(true);
    on(&timer, &QTimer::timeout, &timer, failStep);
    fatal.expect(mismatch);
    timer.start(0);
    EXPECT_TRUE(QSignalSpy(&timer, &QTimer::timeout).wait());
}

TEST_F(EventGateTest, ReportsAnErrorInAQueuedStep)
{
    QObject context;
    QMetaObject::invokeMethod(
        &context, [] { run(failStep); }, Qt::QueuedConnection);
    fatal.expect(mismatch);
    QCoreApplication::sendPostedEvents(&context);
    EXPECT_EQ(fatal.ends().size(), 1);
}

TEST_F(EventGateTest, ReportsAnErrorInAnOverriddenEvent)
{
    FailingControl control;
    fatal.expect(mismatch);
    QTest::keyClick(&control, Qt::Key_A);
}

TEST_F(EventGateTest, ReportsAnErrorInAMenuCommand)
{
    QMenu menu;
    QAction *action = menu.addAction(QStringLiteral("Fail"));
    on(action, &QAction::triggered, &menu, failStep);
    fatal.expect(mismatch);
    menu.setActiveAction(action);
    QTest::keyClick(&menu, Qt::Key_Return);
}

TEST_F(EventGateTest, ReportsAnErrorOfAChangedText)
{
    QTextEdit edit;
    on(&edit, &QTextEdit::textChanged, &edit, failStep);
    fatal.expect(mismatch);
    // Reported where it is thrown, it does not reach the catch of the code that changed the text.
    EXPECT_NO_THROW(edit.setPlainText(QStringLiteral("one")));
    EXPECT_EQ(edit.toPlainText(), QStringLiteral("one"));
}

TEST_F(EventGateTest, ReportsAnErrorOfADestroyedSender)
{
    QObject context;
    auto *sender = new QObject;
    on(sender, &QObject::destroyed, &context, failStep);
    fatal.expect(mismatch);
    delete sender;
}

TEST_F(EventGateTest, AFailureInANestedLoopDoesNotReachTheTrapAroundIt)
{
    QDialog dialog;
    bool caught = false;
    QTimer timer;
    timer.setSingleShot(true);
    on(&timer, &QTimer::timeout, &dialog, [&] {
        dialog.accept();
        failStep();
    });
    timer.start(0);
    fatal.expect(mismatch);
    try {
        dialog.exec();
    } catch (const RuntimeError &) {
        caught = true;
    }
    EXPECT_FALSE(caught);
}

TEST_F(EventGateTest, PaintingGoesOnWhileTheBoxIsUp)
{
    int painted = 0;
    EventGate::setBox([&](int, const QString &) {
        runPainting([&] { ++painted; });
        runPainting([&] {
            ++painted;
            failStep();
        });
    });
    run(failStep);
    EXPECT_EQ(painted, 2);
}

TEST_F(EventGateTest, NoOtherHandlerRunsWhileTheBoxIsUp)
{
    int ran = 0;
    QPushButton failing;
    QPushButton other;
    on(&failing, &QPushButton::clicked, &failing, failStep);
    on(&other, &QPushButton::clicked, &other, [&] { ++ran; });
    int boxes = 0;
    EventGate::setBox([&](int, const QString &) {
        EXPECT_TRUE(EventGate::isBlocked());
        if (++boxes == 1)
            EventGate::fail(mismatch, {});
        other.click();
        failing.click();
        run([&] { ++ran; });
    });
    failing.click();
    EXPECT_EQ(ran, 0);
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(fatal.ends().size(), 1);

    other.click();
    EXPECT_EQ(ran, 1);
}

TEST_F(EventGateTest, GivesAHandlerAsManyArgumentsAsItTakes)
{
    QStandardItemModel model;
    QStringList seen;
    on(&model, &QAbstractItemModel::rowsInserted, &model, [&] { seen << QStringLiteral("none"); });
    on(&model, &QAbstractItemModel::rowsInserted, &model,
       [&](const QModelIndex &parent) { seen << QString::number(parent.isValid()); });
    on(&model, &QAbstractItemModel::rowsInserted, &model, [&](const QModelIndex &, int first, int last) {
        seen << QStringLiteral("%1-%2").arg(first).arg(last);
    });
    model.setRowCount(3);
    EXPECT_EQ(seen, QStringList({QStringLiteral("none"), QStringLiteral("0"), QStringLiteral("0-2")}));
}

TEST_F(EventGateTest, BindsAMemberFunctionUntilItsObjectIsDeleted)
{
    QList<int> seen;
    Engine engine;
    auto receiver = std::make_unique<Receiver>(seen);
    on(&engine, &Engine::progress, receiver.get(), &Receiver::engine_progress);
    engine.mayGoOn();
    EXPECT_EQ(seen, QList<int>{50});
    receiver.reset();
    engine.mayGoOn();
    EXPECT_EQ(seen, QList<int>{50});
}

TEST_F(EventGateTest, AHandlerAnswersThroughAReference)
{
    Engine engine;
    EXPECT_TRUE(engine.mayGoOn());
    on(&engine, &Engine::progress, &engine, [](int percent, bool &cancel) { cancel = percent == 50; });
    EXPECT_FALSE(engine.mayGoOn());
}

TEST_F(EventGateTest, AMemberFunctionAnswersThroughAReference)
{
    struct Owner : QObject
    {
        void engine_progress(int percent, bool &cancel) { cancel = percent == 50; }
    } owner;
    Engine engine;
    on(&engine, &Engine::progress, &owner, &Owner::engine_progress);
    EXPECT_FALSE(engine.mayGoOn());
}

TEST_F(EventGateTest, WhatHasToGoLivesUntilTheHandlerHasReturned)
{
    QPointer<QObject> object = new QObject;
    run([&] {
        RunningHandler::deleteWhenNoneRuns(object);
        processPendingEvents();
        EXPECT_TRUE(object);
        QCoreApplication::processEvents(); // as the loop of a dialog does
        EXPECT_TRUE(object);
    });
    EXPECT_TRUE(object); // the code that called the handler may still need it
    QCoreApplication::processEvents();
    EXPECT_FALSE(object);
}

TEST_F(EventGateTest, WhatHasToGoLivesUntilTheOutermostHandlerHasReturned)
{
    QPointer<QObject> object = new QObject;
    QTimer timer;
    on(&timer, &QTimer::timeout, &timer, [&] {
        timer.stop();
        RunningHandler::deleteWhenNoneRuns(object);
    });
    run([&] {
        timer.start(0);
        while (timer.isActive())
            processPendingEvents();
        processPendingEvents();
        EXPECT_TRUE(object);
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(object);
}

/// A wait that turned round and round would take a whole processor.
TEST_F(EventGateTest, AWaitSleepsUntilThereIsAnEvent)
{
    constexpr int milliseconds = 150;
    bool isOver = false;
    int rounds = 0;
    QTimer::singleShot(milliseconds, [&] { isOver = true; });
    for (; !isOver; ++rounds)
        waitForEvents();
    EXPECT_LT(rounds, 20);
}

TEST_F(EventGateTest, AWaitDoesNotSleepWhileAnEventIsPending)
{
    int handled = 0;
    for (int i = 0; i < 2; ++i)
        QMetaObject::invokeMethod(
            qApp, [&] { ++handled; }, Qt::QueuedConnection);
    while (handled < 2)
        waitForEvents();
    EXPECT_EQ(handled, 2);
}

TEST_F(EventGateTest, NothingIsDeletedDuringAWait)
{
    QPointer<QObject> object = new QObject;
    QTimer::singleShot(0, [&] { RunningHandler::deleteWhenNoneRuns(object); });
    bool isOver = false;
    QTimer::singleShot(20, [&] { isOver = true; });
    run([&] {
        while (!isOver)
            waitForEvents();
        EXPECT_TRUE(object);
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(object);
}

TEST_F(EventGateTest, NoHandlerHasToReturnWhereNoneRuns)
{
    QPointer<QObject> object = new QObject;
    RunningHandler::deleteWhenNoneRuns(object);
    EXPECT_TRUE(object);
    QCoreApplication::processEvents();
    EXPECT_FALSE(object);
}

TEST_F(EventGateTest, AWaitByItselfDeletesNothing)
{
    QPointer<QObject> object = new QObject;
    RunningHandler::deleteWhenNoneRuns(object);
    processPendingEvents();
    EXPECT_TRUE(object);
    QCoreApplication::processEvents();
    EXPECT_FALSE(object);
}

TEST_F(EventGateTest, IgnoresAnObjectThatIsDeletedAlready)
{
    auto *object = new QObject;
    RunningHandler::deleteWhenNoneRuns(object);
    delete object;
    QCoreApplication::processEvents();
}

TEST_F(EventGateTest, AFailedHandlerHasReturnedToo)
{
    QPointer<QObject> object = new QObject;
    fatal.expect(mismatch);
    run([&] {
        RunningHandler::deleteWhenNoneRuns(object);
        failStep();
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(object);
}

TEST_F(EventGateTest, ReportsWhateverWasThrown)
{
    fatal.expect(7, QStringLiteral("Out of memory"));
    fatal.expect(5, QStringLiteral("strange"));
    fatal.expect(5, QStringLiteral("Invalid procedure call or argument"));
    fatal.expect(438, QStringLiteral("own words"));
    run([] { throw std::bad_alloc(); });
    run([] { throw std::runtime_error("strange"); });
    run([] { throw 1; });
    run([] { throw RuntimeError(438, QStringLiteral("own words")); });
}

TEST_F(EventGateTest, EndsWithoutABoxWhenAskedTo)
{
    const QObject context;
    int steps = 0;
    EventGate::beforeEnd(&context, [&] { ++steps; });
    fatal.expectEnd(EXIT_SUCCESS);
    EventGate::end(EXIT_SUCCESS);
    EXPECT_EQ(steps, 1);
    EXPECT_TRUE(fatal.seen().isEmpty());
}

TEST_F(EventGateTest, RunsTheLastStepsBeforeTheBox)
{
    QStringList order;
    const QObject context;
    EventGate::beforeEnd(&context, []() { throw std::runtime_error("ignored"); });
    EventGate::beforeEnd(&context, [&] { order += QStringLiteral("step"); });
    {
        const QObject gone;
        EventGate::beforeEnd(&gone, [&] { order += QStringLiteral("of what is gone"); });
    }
    auto going = std::make_unique<QObject>();
    EventGate::beforeEnd(&context, [&] { going.reset(); });
    EventGate::beforeEnd(going.get(), [&] { order += QStringLiteral("of what an earlier step deletes"); });
    EventGate::setBox([&](int, const QString &) { order += QStringLiteral("box"); });
    EventGate::setEnd([&](int) { order += QStringLiteral("end"); });
    EventGate::fail(ErrorNumber::TypeMismatch, {});
    EXPECT_EQ(order.join(u' '), QStringLiteral("step box end"));
}

TEST(EventGateDeathTest, EndsTheProcess)
{
    EXPECT_EXIT(
        {
            EventGate::setBox(
                [](int number, const QString &) { std::fprintf(stderr, "reported %d\n", number); });
            EventGate::setEnd({});
            run(failStep);
            std::fprintf(stderr, "went on\n");
        },
        testing::ExitedWithCode(EXIT_FAILURE), "reported 13\n$");
}

TEST(EventGateDeathTest, WithoutABoxTheErrorIsPrinted)
{
    EXPECT_EXIT(
        {
            EventGate::setBox([](int, const QString &) {});
            EventGate::setBox({});
            EventGate::setEnd({});
            run(failStep);
        },
        testing::ExitedWithCode(EXIT_FAILURE), "Run-time error '13': Type mismatch\n$");
}

TEST(EventGateDeathTest, ANormalEndLeavesTheLoopAndNoHandlerRunsAnyMore)
{
    EXPECT_EXIT(
        {
            EventGate::setEnd({});
            int ran = 0;
            QTimer timer;
            on(&timer, &QTimer::timeout, &timer, [&] {
                ++ran;
                EventGate::end(EXIT_SUCCESS);
                run([&] { ++ran; });
            });
            timer.start(0);
            const int code = QCoreApplication::exec();
            run([&] { ++ran; });
            std::_Exit(code == EXIT_SUCCESS ? ran : 99);
        },
        testing::ExitedWithCode(1), "");
}

#include "tst_EventGate.moc"
