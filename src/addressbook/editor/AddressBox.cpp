#include "AddressBox.h"

#include "EventGate.h"

#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr int longest = 100; // characters
constexpr int lines = 4;

} // namespace

AddressBox::AddressBox(QWidget *parent)
    : QPlainTextEdit(parent)
    , m_longest(longest)
{
    setTabChangesFocus(true);
    on(document(), &QTextDocument::contentsChange, this, &AddressBox::contentsChange);
    on(this, &QPlainTextEdit::textChanged, this, &AddressBox::textChanged);
}

void AddressBox::setText(const QString &text)
{
    m_longest = qMax(longest, int(text.size()));
    setPlainText(text);
}

QSize AddressBox::sizeHint() const
{
    const int margins = 2 * (frameWidth() + int(document()->documentMargin()));
    return {QPlainTextEdit::sizeHint().width(), lines * fontMetrics().lineSpacing() + margins};
}

/// Behind the last character Qt's document has a line end of its own.
int AddressBox::length() const
{
    return document()->characterCount() - 1;
}

void AddressBox::contentsChange(int position, int, int added)
{
    m_changeEnd = qMin(position + added, length());
}

/// Takes the end of what has been put in away again, in the same step for undo.
void AddressBox::textChanged()
{
    const int excess = length() - m_longest;
    if (excess <= 0)
        return;
    QTextCursor cursor(document());
    cursor.joinPreviousEditBlock();
    cursor.setPosition(m_changeEnd);
    cursor.setPosition(qMax(m_changeEnd - excess, 0), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.endEditBlock();
}
