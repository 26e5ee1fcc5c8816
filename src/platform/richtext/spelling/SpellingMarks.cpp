#include "SpellingMarks.h"

#include "EventGate.h"
#include "LongDocuments.h"
#include "Speller.h"
#include "Spellers.h"

#include <QMenu>
#include <QScreen>

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
{
    ::on(&Spellers::shared(), &Spellers::changed, &m_view, [this] {
        forget();
        m_view.viewport()->update();
    });
}

void SpellingMarks::setOn(bool on)
{
    m_on = on;
    m_view.viewport()->update();
}

QList<ViewMarks::Mark> SpellingMarks::visible() const
{
    QList<ViewMarks::Mark> marks;
    if (!m_on || m_view.isReadOnly())
        return marks;
    const QTextCursor caret = m_view.textCursor();
    for (const auto &misspelling : inView()) {
        if (misspelling.end != caret.position() || caret.hasSelection())
            marks.append(ViewMarks::mark(m_view, misspelling.first, misspelling.end, look()));
    }
    return marks;
}

const QList<MisspellingFinder::Misspelling> &SpellingMarks::inView() const
{
    const QTextDocument &document = *m_view.document();
    const std::pair<int, int> stretch = m_documents.stretchInView();
    if (!m_known || m_known->revision != document.revision() || m_known->stretch != stretch)
        m_known = Known{document.revision(), stretch,
                        MisspellingFinder::between(document, stretch.first, stretch.second)};
    return m_known->misspellings;
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

void SpellingMarks::addSuggestions(QMenu &menu, int position)
{
    constexpr int most = 7;
    const auto misspelling = at(position);
    Speller *speller = misspelling ? Spellers::shared().of(misspelling->language) : nullptr;
    if (speller)
        Spellers::shared().suggest(*speller, misspelling->word, most, menu,
                                   [this, found = *misspelling, &menu](const QStringList &words) {
                                       if (!words.isEmpty())
                                           insert(found, words, menu);
                                   });
}

void SpellingMarks::insert(const MisspellingFinder::Misspelling &misspelling, const QStringList &words,
                           QMenu &menu) const
{
    const int end = menu.screen()->availableGeometry().bottom() + 1;
    const bool isPointedAt = menu.activeAction() != nullptr;
    QAction *separator = menu.insertSeparator(isPointedAt ? nullptr : menu.actions().value(0));
    for (const QString &word : words) {
        auto *item = new QAction(QString(word).replace(u'&', QLatin1String("&&")), &menu);
        menu.insertAction(isPointedAt ? nullptr : separator, item);
        ::on(item, &QAction::triggered, &m_view, [this, misspelling, word] { replace(misspelling, word); });
        if (isPointedAt && menu.y() + menu.sizeHint().height() > end) {
            delete item; // it would move the menu
            break;
        }
    }
    menu.move(menu.x(), qMin(menu.y(), end - menu.sizeHint().height()));
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
