#pragma once

#include <QMimeData>

class QTextCursor;
class QTextDocument;

/// Text on its way through the clipboard or a drop: rich text first, as nothing of it gets lost there.
namespace ClipboardText {

/// The selection as rich text, HTML and plain text, and as picture when it is one.
std::unique_ptr<QMimeData> of(const QTextCursor &selection);

bool isRichText(const QMimeData &data);

/// The rich text of \a data; empty when it offers none.
QByteArray richText(const QMimeData &data);

/// True when a picture is to be taken before the HTML beside it, which only names the picture's place.
bool isPicture(const QMimeData &data);

/// The picture files that \a data names, when it names nothing else.
QStringList pictureFiles(const QMimeData &data);

/// True when \a data names a document, which is opened and not inserted.
bool namesDocuments(const QMimeData &data);

} // namespace ClipboardText
