#pragma once

#include <utility>

class QTextDocument;
class QTextEdit;

/// The layout that keeps typing quick in long documents. Built without Qt's private headers it is Qt's own.
namespace QuickLayout {

/// False where it is Qt's own.
bool isAvailable();

/// Gives it to \a document, which belongs to \a view and has no layout yet.
void install(QTextDocument &document, QTextEdit &view);

/// True while paragraphs below the view are not in their place; never with Qt's own layout.
bool isBehind(const QTextDocument &document);

/// Brings everything to its place; costs nothing when it is there already.
void catchUp(QTextDocument &document);

/// Positions between which all text in view is, and perhaps some more around it.
std::pair<int, int> stretchInView(const QTextDocument &document, const QTextEdit &view);

} // namespace QuickLayout
