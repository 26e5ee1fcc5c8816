#pragma once

#include <QList>

class QTextDocument;
class QTextTable;

namespace DocumentTables {

/// All tables of \a document, also those within others.
QList<QTextTable *> of(const QTextDocument &document);

} // namespace DocumentTables
