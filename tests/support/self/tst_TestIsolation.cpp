#include "TestIsolation.h"

#include "Form.h"
#include "Forms.h"
#include "PrintQt.h"

#include <QApplication>
#include <QClipboard>
#include <QIcon>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

struct TestIsolationTest : testing::Test
{
    /// What happens between two tests.
    void end()
    {
        testing::TestEventListener &listener = isolation;
        listener.OnTestEnd(*testing::UnitTest::GetInstance()->current_test_info());
    }

    TestIsolation isolation;
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

TEST_F(TestIsolationTest, TheIconThemeIsTheFirstAgain)
{
    const QString theme = QIcon::themeName();
    const QString fallback = QIcon::fallbackThemeName();
    const QStringList paths = QIcon::themeSearchPaths();
    QIcon::setThemeName(QStringLiteral("left"));
    QIcon::setFallbackThemeName(QStringLiteral("left"));
    QIcon::setThemeSearchPaths({QStringLiteral("/left")});
    end();
    EXPECT_EQ(QIcon::themeName(), theme);
    EXPECT_EQ(QIcon::fallbackThemeName(), fallback);
    EXPECT_EQ(QIcon::themeSearchPaths(), paths);
}
