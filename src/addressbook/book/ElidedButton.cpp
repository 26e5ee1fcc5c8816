#include "ElidedButton.h"

#include "EventGate.h"
#include "Named.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int captionMargin = 3; // pixels, between the frame's inner edge and the caption

} // namespace

QSize ElidedButton::minimumSizeHint() const
{
    constexpr int leastCharacters = 4;
    return {leastCharacters * fontMetrics().averageCharWidth(), QPushButton::minimumSizeHint().height()};
}

void ElidedButton::paintEvent(QPaintEvent *)
{
    runPainting([&] {
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text = shownCaption();
        QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
    });
}

void ElidedButton::resizeEvent(QResizeEvent *event)
{
    QPushButton::resizeEvent(event);
    run([&] { setToolTip(shownCaption() == text() ? QString() : withoutMnemonic(text())); });
}

QString ElidedButton::shownCaption() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, width() - 2 * captionMargin,
                                    Qt::TextShowMnemonic);
}
