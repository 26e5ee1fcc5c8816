#include "ErrorNumberOf.h"
#include "Forms.h"
#include "PrintQt.h"
#include "ProbeForm.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

/// A window whose class has its base's name: Q_OBJECT is left out.
struct NamelessForm : Form
{};

template<class Window>
concept CanBeReferredTo = requires
{
    Forms::refer<Window>();
};

template<class Control>
concept CanBeAMember = requires(const Form &form)
{
    form.member<Control>(QString());
};

static_assert(CanBeReferredTo<ProbeForm> && !CanBeReferredTo<NamelessForm>);
static_assert(CanBeAMember<ProbeForm> && !CanBeAMember<NamelessForm>);

const QString single = QStringLiteral("frmSingle");
const QString document = QStringLiteral("frmDocument");

struct FormsTest : testing::Test
{
    QStringList steps;

    FormsTest()
    {
        Forms::registerWindow(single, Forms::Instances::One, [this] { return new ProbeForm(steps, single); });
        Forms::registerWindow(document, Forms::Instances::Many,
                              [this] { return new ProbeForm(steps, document); });
    }
    ~FormsTest() override
    {
        const QList<Form *> left = Forms::loaded();
        qDeleteAll(left);
        EXPECT_TRUE(Forms::loaded().isEmpty());
    }
    static Form &loaded(const QString &name)
    {
        Form &form = Forms::refer(name);
        form.load();
        return form;
    }
    static void settle() { QCoreApplication::processEvents(); }
};

} // namespace

TEST_F(FormsTest, ANamedInstanceIsMadeOnceAndReused)
{
    Form &first = Forms::refer(single);
    EXPECT_EQ(&Forms::refer(single), &first);
    EXPECT_EQ(first.Name(), single);
    EXPECT_FALSE(first.isLoaded());
    EXPECT_TRUE(Forms::loaded().isEmpty());
    first.load();
    EXPECT_EQ(&Forms::refer(single), &first);
}

TEST_F(FormsTest, AnUnregisteredNameIsUnknown)
{
    Forms::unregisterWindow(document);
    EXPECT_EQ(errorNumberOf([] { Forms::refer(document); }), 424);
}

TEST_F(FormsTest, AnUnloadedInstanceIsForgotten)
{
    Form &first = loaded(single);
    first.unload();
    Form &second = loaded(single); // the first is not deleted yet
    EXPECT_NE(&second, &first);
    settle();
    EXPECT_EQ(&Forms::refer(single), &second);
    EXPECT_EQ(Forms::loaded(), QList<Form *>{&second});
}

TEST_F(FormsTest, ReferringWhileTheWindowTerminatesMakesANewOne)
{
    auto &first = static_cast<ProbeForm &>(loaded(single));
    Form *second = nullptr;
    first.onTerminate = [&] { second = &loaded(single); };
    first.unload();
    settle();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(&Forms::refer(single), second);
}

TEST_F(FormsTest, ADeletedInstanceIsForgotten)
{
    delete &Forms::refer(single);
    EXPECT_EQ(loaded(single).Name(), single);
    EXPECT_EQ(Forms::loaded().size(), 1);
}

TEST_F(FormsTest, ManyInstancesAreNewEachTime)
{
    Form &first = loaded(document);
    Form &second = loaded(document);
    EXPECT_NE(&first, &second);
    EXPECT_EQ(Forms::named(document), (QList<Form *>{&first, &second}));
    EXPECT_TRUE(Forms::named(single).isEmpty());
}

TEST_F(FormsTest, AreInOrderOfCreationHiddenOrNot)
{
    Form &first = loaded(document);
    Form &second = loaded(single);
    Form &third = loaded(document);
    third.showModeless();
    first.showModeless();
    EXPECT_EQ(Forms::loaded(), (QList<Form *>{&first, &second, &third}));
    second.unload();
    EXPECT_EQ(Forms::loaded(), (QList<Form *>{&first, &third}));
    settle();
}

TEST_F(FormsTest, AnUnknownNameIsError424)
{
    EXPECT_EQ(errorNumberOf([] { Forms::refer(QStringLiteral("frmGone")); }), ErrorNumber::ObjectRequired);
}

TEST_F(FormsTest, AWindowIsReferredToByItsClass)
{
    Forms::registerWindow(QStringLiteral("ProbeForm"), Forms::Instances::One,
                          [this] { return new ProbeForm(steps, QStringLiteral("ProbeForm")); });
    ProbeForm &first = Forms::refer<ProbeForm>();
    EXPECT_EQ(&Forms::refer<ProbeForm>(), &first);
    EXPECT_EQ(&Forms::refer(QStringLiteral("ProbeForm")), &first);
    delete &first;
}

TEST_F(FormsTest, AClassThatIsNotRegisteredIsRefused)
{
    EXPECT_EQ(errorNumberOf([] { Forms::refer<Form>(); }), ErrorNumber::ObjectRequired);
}

TEST_F(FormsTest, ANameOfAnotherClassIsRefused)
{
    Forms::registerWindow(QStringLiteral("ProbeForm"), Forms::Instances::One,
                          [] { return new Form(QStringLiteral("ProbeForm")); });
    EXPECT_EQ(errorNumberOf([] { Forms::refer<ProbeForm>(); }), ErrorNumber::NoSuchMember);
    delete &Forms::refer(QStringLiteral("ProbeForm"));
}
