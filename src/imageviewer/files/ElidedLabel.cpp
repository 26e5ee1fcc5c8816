#include "ElidedLabel.h"

#include "EventGate.h"
#include "ShownText.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>

namespace {

constexpr int usualLength = 52; // characters

} // namespace

ElidedLabel::ElidedLabel(const QString &text)
    : QLabel(text)
{}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {1, QLabel::minimumSizeHint().height()};
}

QSize ElidedLabel::sizeHint() const
{
    return {usualLength * fontMetrics().averageCharWidth(), QLabel::sizeHint().height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    run([&] {
        const QString tip = shownText() == text() ? QString() : ShownText::toolTip(text());
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
    });
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    runPainting([&] {
        QStylePainter painter(this);
        const Qt::LayoutDirection direction = layoutDirection();
        style()->drawItemText(&painter, contentsRect(), int(QStyle::visualAlignment(direction, alignment())),
                              palette(), isEnabled(), shownText(), foregroundRole());
    });
}
