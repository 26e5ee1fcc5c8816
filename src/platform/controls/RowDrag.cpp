#include "RowDrag.h"

#include "ShownText.h"
#include "ThemeIcon.h"

#include <QAbstractItemView>
#include <QDrag>
#include <QMimeData>
#include <QPainter>

namespace {

constexpr int iconSize = 16;     // pixels
constexpr int margin = 4;        // pixels
constexpr int longestName = 240; // pixels
constexpr QPoint besidePointer(-12, -12);

QIcon iconOf(const QModelIndex &row)
{
    const auto icon = row.data(Qt::DecorationRole).value<QIcon>();
    if (!icon.isNull())
        return icon;
    return ThemeIcon::named(row.data().toString().endsWith(u'/') ? QStringLiteral("folder")
                                                                 : QStringLiteral("text-x-generic"));
}

QPixmap pictureOf(const QAbstractItemView &view, const QModelIndex &row)
{
    const QFontMetrics metrics = view.fontMetrics();
    const QString name =
        metrics.elidedText(ShownText::line(row.data().toString()), Qt::ElideMiddle, longestName);
    const int height = qMax(iconSize, metrics.height()) + 2 * margin;
    const QSize size(iconSize + metrics.horizontalAdvance(name) + 3 * margin, height);
    QPixmap picture(size * view.devicePixelRatioF());
    picture.setDevicePixelRatio(view.devicePixelRatioF());
    picture.fill(view.palette().color(QPalette::Base));
    QPainter painter(&picture);
    painter.setFont(view.font());
    painter.setPen(view.palette().color(QPalette::Mid));
    painter.drawRect(QRect(QPoint(), size - QSize(1, 1)));
    iconOf(row).paint(&painter, margin, 0, iconSize, height);
    painter.setPen(view.palette().color(QPalette::Text));
    painter.drawText(QRect(iconSize + 2 * margin, 0, size.width(), height), Qt::AlignLeft | Qt::AlignVCenter,
                     name);
    return picture;
}

} // namespace

void RowDrag::start(QAbstractItemView &view, Qt::DropActions actions)
{
    const QModelIndex row = view.currentIndex();
    if (!row.flags().testFlag(Qt::ItemIsDragEnabled))
        return;
    auto *drag = new QDrag(&view);
    drag->setMimeData(view.model()->mimeData({row}));
    drag->setPixmap(pictureOf(view, row));
    drag->setHotSpot(besidePointer);
    drag->exec(actions, Qt::CopyAction);
}
