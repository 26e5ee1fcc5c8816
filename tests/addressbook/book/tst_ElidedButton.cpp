#include "ElidedButton.h"
#include "PrintQt.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

struct ElidedButtonTest : testing::Test
{
    QImage picture(int width)
    {
        button.resize(width, 24);
        return button.grab().toImage();
    }

    ElidedButton button{QStringLiteral("&Refresh Data")};
};

} // namespace

TEST_F(ElidedButtonTest, WithRoomItIsAnOrdinaryButton)
{
    QPushButton ordinary(button.text());
    const int width = ordinary.sizeHint().width();
    EXPECT_EQ(button.sizeHint(), ordinary.sizeHint());
    ordinary.resize(width, 24);
    EXPECT_EQ(picture(width), ordinary.grab().toImage());
    EXPECT_EQ(button.toolTip(), QString());
}

TEST_F(ElidedButtonTest, WithoutRoomTheCaptionEndsInDotsAndIsTheToolTip)
{
    QPushButton cut(QStringLiteral("&Refr\u2026"));
    const int width = cut.fontMetrics().size(Qt::TextShowMnemonic, cut.text()).width() + 7;
    cut.resize(width, 24);
    EXPECT_EQ(picture(width), cut.grab().toImage());
    EXPECT_EQ(button.toolTip(), QStringLiteral("Refresh Data"));
    picture(button.sizeHint().width());
    EXPECT_EQ(button.toolTip(), QString());
}

TEST_F(ElidedButtonTest, MayBeNarrow)
{
    EXPECT_LT(button.minimumSizeHint().width(), button.sizeHint().width() / 2);
    EXPECT_EQ(button.minimumSizeHint().height(), QPushButton(button.text()).minimumSizeHint().height());
}
