#pragma once

#include <QMultiHash>
#include <QRectF>

class QTextDocument;

/// The circles before the items of some lists. Qt draws them with the finest line that a device has, which on
/// paper is next to nothing.
namespace HollowBullets {

/// Where they are in \a document, which has pages; by the page, from 0.
QMultiHash<int, QRectF> circles(const QTextDocument &document);

} // namespace HollowBullets
