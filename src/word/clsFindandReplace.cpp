#include "clsFindandReplace.h"

#include "Ask.h"
#include "CaretPlacing.h"
#include "EventGate.h"
#include "FindFlag.h"
#include "FrameSign.h"
#include "ReplaceAllPlan.h"
#include "RichTextBox.h"
#include "TextReplacement.h"
#include "dlgFindReplace.h"

#include <QTextDocument>

namespace {

bool isCellEdge(QChar c)
{
    return c == FrameSign::begin || c == FrameSign::end;
}

bool isLineEnd(QChar c)
{
    return c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
}

/// What the plan of a replace-all is made over. The edge of a table's cell is a line end there that no line
/// end in a find text matches: one text cannot take the place of two cells.
QString plannedText(const QTextDocument &document)
{
    QString text = document.toRawText();
    for (QChar &c : text) {
        if (isLineEnd(c))
            c = u'\n';
        else if (isCellEdge(c))
            c = u'\r';
    }
    return text;
}

/// \a text as the document will hold it, one character for each position.
QString withLineFeeds(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar &c : text) {
        if (c == u'\r' || isLineEnd(c) || isCellEdge(c))
            c = u'\n';
    }
    return text;
}

} // namespace

clsFindandReplace::clsFindandReplace(QObject *parent)
    : QObject(parent)
    , m_upDown(FindFlag::Down)
{}

clsFindandReplace::~clsFindandReplace()
{
    if (!m_dialog)
        return;
    m_dialog->disconnect(this);
    m_dialog->close();
}

// ---- The dialog

bool clsFindandReplace::ShowFind(RichTextBox &control)
{
    return open(control, false);
}

bool clsFindandReplace::ShowReplace(RichTextBox &control)
{
    return open(control, true);
}

bool clsFindandReplace::open(RichTextBox &control, bool replaces)
{
    Terminate();
    m_control = &control;
    readText();
    if (m_text.isEmpty())
        return false;
    const int flags = m_wholeWord | m_upDown | m_matchCase | m_showHelp;
    m_dialog = new dlgFindReplace({flags, takeWordAtCaret(), m_replaceText}, replaces, control.window());
    on(m_dialog.data(), &dlgFindReplace::Request, this, &clsFindandReplace::Messages_WMArrival);
    m_dialog->show();
    giveFocus();
    return true;
}

QString clsFindandReplace::takeWordAtCaret()
{
    giveFocus();
    const QTextCursor selection = m_control->textCursor();
    const TextSearch::Word word =
        TextSearch::wordAt(m_text, selection.selectionStart(), selection.selectionEnd());
    if (!selection.hasSelection())
        select(word.start, word.end);
    return word.text;
}

dlgFindReplace *clsFindandReplace::hWndDialog() const
{
    return m_dialog;
}

void clsFindandReplace::Terminate()
{
    if (m_dialog)
        m_dialog->close();
}

void clsFindandReplace::terminated()
{
    m_dialog = nullptr;
    m_text.clear(); // no search asks for it before it is read again
    Q_EMIT Terminated();
}

// ---- What the dialog asks for

void clsFindandReplace::Messages_WMArrival(const FindRequest &request)
{
    if (request.flags & FindFlag::DialogTerm) {
        terminated();
        return;
    }
    if (request.flags & FindFlag::ShowHelp || !m_control)
        return;
    m_replaceText = request.replaceText;
    if (request.flags & FindFlag::FindNext)
        finishCommand(findNext(request));
    else if (request.flags & FindFlag::Replace)
        finishCommand(replace(request));
    else if (request.flags & FindFlag::ReplaceAll)
        replaceAll(request);
}

void clsFindandReplace::FindAgain(RichTextBox &control, int upDown)
{
    if (m_lastFind.findText.isEmpty()) {
        open(control, !control.Locked());
        return;
    }
    m_control = &control;
    const QString textOfDialog = std::exchange(m_text, control.Text());
    m_lastFind.flags = (m_lastFind.flags & ~FindFlag::Down) | upDown;
    const Outcome outcome = findNext(FindRequest(m_lastFind));
    m_text = textOfDialog;
    finishCommand(outcome);
}

clsFindandReplace::Outcome clsFindandReplace::findNext(const FindRequest &request)
{
    m_lastFind = request;
    const auto hit = search(request);
    bool cancel = false;
    Q_EMIT FoundNext(hit.has_value(), hit ? hit->position : 0, request.findText, cancel);
    return hit || cancel ? Outcome::Handled : Outcome::NotFound;
}

clsFindandReplace::Outcome clsFindandReplace::replace(const FindRequest &request)
{
    if (!hasSelection())
        return Outcome::Handled;
    bool cancel = false;
    Q_EMIT BeforeReplace(m_control->SelStart() + 1, request.findText, request.replaceText, cancel);
    if (!cancel)
        replaceSelection(request.replaceText);
    readText();
    return m_text.isEmpty() ? Outcome::TextIsEmpty : findNext(request);
}

void clsFindandReplace::replaceAll(const FindRequest &request)
{
    bool cancel = false;
    Q_EMIT BeforeReplaceAll(request.findText, request.replaceText, cancel);
    if (!cancel && hasSelection() && !m_control->Locked()) {
        replaceAllHits(request);
        readText();
    }
    giveFocus();
}

void clsFindandReplace::finishCommand(Outcome outcome)
{
    if (outcome == Outcome::TextIsEmpty)
        return;
    if (outcome == Outcome::NotFound)
        Ask(QStringLiteral("Search Complete."));
    giveFocus();
    Q_EMIT CommandDone();
}

// ---- Steps on the control

void clsFindandReplace::readText()
{
    m_text = m_control->Text();
}

bool clsFindandReplace::hasSelection() const
{
    return m_control->textCursor().hasSelection();
}

void clsFindandReplace::giveFocus()
{
    if (!m_control)
        return;
    m_control->activateWindow();
    m_control->setFocus();
}

/// A \a start before the text's beginning, which is that of a refused hit, leaves the caret at \a end.
void clsFindandReplace::select(int start, int end)
{
    const int last =
        m_control->document()->characterCount() - 1; // the text may have shrunk since it was read
    QTextCursor cursor = m_control->textCursor();
    cursor.setPosition(qMin(start < 0 ? end : start, last));
    cursor.setPosition(qMin(end, last), QTextCursor::KeepAnchor);
    m_control->setTextCursor(cursor);
}

std::optional<TextSearch::Hit> clsFindandReplace::search(const FindRequest &request)
{
    const QTextCursor selection = m_control->textCursor();
    const auto hit = TextSearch::find(m_text, selection.selectionStart(), selection.selectionEnd(),
                                      request.findText, request.flags);
    if (hit) {
        select(hit->position - 1, hit->end);
        giveFocus();
    }
    return hit;
}

void clsFindandReplace::replaceSelection(const QString &text)
{
    if (m_control->Locked())
        return;
    QTextCursor cursor = m_control->textCursor();
    TextReplacement::replace(cursor, withLineFeeds(text));
    m_control->setTextCursor(cursor);
}

void clsFindandReplace::replaceAllHits(const FindRequest &request)
{
    const QString replacement = withLineFeeds(request.replaceText);
    QTextCursor cursor = m_control->textCursor();
    cursor.beginEditBlock();
    TextReplacement::replace(cursor, replacement);
    const int end = cursor.position();
    const int start = qMax(0, end - int(replacement.size()));
    const auto steps = ReplaceAllPlan::after(plannedText(*m_control->document()), start, end,
                                             request.findText, replacement, request.flags);
    const int lastEnd =
        steps.positions.isEmpty() ? end : steps.positions.constLast() + int(replacement.size());
    TextReplacement::replaceEach(cursor, steps.positions, int(request.findText.size()), replacement);
    cursor.setPosition(steps.refused.value_or(lastEnd)); // behind the block's end it would need a layout
    cursor.endEditBlock();
    CaretPlacing::set(*m_control, cursor);
}
