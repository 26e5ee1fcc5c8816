#include "LongDocuments.h"

#include "EventGate.h"
#include "QuickLayout.h"
#include "TextPieces.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <utility>

namespace {

/// Of characters beyond 16 bits the first half decides: those that run from the right are in two ranges.
bool mayRunRightToLeft(QChar c)
{
    constexpr char16_t firstHebrew = 0x0590;
    if (c.unicode() < firstHebrew)
        return false;
    if (c.isSurrogate())
        return c == u'\xD802' || c == u'\xD803' || c == u'\xD83A' || c == u'\xD83B';
    return c.direction() == QChar::DirR || c.direction() == QChar::DirAL;
}

bool mayRunRightToLeft(const QTextDocument &document, int from, int length)
{
    return TextPieces::any(document, from, length, [](QStringView text) {
        return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return mayRunRightToLeft(c); });
    });
}

/// Qt reads a word to its end for each line that it fills. Up to this length that takes a few milliseconds.
constexpr int longestWord = 4000; // characters

/// Ideographs and kana break anywhere.
bool endsWord(QChar c)
{
    constexpr char16_t firstIdeograph = 0x2E80;
    return c.isSpace() || c == u'-' || c.unicode() >= firstIdeograph;
}

bool hasLongWord(const QTextDocument &document, int from, int length)
{
    int word = 0;
    return TextPieces::any(document, from, length, [&word](QStringView text) {
        return std::any_of(text.cbegin(), text.cend(), [&word](QChar c) {
            word = endsWord(c) ? 0 : word + 1;
            return word > longestWord;
        });
    });
}

} // namespace

LongDocuments::LongDocuments(QTextEdit &view)
    : m_view(view)
{}

void LongDocuments::attach(QTextDocument &document)
{
    m_view.document()->setLayoutEnabled(false); // the view is about to leave it, and here changes its options
    m_document = &document;
    m_meetsRightToLeft = false;
    m_isLeftToRight = !mayRunRightToLeft(document, 0, document.characterCount());
    setDirection(m_isLeftToRight ? Qt::LeftToRight : Qt::LayoutDirectionAuto);
    m_meetsLongWord = false;
    setBreaksWords(hasLongWord(document, 0, document.characterCount()));
    document.setLayoutEnabled(m_view.isVisible());
    document.setPageSize({0, 0});           // with which it waits for the view to say how wide it is
    QuickLayout::install(document, m_view); // first, since the document then reports a change that is none
    on(&document, &QTextDocument::contentsChange, this, &LongDocuments::beforeLayout);
    on(&document, &QTextDocument::contentsChanged, this, &LongDocuments::afterEdit);
}

void LongDocuments::show()
{
    m_document->setLayoutEnabled(true);
}

void LongDocuments::catchUp()
{
    QuickLayout::catchUp(*m_document);
}

std::pair<int, int> LongDocuments::stretchInView() const
{
    return QuickLayout::stretchInView(*m_document, m_view);
}

/// Called when the text is changed and Qt's layout is about to learn of it.
void LongDocuments::beforeLayout(int from, int removed, int added)
{
    constexpr int manyCharacters = 200000; // Qt lays out fewer in no time
    const int changed = qMax(removed, added);
    if (changed > manyCharacters && changed > m_document->characterCount() / 2)
        m_document->setLayoutEnabled(false);
    if (m_isLeftToRight && added > 0)
        m_meetsRightToLeft = m_meetsRightToLeft || mayRunRightToLeft(*m_document, from, added);
    const int start = qMax(0, from - longestWord);
    m_meetsLongWord = !m_breaksWords && hasLongWord(*m_document, start, from + added + longestWord - start);
    m_losesLongWord =
        m_breaksWords && removed > longestWord && !hasLongWord(*m_document, 0, m_document->characterCount());
    if (m_meetsLongWord || m_losesLongWord)
        m_document->setLayoutEnabled(false);
}

void LongDocuments::afterEdit()
{
    if (m_isLeftToRight && m_meetsRightToLeft) {
        m_isLeftToRight = false;
        setDirection(Qt::LayoutDirectionAuto);
    }
    if (std::exchange(m_meetsLongWord, false))
        setBreaksWords(true);
    if (std::exchange(m_losesLongWord, false))
        setBreaksWords(false);
    if (!m_document->isLayoutEnabled())
        layOutVisible();
}

void LongDocuments::setDirection(Qt::LayoutDirection direction)
{
    QTextOption option = m_document->defaultTextOption();
    option.setTextDirection(direction);
    m_document->setDefaultTextOption(option);
}

void LongDocuments::setBreaksWords(bool isWanted)
{
    m_breaksWords = isWanted;
    QTextOption option = m_document->defaultTextOption();
    option.setWrapMode(isWanted ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_document->setDefaultTextOption(option);
    m_view.setWordWrapMode(option.wrapMode()); // which it gives to each document that it shows
}

/// The layout begins anew. It does not report its size before it has come to what is seen: that would scroll.
void LongDocuments::layOutVisible()
{
    QAbstractTextDocumentLayout *layout = m_document->documentLayout();
    const bool wereBlocked = layout->blockSignals(true);
    m_document->setLayoutEnabled(true);
    const int bottom = m_view.verticalScrollBar()->value() + m_view.viewport()->height();
    layout->hitTest(QPointF(0, bottom), Qt::FuzzyHit);
    layout->blockSignals(wereBlocked);
    const bool isFinished = m_document->lastBlock().layout()->lineCount() > 0;
    if (isFinished) // otherwise it reports the size as it continues
        Q_EMIT layout->documentSizeChanged(layout->documentSize());
    m_view.viewport()->update();
}
