#include "DiallerWindow.h"
#include "LineError.h"
#include "PrintQt.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct DiallerKeysTest : testing::Test
{
    DiallerWindow window;

    DiallerKeysTest() { window.open("Use"); }

    static QByteArray digit(int index) { return "cmddigit_" + QByteArray::number(index); }
    static QByteArray special(int index) { return "cmddecimal_" + QByteArray::number(index); }
    QStringList tones() const { return window.service.operations.filter(QStringLiteral("tones")); }
};

} // namespace

TEST_F(DiallerKeysTest, EachDigitIsAppendedAndBeeps)
{
    window.press(special(3));
    for (int index = 0; index <= 9; ++index) {
        EXPECT_EQ(window.button(digit(index)).text(), QString::number(index));
        window.press(digit(index));
        EXPECT_EQ(window.beeps, index + 2);
    }
    EXPECT_EQ(window.number(), QStringLiteral("0123456789"));
}

TEST_F(DiallerKeysTest, TheSpecialKeysDoTheirPart)
{
    const QStringList captions{QStringLiteral("#"), QStringLiteral("*"), QStringLiteral("Enter a Pause"),
                               QStringLiteral("Clear Number")};
    const QStringList numbers{QStringLiteral("1234567#"), QStringLiteral("1234567#*"),
                              QStringLiteral("1234567#*,"), QString()};
    for (int index = 0; index <= 3; ++index) {
        EXPECT_EQ(window.button(special(index)).text(), captions[index]);
        window.press(special(index));
        EXPECT_EQ(window.number(), numbers[index]);
        EXPECT_EQ(window.beeps, index + 1);
    }
    EXPECT_TRUE(tones().isEmpty());
}

TEST_F(DiallerKeysTest, AKeyIsAppendedWhereverTheCaretIs)
{
    window.control<QLineEdit>("txtPhoneNumber").setCursorPosition(0);
    window.press("cmddigit_8");
    EXPECT_EQ(window.number(), QStringLiteral("12345678"));
}

TEST_F(DiallerKeysTest, TheKeysHaveTheirLetters)
{
    EXPECT_EQ(window.button("cmddigit_2").toolTip(), QStringLiteral("ABC"));
    EXPECT_EQ(window.button("cmddigit_7").toolTip(), QStringLiteral("PQRS"));
    EXPECT_EQ(window.button("cmddigit_9").toolTip(), QStringLiteral("WXYZ"));
    EXPECT_EQ(window.button("cmddigit_1").toolTip(), QString());
}

/// Of the keys that are tones, and only while the far end hears them.
TEST_F(DiallerKeysTest, InACallAKeySendsItsTone)
{
    const auto pressAll = [this] {
        for (const QByteArray &key : {digit(5), special(0), special(1), special(2), special(3)})
            window.press(key);
    };
    window.press("cmdDial");
    window.reply(DiallerWindow::makeRequest);
    pressAll();
    EXPECT_TRUE(tones().isEmpty());
    window.state(LineMessage::Connected);
    pressAll();
    EXPECT_EQ(tones().join(u'|'), QStringLiteral("tones 3 5|tones 3 #|tones 3 *"));
    window.state(LineMessage::Disconnected);
    window.state(LineMessage::Idle);
    pressAll();
    EXPECT_EQ(tones().size(), 3);
}

TEST_F(DiallerKeysTest, TheTabKeyFollowsTheRows)
{
    QStringList order;
    QWidget *field = &window.control<QLineEdit>("txtPhoneNumber");
    for (QWidget *next = field->nextInFocusChain(); next != field; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) && next->isVisibleTo(&window.form()))
            order.append(next->objectName());
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("cmddigit_1 cmddigit_2 cmddigit_3 cmddigit_4 cmddigit_5 cmddigit_6 cmddigit_7 "
                             "cmddigit_8 cmddigit_9 cmddecimal_1 cmddigit_0 cmddecimal_0 cmddecimal_2 "
                             "cmddecimal_3 cmdDial cmdHangUp lstCallProgress cmdExit"));
}

/// All of the room goes to the keys and to the log.
TEST_F(DiallerKeysTest, TheKeypadGrowsWithTheWindow)
{
    const auto resize = [this](int width, int height) {
        window.form().setWidth(width);
        window.form().setHeight(height);
        QCoreApplication::processEvents();
    };
    resize(9000, 6000);
    const QSize key = window.button("cmddigit_5").size();
    const int top = window.control<QLineEdit>("txtPhoneNumber").y();
    resize(12000, 9000);
    EXPECT_GT(window.button("cmddigit_5").width(), key.width());
    EXPECT_GT(window.button("cmddigit_5").height(), key.height());
    EXPECT_EQ(window.button("cmddigit_5").size(), window.button("cmddecimal_0").size());
    EXPECT_EQ(window.control<QLineEdit>("txtPhoneNumber").y(), top);
}
