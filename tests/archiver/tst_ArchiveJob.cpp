#include "ArchiveJob.h"
#include "EventGate.h"
#include "FakeFrame.h"
#include "Form.h"
#include "PrintQt.h"
#include "RuntimeError.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

class JobForm : public Form
{
public:
    JobForm()
        : Form(QStringLiteral("frmJob"))
    {
        auto *column = new QVBoxLayout(this);
        for (const char *name : {"cmdFirst", "cmdSecond", "cmdOther"}) {
            auto *button = new QPushButton(QString::fromLatin1(name), this);
            button->setObjectName(QString::fromLatin1(name));
            column->addWidget(button);
        }
        auto *item = new QAction(this);
        item->setObjectName(QStringLiteral("mnuItem"));
    }
    QPushButton &button(const char *name) const { return member<QPushButton>(QString::fromLatin1(name)); }
    QAction &item() const { return member<QAction>(QStringLiteral("mnuItem")); }
};

constexpr std::chrono::seconds longestTest{10};

struct ArchiveJobTest : testing::Test
{
    FakeFrame frame;
    QPointer<JobForm> form = new JobForm;
    ArchiveJob job{*form,
                   {QStringLiteral("cmdFirst"), QStringLiteral("cmdSecond"), QStringLiteral("mnuItem")}};

    ArchiveJobTest()
    {
        form->showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
    }
    ~ArchiveJobTest() override
    {
        if (form)
            form->unload();
    }
};

} // namespace

TEST_F(ArchiveJobTest, ItsCommandsWaitAndTheOthersDoNot)
{
    job.run([this] {
        EXPECT_TRUE(job.isRunning());
        EXPECT_FALSE(form->button("cmdFirst").isEnabled());
        EXPECT_FALSE(form->button("cmdSecond").isEnabled());
        EXPECT_FALSE(form->item().isEnabled());
        EXPECT_TRUE(form->button("cmdOther").isEnabled());
    });
    EXPECT_FALSE(job.isRunning());
    EXPECT_TRUE(form->button("cmdFirst").isEnabled());
    EXPECT_TRUE(form->button("cmdSecond").isEnabled());
    EXPECT_TRUE(form->item().isEnabled());
}

TEST_F(ArchiveJobTest, WhatWasDisabledStaysSo)
{
    form->button("cmdSecond").setEnabled(false);
    form->item().setEnabled(false);
    job.run([] {});
    EXPECT_TRUE(form->button("cmdFirst").isEnabled());
    EXPECT_FALSE(form->button("cmdSecond").isEnabled());
    EXPECT_FALSE(form->item().isEnabled());
}

TEST_F(ArchiveJobTest, TheFocusComesBack)
{
    form->button("cmdSecond").setFocus();
    job.run([this] { EXPECT_NE(QApplication::focusWidget(), &form->button("cmdSecond")); });
    EXPECT_EQ(QApplication::focusWidget(), &form->button("cmdSecond"));
}

/// As when a dialog has begun the job: the window manager makes the frame the active window a moment later.
TEST_F(ArchiveJobTest, TheFocusComesBackThoughTheWindowIsNotActiveYet)
{
    form->button("cmdSecond").setFocus();
    QWidget dialog;
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    job.run([] {});
    EXPECT_EQ(form->focusWidget(), &form->button("cmdSecond"));
}

TEST_F(ArchiveJobTest, TheFocusStaysWhereTheUserWent)
{
    QWidget other;
    QPushButton button(&other);
    form->button("cmdSecond").setFocus();
    job.run([&] {
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        button.setFocus();
    });
    EXPECT_EQ(QApplication::focusWidget(), &button);
}

TEST_F(ArchiveJobTest, AFailureEndsItToo)
{
    EXPECT_THROW(job.run([] { throw RuntimeError(9); }), RuntimeError);
    EXPECT_FALSE(job.isRunning());
    EXPECT_TRUE(form->button("cmdFirst").isEnabled());
}

TEST_F(ArchiveJobTest, EventsGoThrough)
{
    int events = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, form, [&] { ++events; });
    timer.start(0);
    const QDeadlineTimer deadline(longestTest);
    job.run([&] {
        while (events < 3 && !deadline.hasExpired())
            EXPECT_TRUE(job.letEventsThrough());
    });
    EXPECT_GE(events, 3);
}

/// So that thousands of calls in a moment do not cost more than the job.
TEST_F(ArchiveJobTest, NotWithEachCall)
{
    int events = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, form, [&] { ++events; });
    timer.start(0);
    constexpr int calls = 1000;
    QElapsedTimer time;
    time.start();
    job.run([&] {
        for (int i = 0; i < calls; ++i)
            job.letEventsThrough();
    });
    EXPECT_LE(events, 1 + time.elapsed() / 25); // a moment on a slow machine may be a long one
}

TEST_F(ArchiveJobTest, ClosingTheWindowEndsTheJob)
{
    QTimer::singleShot(0, form, [this] { form->unload(); });
    run([this] { // as every handler does, so that the window lives on until it has returned
        const QDeadlineTimer deadline(longestTest);
        job.run([&] {
            while (job.letEventsThrough() && !deadline.hasExpired())
                EXPECT_TRUE(form->isLoaded());
        });
        EXPECT_FALSE(deadline.hasExpired());
        EXPECT_FALSE(form->isLoaded());
    });
    QTest::qWait(0);
    EXPECT_FALSE(form);
}
