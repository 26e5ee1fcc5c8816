#include "RunEdits.h"

#include <memory>

namespace {

/// Of a run that no text has, so that Qt does not join it with its neighbour.
int formatOfItsOwn(QTextDocumentPrivate &document)
{
    QTextCharFormat format;
    format.setProperty(QTextFormat::UserProperty, true);
    return document.formatCollection()->indexForFormat(format);
}

} // namespace

RunEdits::RunEdits(QTextDocument &document)
    : m_document(*QTextDocumentPrivate::get(&document))
    , m_walk(m_document.fragmentMap())
{}

bool RunEdits::replace(int position, int length, const QString &text)
{
    const bool isInLast = !m_runs.isEmpty() &&
                          position + length <= m_runs.constLast().position + m_runs.constLast().text.length;
    if (!isInLast && !beginRun(position, length))
        return false;
    const RunExchange::Run &run = m_runs.constLast();
    const int copiedTo = run.position + m_copied;
    m_texts += QStringView(m_document.buffer()).mid(run.text.start + m_copied, position - copiedTo);
    m_texts += text;
    m_copied = position + length - run.position;
    return true;
}

/// Of a long run only what is replaced is exchanged: to copy it all would cost more than to cut it.
bool RunEdits::beginRun(int position, int length)
{
    constexpr int longest = 1000; // characters
    const QTextFragmentData &found = *m_document.fragmentMap().fragment(m_walk.nodeAt(position));
    const int start = m_walk.start();
    const int size = m_walk.size();
    if (position + length > start + size || !isText(found.stringPosition, found.format))
        return false;
    endRun();
    RunExchange::Run run{start, found.format, {found.stringPosition, size}, {int(m_texts.size()), 0}};
    if (size > longest) {
        run.position = position;
        run.text = {found.stringPosition + position - start, length};
    }
    m_runs.append(run);
    m_copied = 0;
    return true;
}

/// Neither a picture nor the end of a line. \a position is one of the buffer.
bool RunEdits::isText(int position, int format)
{
    if (m_document.buffer().at(position).category() == QChar::Separator_Paragraph)
        return false;
    if (format != m_textFormat &&
        m_document.formatCollection()->format(format).objectType() == QTextFormat::NoObject)
        m_textFormat = format;
    return format == m_textFormat;
}

void RunEdits::endRun()
{
    if (m_runs.isEmpty())
        return;
    RunExchange::Run &run = m_runs.last();
    m_texts += QStringView(m_document.buffer()).mid(run.text.start + m_copied, run.text.length - m_copied);
    run.other.length = int(m_texts.size()) - run.other.start;
}

/// The new texts are put in behind the last run; then the runs take them over, and what was put in becomes as
/// long as the old texts are; then that is taken out. So the exchange keeps the length of the text, and the
/// cursors and the layout hear of the rest from Qt.
void RunEdits::apply()
{
    endRun();
    if (m_runs.isEmpty())
        return;
    const int end = m_runs.constLast().position + m_runs.constLast().text.length;
    const int format = formatOfItsOwn(m_document);
    const int start = putInTexts(end, format);
    int oldLength = 0;
    for (RunExchange::Run &run : m_runs) {
        run.other.start += start;
        oldLength += run.text.length;
    }
    const auto newLength = int(m_texts.size());
    m_runs.append({end, format, {start, newLength}, {0, oldLength}});
    auto exchange = std::make_unique<RunExchange>(m_document, m_runs);
    exchange->redo();
    m_document.appendUndoItem(exchange.release());
    m_document.remove(end + newLength - oldLength, oldLength);
}

/// Returns where the texts start in the document's buffer.
int RunEdits::putInTexts(int position, int format)
{
    if (m_texts.isEmpty())
        return 0;
    m_document.insert(position, m_texts, format);
    return m_document.find(position)->stringPosition;
}
