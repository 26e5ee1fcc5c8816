#include "HollowBullets.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetrics>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace {

bool isHollow(const QTextBlock &item)
{
    return item.textList() && item.textList()->format().style() == QTextListFormat::ListCircle &&
           item.layout()->lineCount() > 0;
}

/// Where the text of the first line begins.
QPointF textStart(const QTextBlock &item)
{
    const QRectF text = item.layout()->lineAt(0).naturalTextRect();
    const QPointF origin = item.document()->documentLayout()->blockBoundingRect(item).topLeft();
    const bool isRightToLeft = item.textDirection() == Qt::RightToLeft;
    return origin.toPoint() + (isRightToLeft ? text.topRight() : text.topLeft()).toPoint();
}

/// Where Qt draws it, in its size.
QRectF circleOf(const QTextBlock &item)
{
    const QFontMetrics metrics(
        QFont(item.charFormat().font(), item.document()->documentLayout()->paintDevice()));
    const int size = metrics.lineSpacing() / 3;
    const int space = metrics.horizontalAdvance(u' ');
    const QPointF start = textStart(item);
    const double left =
        item.textDirection() == Qt::RightToLeft ? start.x() + space : start.x() - space - size;
    return {left + 0.5, start.y() + metrics.height() / 2 - size / 2 + 0.5, double(size), double(size)};
}

} // namespace

QMultiHash<int, QRectF> HollowBullets::circles(const QTextDocument &document)
{
    QMultiHash<int, QRectF> circles;
    for (QTextBlock item = document.begin(); item.isValid(); item = item.next()) {
        if (!isHollow(item))
            continue;
        const QRectF circle = circleOf(item);
        circles.insert(int(circle.center().y() / document.pageSize().height()), circle);
    }
    return circles;
}
