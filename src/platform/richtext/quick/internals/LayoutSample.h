#pragma once

#include <QTextBlock>
#include <QTextDocument>

/// A few paragraphs of a document, copied and laid out by Qt on their own as they would be in their place.
class LayoutSample
{
public:
    /// From \a first to \a last, all of them simple and outside of tables and frames.
    LayoutSample(const QTextBlock &first, const QTextBlock &last);

    /// The copy of the paragraph \a number places behind the first.
    QTextBlock paragraph(int number) const { return m_document.findBlockByNumber(number); }

    /// Pixels; more than the page's where a line sticks out at the side.
    double width() const { return m_document.size().width(); }

    /// True when \a original can be copied: visible text of moderate length, and pictures of a known size.
    static bool isSimple(const QTextBlock &original);

    /// True when the lines of both hold the same characters at the same places of the paragraph.
    static bool isSameLayout(const QTextBlock &one, const QTextBlock &other);

    /// Lays out \a original as \a copy is. False when its lines came out otherwise.
    static bool apply(const QTextBlock &copy, const QTextBlock &original);

private:
    QTextDocument m_document;
};
