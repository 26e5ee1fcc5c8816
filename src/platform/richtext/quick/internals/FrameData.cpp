#include "FrameData.h"

#include <QAbstractTextDocumentLayout>
#include <cstring>
#include <private/qfixed_p.h>
#include <private/qtextdocumentlayout_p.h>
#include <private/qtextobject_p.h>
#include <utility>

namespace {

/// The place is the first that Qt's layout adds to the class from which all such data derive.
char *placeOf(const QTextFrame &frame)
{
    QTextFrameLayoutData *data = frame.layoutData();
    return data ? reinterpret_cast<char *>(data) + sizeof(QTextFrameLayoutData) : nullptr;
}

double topOf(QTextFrame &frame)
{
    // Laid out by a class that answers otherwise while it is behind.
    const auto *layout = static_cast<QTextDocumentLayout *>(frame.document()->documentLayout());
    return layout->QTextDocumentLayout::frameBoundingRect(&frame).top();
}

/// Qt does not export what the sanitizer would check the type by.
[[gnu::no_sanitize("vptr")]] QTextFrameLayoutData *&dataOf(QTextFrame &frame)
{
    return static_cast<QTextFramePrivate *>(QObjectPrivate::get(&frame))->layoutData;
}

} // namespace

bool FrameData::moveBy(QTextFrame &frame, double distance)
{
    char *stored = placeOf(frame);
    if (!stored)
        return false;
    const double before = topOf(frame);
    QFixedPoint place;
    std::memcpy(&place, stored, sizeof place);
    const QFixedPoint moved(place.x, place.y + QFixed::fromReal(distance));
    std::memcpy(stored, &moved, sizeof moved);
    const bool isMoved = topOf(frame) - before == distance;
    if (!isMoved)
        std::memcpy(stored, &place, sizeof place);
    return isMoved;
}

void FrameData::exchange(QTextFrame &one, QTextFrame &other)
{
    std::swap(dataOf(one), dataOf(other));
}
