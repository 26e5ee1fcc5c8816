#pragma once

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

class QTextTable;

/// A few paragraphs and tables of a document, copied and laid out by Qt on their own as they would be in
/// their place.
class LayoutSample
{
public:
    /// From \a first to \a last, which are on the page itself; see canHold().
    LayoutSample(const QTextBlock &first, const QTextBlock &last);

    /// The copy of a paragraph from the first to the last, which may be in a cell.
    QTextBlock copyOf(const QTextBlock &original) const;
    /// The copy of a table between the first and the last paragraph.
    QTextTable &copyOf(const QTextTable &table) const;

    bool hasTables() const { return !m_document.rootFrame()->childFrames().isEmpty(); }
    /// Pixels; more than the page's where a line sticks out at the side.
    double width() const { return m_document.size().width(); }

    /// True when all from \a first to \a last can be copied and is cheap to copy: simple paragraphs on the
    /// page and in tables of it, in which no other frame is.
    static bool canHold(const QTextBlock &first, const QTextBlock &last);

    /// True for visible text of moderate length, and pictures of a known size.
    static bool isSimple(const QTextBlock &original);

    /// True when the lines of both hold the same characters at the same places of the paragraph.
    static bool isSameLayout(const QTextBlock &one, const QTextBlock &other);

    /// Lays out \a original as \a copy is. False when its lines came out otherwise.
    static bool apply(const QTextBlock &copy, const QTextBlock &original);

private:
    void buildParagraphs(const QTextBlock &first, const QTextBlock &last);
    void fillParagraphs(const QTextBlock &first, const QTextBlock &last);

    QTextDocument m_document;
    int m_firstNumber; ///< of the first paragraph, in the original
};
