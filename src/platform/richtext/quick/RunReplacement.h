#pragma once

#include <QList>
#include <QString>

class QTextDocument;

/// Replaces text at many places at once, without taking the document's runs apart. Built without Qt's private
/// headers it leaves every place to the caller.
namespace RunReplacement {

/// Puts \a text, which has no line end, in place of \a length characters at each of \a places, as part of the
/// edit block that the caller has begun. The places ascend and do not overlap, as positions in the document
/// before any of them is replaced. Returns the indexes of those left as they were: they span several runs, or
/// hold a picture. Cursors among the places stay somewhere there.
QList<int> replace(QTextDocument &document, const QList<int> &places, int length, const QString &text);

} // namespace RunReplacement
