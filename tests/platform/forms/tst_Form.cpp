#include "DialogDriver.h"
#include "ErrorNumberOf.h"
#include "FatalErrors.h"
#include "Forms.h"
#include "PrintQt.h"
#include "ProbeForm.h"
#include "Prompts.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct FormTest : testing::Test
{
    QStringList steps;
    QPointer<ProbeForm> form = new ProbeForm(steps);

    ~FormTest() override { delete form; }

    /// Runs what is left to do once the handlers have returned.
    void settle()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    static QStringList list(const char *text) { return QString::fromLatin1(text).split(u' '); }
};

} // namespace

TEST_F(FormTest, IsLoadedOnce)
{
    EXPECT_FALSE(form->isLoaded());
    form->load();
    form->load();
    form->showModeless();
    EXPECT_TRUE(form->isLoaded());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(steps, list("load"));
    EXPECT_EQ(Forms::loaded(), QList<Form *>{form});
}

TEST_F(FormTest, IsLoadedBeforeItIsSeen)
{
    form->onLoad = [&] { EXPECT_FALSE(form->isVisible()); };
    form->showModeless();
}

TEST_F(FormTest, AFailingLoadReachesTheCallerAndTheWindowStaysLoaded)
{
    form->onLoad = [] { throw RuntimeError(ErrorNumber::FileNotFound); };
    EXPECT_EQ(errorNumberOf([&] { form->showModeless(); }), ErrorNumber::FileNotFound);
    EXPECT_TRUE(form->isLoaded());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Forms::loaded(), QList<Form *>{form});
}

TEST_F(FormTest, AFailingLoadReachesTheCallerOfAModalShow)
{
    form->onLoad = [] { throw RuntimeError(ErrorNumber::FileNotFound); };
    EXPECT_EQ(errorNumberOf([&] { form->showModal(nullptr); }), ErrorNumber::FileNotFound);
}

TEST_F(FormTest, IsUnloadedInOrder)
{
    form->showModeless();
    form->onUnload = [&] { EXPECT_TRUE(Forms::loaded().contains(form)); };
    form->onTerminate = [&] { EXPECT_FALSE(Forms::loaded().contains(form)); };
    EXPECT_TRUE(form->unload());
    ASSERT_TRUE(form); // whoever called is still running in it
    EXPECT_FALSE(form->isVisible());
    settle();
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
}

TEST_F(FormTest, AHiddenWindowIsUnloadedAlike)
{
    form->load();
    EXPECT_TRUE(form->unload());
    settle();
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
}

TEST_F(FormTest, MayKeepItselfOpen)
{
    form->showModeless();
    form->onQueryUnload = [] { return false; };
    EXPECT_FALSE(form->unload());
    EXPECT_FALSE(form->close());
    settle();
    ASSERT_TRUE(form);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->isLoaded());
    EXPECT_EQ(steps, list("load query query"));
    form->onQueryUnload = [] { return true; };
    EXPECT_TRUE(form->unload());
}

TEST_F(FormTest, ClosedByTheWindowSystemItIsUnloaded)
{
    form->showModeless();
    EXPECT_TRUE(form->close());
    settle();
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
    EXPECT_TRUE(Forms::loaded().isEmpty());
}

TEST_F(FormTest, AnUnloadInsideAnUnloadIsTheSameOne)
{
    form->showModeless();
    form->onQueryUnload = [&] { return form->unload(); };
    form->onUnload = [&] {
        EXPECT_TRUE(form->unload());
        EXPECT_TRUE(form->isVisible());
    };
    EXPECT_TRUE(form->unload());
    EXPECT_TRUE(form->unload());
    settle();
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
}

TEST_F(FormTest, AnUnloadInsideTheQuestionDoesNotOverruleTheAnswer)
{
    form->showModeless();
    form->onQueryUnload = [&] {
        form->unload();
        form->close();
        return false;
    };
    EXPECT_FALSE(form->unload());
    settle();
    ASSERT_TRUE(form);
    EXPECT_TRUE(form->isLoaded());
    EXPECT_TRUE(form->isVisible());
}

TEST_F(FormTest, AFailingUnloadLeavesTheWindowLoaded)
{
    form->showModeless();
    form->onUnload = [] { throw RuntimeError(ErrorNumber::DiskFull); };
    EXPECT_EQ(errorNumberOf([&] { form->unload(); }), ErrorNumber::DiskFull);
    EXPECT_TRUE(form->isLoaded());
    EXPECT_TRUE(form->isVisible());
    form->onUnload = [] {};
    EXPECT_TRUE(form->unload());
    settle();
    EXPECT_FALSE(form);
}

TEST_F(FormTest, AModalShowReturnsWhenTheWindowWasUnloaded)
{
    DialogDriver dialogs;
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), [&](ProbeForm &window) {
        EXPECT_TRUE(window.isModal());
        EXPECT_EQ(steps, list("load"));
        window.unload();
    });
    form->showModal(nullptr);
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
}

TEST_F(FormTest, AModalWindowAsksBeforeItGoes)
{
    DialogDriver dialogs;
    form->onQueryUnload = [] {
        return MsgBox(QStringLiteral("Leave?"), MsgBoxStyle::YesNo) == MsgBoxReply::Yes;
    };
    const auto close = [](ProbeForm &window) { window.close(); };
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), close);
    dialogs.expectBox(QStringLiteral("QuillOfficeToolsv2"), QStringLiteral("Leave?")).press(QMessageBox::No);
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), close);
    dialogs.expectBox(QStringLiteral("QuillOfficeToolsv2"), QStringLiteral("Leave?")).press(QMessageBox::Yes);
    form->showModal(nullptr);
    EXPECT_FALSE(form);
}

TEST_F(FormTest, AModalWindowThatUnloadsItselfWhileLoadingIsNotWaitedFor)
{
    form->onLoad = [&] { form->unload(); };
    DialogDriver nothingComesUp;
    // From inside a loop, as a command is: what it leaves to be deleted waits for that loop.
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        form->showModal(nullptr);
        loop.quit();
    });
    loop.exec();
    settle();
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
}

TEST_F(FormTest, AWindowThatUnloadsItselfWhileLoadingIsNotShown)
{
    form->onLoad = [&] { form->unload(); };
    form->showModeless();
    ASSERT_TRUE(form);
    EXPECT_FALSE(form->isVisible());
    settle();
    EXPECT_FALSE(form);
}

TEST_F(FormTest, AModalWindowGoesWithItsOwner)
{
    QWidget owner;
    owner.show();
    DialogDriver dialogs;
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), [&](ProbeForm &window) {
        EXPECT_EQ(window.parentWidget(), &owner);
        EXPECT_TRUE(window.isWindow());
        delete &window;
    });
    form->showModal(&owner);
    EXPECT_FALSE(form);
    EXPECT_TRUE(Forms::loaded().isEmpty());
}

TEST_F(FormTest, ResizesAreHeardWhileItIsLoaded)
{
    int resized = 0;
    form->onResize = [&] { ++resized; };
    form->resize(100, 100);
    EXPECT_EQ(resized, 0);
    form->showModeless();
    resized = 0;
    form->resize(300, 200);
    EXPECT_EQ(resized, 1);
}

TEST_F(FormTest, GivesItsControlsByName)
{
    auto *edit = new QLineEdit(form);
    edit->setObjectName(QStringLiteral("Text1"));
    EXPECT_EQ(&form->member<QLineEdit>(QStringLiteral("Text1")), edit);
    EXPECT_TRUE(form->hasMember(QStringLiteral("Text1")));
    EXPECT_FALSE(form->hasMember(QStringLiteral("rtfTextBox")));
    EXPECT_EQ(errorNumberOf([&] { form->member<QLineEdit>(QStringLiteral("Text2")); }),
              ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { form->member<QPushButton>(QStringLiteral("Text1")); }),
              ErrorNumber::NoSuchMember);
}

TEST_F(FormTest, RunsItsOperationsByName)
{
    int ran = 0;
    form->addOperation(QStringLiteral("mnuSave_Click"), [&] { ++ran; });
    form->addOperation(QStringLiteral("fail"), [] { throw RuntimeError(ErrorNumber::DiskFull); });
    form->call(QStringLiteral("mnuSave_Click"));
    EXPECT_EQ(ran, 1);
    EXPECT_EQ(errorNumberOf([&] { form->call(QStringLiteral("mnuPrint_Click")); }),
              ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { form->call(QStringLiteral("fail")); }), ErrorNumber::DiskFull);
}

TEST_F(FormTest, AFailureWhileItIsClosedIsTold)
{
    FatalErrors fatal;
    form->onQueryUnload = []() -> bool { throw RuntimeError(ErrorNumber::TypeMismatch); };
    form->showModeless();
    fatal.expect(ErrorNumber::TypeMismatch);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isLoaded());
}

TEST_F(FormTest, AFailureWhileItIsResizedIsTold)
{
    FatalErrors fatal;
    form->showModeless();
    form->onResize = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    fatal.expect(ErrorNumber::TypeMismatch);
    form->resize(form->size() + QSize(10, 10));
    QCoreApplication::processEvents();
    EXPECT_EQ(fatal.ends().size(), 1);
}
