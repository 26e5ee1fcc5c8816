#include "TestIsolation.h"

#include "Form.h"
#include "Forms.h"
#include "PrintQt.h"

#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

struct TestIsolationTest : testing::Test
{
    /// What happens between two tests.
    static void end()
    {
        TestIsolation isolation;
        testing::TestEventListener &listener = isolation;
        listener.OnTestEnd(*testing::UnitTest::GetInstance()->current_test_info());
    }
};

} // namespace

TEST_F(TestIsolationTest, NoWindowIsLeft)
{
    const QPointer<Form> form = new Form(QStringLiteral("frmLeft"));
    form->showModeless();
    EXPECT_EQ(Forms::loaded().size(), 1);
    end();
    EXPECT_TRUE(Forms::loaded().isEmpty());
    EXPECT_TRUE(form.isNull());
}

TEST_F(TestIsolationTest, NoEventIsPending)
{
    const QPointer<QObject> dying = new QObject;
    dying->deleteLater();
    bool hasCome = false;
    QMetaObject::invokeMethod(
        qApp, [&] { hasCome = true; }, Qt::QueuedConnection);
    end();
    EXPECT_TRUE(dying.isNull());
    EXPECT_TRUE(hasCome);
}

TEST_F(TestIsolationTest, ClipboardAndPaletteAreFresh)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("left"));
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    QApplication::setPalette(dark);
    end();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
    EXPECT_NE(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
}
