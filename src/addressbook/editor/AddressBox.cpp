#include "AddressBox.h"

#include "EventGate.h"
#include "FieldLimits.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr int addressLines = 4;
constexpr int textMargin = 3; // pixels

} // namespace

AddressBox::AddressBox(QWidget *parent)
    : QPlainTextEdit(parent)
    , m_longest(FieldLimits::address)
{
    setTabChangesFocus(true);
    document()->setDocumentMargin(textMargin);
    on(this, &QPlainTextEdit::textChanged, this, &AddressBox::textChanged);
}

void AddressBox::setText(const QString &text)
{
    m_longest = qMax(FieldLimits::address, int(text.size()));
    setPlainText(text);
}

QString AddressBox::text() const
{
    QStringList lines;
    for (QTextBlock line = document()->begin(); line.isValid(); line = line.next())
        lines.append(line.text().replace(QChar::LineSeparator, u'\n'));
    return lines.join(u'\n');
}

int AddressBox::textTop() const
{
    return frameWidth() + textMargin;
}

QSize AddressBox::sizeHint() const
{
    return {QPlainTextEdit::sizeHint().width(), addressLines * fontMetrics().lineSpacing() + 2 * textTop()};
}

/// Behind the last character Qt's document has a line end of its own.
int AddressBox::length() const
{
    return document()->characterCount() - 1;
}

/// Takes the end of what has been put in, where the cursor is, away again, in the same step for undo.
void AddressBox::textChanged()
{
    const int excess = length() - m_longest;
    if (excess <= 0)
        return;
    const int end = textCursor().position() < excess ? length() : textCursor().position();
    const bool isWithinCharacter = document()->characterAt(end - excess).isLowSurrogate();
    QTextCursor cursor(document());
    cursor.joinPreviousEditBlock();
    cursor.setPosition(end);
    cursor.setPosition(end - excess - int(isWithinCharacter), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.endEditBlock();
}
