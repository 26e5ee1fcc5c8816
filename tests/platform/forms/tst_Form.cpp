#include "DialogDriver.h"
#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "FatalErrors.h"
#include "Forms.h"
#include "PrintQt.h"
#include "ProbeForm.h"
#include "Prompts.h"

#include <QApplication>
#include <QCheckBox>
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
    void settle() { QCoreApplication::processEvents(); }
    static QStringList list(const char *text) { return QString::fromLatin1(text).split(u' '); }
};

/// A window for keys: a field, a box and the two buttons.
struct FormKeysTest : FormTest
{
    QLineEdit *field = new QLineEdit(form);
    QCheckBox *box = new QCheckBox(form);
    QPushButton *ok = new QPushButton(form);
    QPushButton *cancel = new QPushButton(form);
    QStringList pressed;

    FormKeysTest()
    {
        form->onKey = {};
        form->setKeyButtons(*ok, *cancel);
        on(ok, &QPushButton::clicked, form, [this] { pressed << QStringLiteral("ok"); });
        on(cancel, &QPushButton::clicked, form, [this] { pressed << QStringLiteral("cancel"); });
        form->showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
    }

    QStringList pressedBy(Qt::Key key, QWidget *focused)
    {
        pressed.clear();
        focused->setFocus();
        EXPECT_EQ(QApplication::focusWidget(), focused);
        QTest::keyClick(QApplication::focusWidget(), key);
        return pressed;
    }
};

/// Is no class of its own to findChild().
class WithoutMetaObject : public QWidget
{};

template<class Control>
concept CanBeMember = requires(const Form &form)
{
    form.member<Control>(QString());
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

TEST_F(FormTest, ShownAgainItComesToTheFront)
{
    form->showModeless();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    form->showModeless();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form));
    form->showMinimized();
    form->showModeless();
    EXPECT_FALSE(form->isMinimized());
}

TEST_F(FormTest, IsLoadedBeforeItIsSeen)
{
    form->onLoad = [&] { EXPECT_FALSE(form->isVisible()); };
    form->showModeless();
}

TEST_F(FormTest, AFailingLoadReachesTheCallerAndTheWindowIsForgotten)
{
    form->onLoad = [] { throw RuntimeError(ErrorNumber::FileNotFound); };
    EXPECT_EQ(errorNumberOf([&] { form->showModeless(); }), ErrorNumber::FileNotFound);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(Forms::loaded().isEmpty());
    settle();
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load deleted"));
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
    ASSERT_TRUE(form); // the caller is still running in it
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
    EXPECT_EQ(steps, list("load query unload terminate"));
    settle();
    EXPECT_FALSE(form);
}

TEST_F(FormTest, AModalWindowThatIsMinimisedStillWaits)
{
    DialogDriver dialogs;
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), [&](ProbeForm &window) {
        QHideEvent minimised;
        QSpontaneKeyEvent::setSpontaneous(&minimised); // as the window system sends it
        qApp->notify(&window, &minimised);
        QTimer::singleShot(0, &window, [&window] { run([&] { window.unload(); }); });
    });
    form->showModal(nullptr);
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormTest, AModalWindowLivesUntilItsCallerHasReturned)
{
    const auto unloadAndPump = [this] { // called by no handler
        form->unload();
        settle();
        EXPECT_TRUE(form);
    };
    QMetaObject::invokeMethod(form, unloadAndPump, Qt::QueuedConnection);
    form->showModal(nullptr);
    EXPECT_TRUE(form);
    settle();
    EXPECT_FALSE(form);
}

TEST_F(FormTest, AModalWindowIsReadAfterItIsDown)
{
    auto *answer = new QLineEdit(form);
    answer->setObjectName(QStringLiteral("Password"));
    DialogDriver dialogs;
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), [&](ProbeForm &window) {
        answer->setText(QStringLiteral("secret"));
        window.unload();
    });
    run([&] {
        form->showModal(nullptr);
        processPendingEvents();
        ASSERT_TRUE(form);
        EXPECT_EQ(form->member<QLineEdit>(QStringLiteral("Password")).text(), QStringLiteral("secret"));
    });
    settle();
    EXPECT_FALSE(form);
}

TEST_F(FormTest, AModalShowReturnsWhenTheWindowWasHidden)
{
    DialogDriver dialogs;
    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), [&](ProbeForm &window) { window.hide(); });
    form->showModal(nullptr);
    EXPECT_TRUE(form->isLoaded());
    EXPECT_EQ(steps, list("load"));

    dialogs.expectWindow<ProbeForm>(QStringLiteral("frmProbe"), [&](ProbeForm &window) { window.unload(); });
    form->showModal(nullptr); // a second time, without a second load
    EXPECT_EQ(steps, list("load query unload terminate"));
}

TEST_F(FormTest, ClosedWhileItsHandlerWaitsItLivesUntilTheHandlerReturns)
{
    form->showModeless();
    QTimer closing;
    on(&closing, &QTimer::timeout, form, [&] {
        closing.stop();
        form->close(); // as the title bar does
    });
    form->onKey = [&] {
        closing.start(0);
        while (closing.isActive())
            processPendingEvents();
        processPendingEvents();
        ASSERT_TRUE(form);
        EXPECT_FALSE(form->isLoaded());
        EXPECT_FALSE(form->isVisible());
    };
    QTest::keyClick(form, Qt::Key_A);
    settle();
    EXPECT_FALSE(form);
    EXPECT_EQ(steps, list("load query unload terminate deleted"));
}

TEST_F(FormTest, AModalWindowAsksBeforeItCloses)
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
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormTest, AModalWindowThatUnloadsItselfWhileLoadingIsNotWaitedFor)
{
    form->onLoad = [&] { form->unload(); };
    DialogDriver nothingComesUp;
    form->showModal(nullptr);
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

TEST_F(FormTest, AModalWindowIsClosedWithItsOwner)
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

TEST_F(FormTest, ResizesAreHandledWhileItIsLoaded)
{
    int resized = 0;
    form->onResize = [&] { ++resized; };
    form->resize(100, 100);
    form->show(); // which sends the event
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
    form->addOperation(QStringLiteral("mnuSave_Click"), &ProbeForm::mnuSave_Click);
    form->addOperation(QStringLiteral("AutoDial"), &ProbeForm::AutoDial);
    form->addOperation(QStringLiteral("fail"), &ProbeForm::fail);
    form->call(QStringLiteral("mnuSave_Click"));
    form->call(QStringLiteral("AutoDial"), QStringLiteral("0123"), 2);
    EXPECT_EQ(steps, QStringList({QStringLiteral("saved"), QStringLiteral("dialled 0123 by 2")}));
    EXPECT_EQ(errorNumberOf([&] { form->call(QStringLiteral("AutoDial"), QStringLiteral("0123")); }),
              ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { form->call(QStringLiteral("AutoDial"), 1, 2); }),
              ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { form->call(QStringLiteral("mnuPrint_Click")); }),
              ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { form->call(QStringLiteral("fail")); }), ErrorNumber::DiskFull);
}

TEST_F(FormTest, AFailureWhileItIsClosedIsReported)
{
    FatalErrors fatal;
    form->onQueryUnload = []() -> bool { throw RuntimeError(ErrorNumber::TypeMismatch); };
    form->showModeless();
    fatal.expect(ErrorNumber::TypeMismatch);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isLoaded());
}

TEST_F(FormTest, AFailureWhileItIsResizedIsReported)
{
    FatalErrors fatal;
    form->showModeless();
    form->onResize = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    fatal.expect(ErrorNumber::TypeMismatch);
    form->resize(form->size() + QSize(10, 10));
    QCoreApplication::processEvents();
    EXPECT_EQ(fatal.ends().size(), 1);
}

TEST_F(FormKeysTest, ReturnPressesTheButtonThatHasTheFocus)
{
    EXPECT_EQ(pressedBy(Qt::Key_Return, cancel), list("cancel"));
    EXPECT_EQ(pressedBy(Qt::Key_Enter, cancel), list("cancel"));
    EXPECT_EQ(pressedBy(Qt::Key_Return, ok), list("ok"));
}

TEST_F(FormKeysTest, ReturnElsewherePressesTheDefaultButton)
{
    EXPECT_TRUE(ok->isDefault()); // and it is drawn as that
    EXPECT_EQ(pressedBy(Qt::Key_Return, field), list("ok"));
    EXPECT_EQ(pressedBy(Qt::Key_Enter, box), list("ok"));
}

TEST_F(FormKeysTest, AFieldMayHaveAButtonOfItsOwn)
{
    auto *other = new QLineEdit(form);
    other->show();
    form->setReturnButton(*field, *cancel);
    EXPECT_EQ(pressedBy(Qt::Key_Return, field), list("cancel"));
    EXPECT_EQ(pressedBy(Qt::Key_Enter, field), list("cancel"));
    EXPECT_EQ(pressedBy(Qt::Key_Return, other), list("ok"));
    EXPECT_EQ(pressedBy(Qt::Key_Return, ok), list("ok"));
}

TEST_F(FormKeysTest, TheKeyOfAFieldsButtonIsForNoButtonThatGetsTheFocusMeanwhile)
{
    form->setReturnButton(*field, *cancel);
    on(cancel, &QPushButton::clicked, form, [this] { ok->setFocus(); });
    EXPECT_EQ(pressedBy(Qt::Key_Return, field), list("cancel"));
}

TEST_F(FormKeysTest, AnUnloadedWindowsKeysPressNothing)
{
    on(field, &QLineEdit::returnPressed, form, [this] { form->unload(); });
    EXPECT_TRUE(pressedBy(Qt::Key_Return, field).isEmpty());
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormKeysTest, EscapePressesCancelFromEverywhere)
{
    for (QWidget *focused : std::initializer_list<QWidget *>{field, box, ok, cancel})
        EXPECT_EQ(pressedBy(Qt::Key_Escape, focused), list("cancel"));
}

TEST_F(FormKeysTest, AKeyThatPressesNothingIsLeftToTheWindowsAround)
{
    QKeyEvent pressing(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(form, &pressing);
    EXPECT_TRUE(pressing.isAccepted());
    QKeyEvent other(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier);
    QCoreApplication::sendEvent(form, &other);
    EXPECT_FALSE(other.isAccepted());
}

TEST_F(FormKeysTest, OtherKeysAreLeftToTheControl)
{
    EXPECT_TRUE(pressedBy(Qt::Key_A, field).isEmpty());
    EXPECT_EQ(field->text(), QStringLiteral("a"));
}

TEST_F(FormTest, MeasuresItselfInTwips)
{
    form->showModeless();
    form->setLeft(1500);
    form->setTop(750);
    form->setWidth(6000);
    form->setHeight(3000);
    const double twipsToThePixel = 1440.0 / form->logicalDpiX();
    EXPECT_EQ(form->pos(), QPoint(qRound(1500 / twipsToThePixel), qRound(750 / twipsToThePixel)));
    EXPECT_EQ(form->size(), QSize(qRound(6000 / twipsToThePixel), qRound(3000 / twipsToThePixel)));
    EXPECT_EQ(form->Left(), form->x() * twipsToThePixel);
    EXPECT_EQ(form->Top(), form->y() * twipsToThePixel);
    EXPECT_EQ(form->Width(), form->width() * twipsToThePixel);
    EXPECT_EQ(form->Height(), form->height() * twipsToThePixel);
    EXPECT_EQ(form->ScaleWidth(), form->Width());
    EXPECT_EQ(form->ScaleHeight(), form->Height());
}

TEST_F(FormTest, ASizeIsRoundedOnce)
{
    form->setWidth(1007); // 67.13 pixels of 15 twips
    EXPECT_EQ(form->width(), qRound(1007 * form->logicalDpiX() / 1440.0));
    form->setWidth(form->Width());
    EXPECT_EQ(form->width(), qRound(1007 * form->logicalDpiX() / 1440.0));
}

TEST_F(FormTest, KnowsItsState)
{
    form->showModeless();
    EXPECT_EQ(form->WindowState(), FormState::Normal);
    form->setWindowState(FormState::Maximized);
    EXPECT_EQ(form->WindowState(), FormState::Maximized);
    EXPECT_TRUE(form->isMaximized());
    form->setWindowState(FormState::Minimized);
    EXPECT_EQ(form->WindowState(), FormState::Minimized);
    EXPECT_FALSE(form->isMaximized());
    form->setWindowState(FormState::Normal);
    EXPECT_EQ(form->WindowState(), FormState::Normal);
}

static_assert(CanBeMember<QLineEdit> && CanBeMember<Form>);
static_assert(!CanBeMember<WithoutMetaObject>, "findChild() would return any QWidget for it");
