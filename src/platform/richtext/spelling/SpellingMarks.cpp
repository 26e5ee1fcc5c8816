#include "SpellingMarks.h"

#include "EventGate.h"
#include "LongDocuments.h"
#include "Speller.h"
#include "Spellers.h"

#include <QMenu>

namespace {

QTextCharFormat look()
{
    QTextCharFormat look;
    look.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    look.setUnderlineColor(Qt::red);
    return look;
}

} // namespace

SpellingMarks::SpellingMarks(QTextEdit &view, const LongDocuments &documents)
    : m_view(view)
    , m_documents(documents)
{}

void SpellingMarks::setOn(bool on)
{
    if (std::exchange(m_on, on) != on && on)
        ::on(&Spellers::shared(), &Spellers::loaded, &m_view, [this] { m_view.viewport()->update(); });
    m_view.viewport()->update();
}

QList<ViewMarks::Mark> SpellingMarks::visible() const
{
    QList<ViewMarks::Mark> marks;
    if (!m_on || m_view.isReadOnly())
        return marks;
    const auto [first, end] = m_documents.stretchInView();
    const QTextCursor caret = m_view.textCursor();
    for (const auto &misspelling : MisspellingFinder::between(*m_view.document(), first, end)) {
        if (misspelling.end != caret.position() || caret.hasSelection())
            marks.append(ViewMarks::mark(m_view, misspelling.first, misspelling.end, look()));
    }
    return marks;
}

std::optional<MisspellingFinder::Misspelling> SpellingMarks::at(int position) const
{
    if (!m_on || m_view.isReadOnly())
        return std::nullopt;
    for (const auto &misspelling : MisspellingFinder::between(*m_view.document(), position, position)) {
        if (misspelling.first <= position && position <= misspelling.end)
            return misspelling;
    }
    return std::nullopt;
}

void SpellingMarks::addSuggestions(QMenu &menu, int position) const
{
    constexpr int most = 7;
    const auto misspelling = at(position);
    Speller *speller = misspelling ? Spellers::shared().of(misspelling->language) : nullptr;
    if (!speller)
        return;
    QAction *top = menu.actions().value(0);
    for (const QString &word : speller->suggestions(misspelling->word, most)) {
        auto *item = new QAction(QString(word).replace(u'&', QLatin1String("&&")), &menu);
        menu.insertAction(top, item);
        on(item, &QAction::triggered, &m_view, [this, found = *misspelling, word] { replace(found, word); });
    }
    if (menu.actions().value(0) != top)
        menu.insertSeparator(top);
}

/// As one undo step. The word may have changed while the menu was open.
void SpellingMarks::replace(const MisspellingFinder::Misspelling &misspelling, const QString &word) const
{
    QTextCursor cursor = m_view.textCursor();
    cursor.setPosition(qMin(misspelling.end, m_view.document()->characterCount() - 1));
    const QTextCharFormat format = cursor.charFormat();
    cursor.setPosition(qMin(misspelling.first, cursor.position()), QTextCursor::KeepAnchor);
    if (cursor.selectedText() == misspelling.word && !m_view.isReadOnly())
        cursor.insertText(word, format);
}
