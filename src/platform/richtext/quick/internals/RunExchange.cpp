#include "RunExchange.h"

#include "TreeWalk.h"

#include <private/qtextdocument_p.h>
#include <private/qtextengine_p.h>

namespace {

/// Exchanges one run after the other, down the document.
class Exchanger
{
public:
    explicit Exchanger(QTextDocumentPrivate &document)
        : m_runs(document.fragmentMap())
        , m_paragraphs(document.blockMap())
        , m_walk(m_runs)
        , m_paragraphWalk(m_paragraphs)
    {}

    void exchange(const RunExchange::Run &run);

private:
    uint nodeOf(const RunExchange::Run &run);
    uint joinedNodeOf(const RunExchange::Run &run);
    void split(int position);
    void growParagraph(int position, int growth);

    QTextDocumentPrivate::FragmentMap &m_runs;
    QTextDocumentPrivate::BlockMap &m_paragraphs;
    TreeWalk<QTextDocumentPrivate::FragmentMap> m_walk;
    TreeWalk<QTextDocumentPrivate::BlockMap> m_paragraphWalk;
};

void Exchanger::exchange(const RunExchange::Run &run)
{
    uint node = run.text.length > 0 ? nodeOf(run) : 0;
    if (node != 0 && run.other.length > 0) {
        m_runs.setSize(node, run.other.length);
    } else {
        m_walk.forget();
        if (node != 0)
            m_runs.erase_single(node);
        if (run.other.length > 0)
            node = m_runs.insert_single(run.position, uint(run.other.length));
    }
    if (run.other.length > 0) {
        m_runs.fragment(node)->stringPosition = run.other.start;
        m_runs.fragment(node)->format = run.format;
    }
    growParagraph(run.position, run.other.length - run.text.length);
}

uint Exchanger::nodeOf(const RunExchange::Run &run)
{
    const uint node = m_walk.nodeAt(run.position);
    const bool isWhole = m_walk.start() == run.position && m_walk.size() == run.text.length;
    return isWhole ? node : joinedNodeOf(run);
}

/// What was done and undone to the text in between may have cut the run, or joined it with its neighbours.
uint Exchanger::joinedNodeOf(const RunExchange::Run &run)
{
    split(run.position);
    split(run.position + run.text.length);
    const uint node = m_runs.findNode(run.position);
    while (m_runs.size(node) < uint(run.text.length)) {
        const uint next = m_runs.next(node);
        const uint length = m_runs.size(node) + m_runs.size(next);
        m_runs.erase_single(next);
        m_runs.setSize(node, int(length));
    }
    return node;
}

void Exchanger::split(int position)
{
    const uint node = m_runs.findNode(position);
    const int before = position - int(m_runs.position(node));
    if (before == 0)
        return;
    const int behind = int(m_runs.size(node)) - before;
    m_runs.setSize(node, before);
    QTextFragmentData &second = *m_runs.fragment(m_runs.insert_single(position, uint(behind)));
    second.stringPosition = m_runs.fragment(node)->stringPosition + before;
    second.format = m_runs.fragment(node)->format;
}

/// As QFragmentMap::setSize does, which cannot be linked for paragraphs.
void Exchanger::growParagraph(int position, int growth)
{
    uint node = m_paragraphWalk.nodeAt(position);
    QTextBlockData &paragraph = *m_paragraphs.fragment(node);
    if (paragraph.layout)
        paragraph.layout->engine()->invalidate(); // it holds a copy of the text
    paragraph.size_array[0] += uint(growth);
    while (const uint parent = m_paragraphs.fragment(node)->parent) {
        if (m_paragraphs.fragment(parent)->left == node)
            m_paragraphs.fragment(parent)->size_left_array[0] += uint(growth);
        node = parent;
    }
}

} // namespace

RunExchange::RunExchange(QTextDocumentPrivate &document, const QList<Run> &runs)
    : m_document(document)
    , m_runs(runs)
{}

void RunExchange::exchange()
{
    Exchanger exchanger(m_document);
    int growth = 0;
    for (Run &run : m_runs) {
        run.position += growth;
        growth += run.other.length - run.text.length;
        exchanger.exchange(run);
        std::swap(run.text, run.other);
    }
    const int start = m_runs.constFirst().position;
    m_document.documentChange(start, m_runs.constLast().position + m_runs.constLast().text.length - start);
}
