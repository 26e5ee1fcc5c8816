#include "RtfBody.h"

#include "FrameSign.h"
#include "RtfCodePage.h"
#include "RtfTable.h"

#include <algorithm>

namespace {

constexpr size_t mostStories = 8; // open inside each other
constexpr int enoughText = 1 << 17;
constexpr size_t enoughItems = 1 << 12;

/// What would be a mark of its own to the document becomes something harmless.
char16_t harmless(char16_t c)
{
    switch (c) {
    case u'\t':
        return c;
    case u'\n':
    case u'\v':
    case QChar::ParagraphSeparator:
        return QChar::LineSeparator;
    case QChar::ObjectReplacementCharacter:
    case FrameSign::begin:
    case FrameSign::end:
        return QChar::ReplacementCharacter;
    default:
        return c < u' ' ? char16_t(QChar::ReplacementCharacter) : c;
    }
}

/// How many tables are inside each other.
int depthOf(const RtfFlow &flow)
{
    int depth = 0;
    for (const std::unique_ptr<RtfTable> &table : flow.tables)
        depth = std::max(depth, 1 + depthOf(table->flow));
    return depth;
}

} // namespace

RtfBody::RtfBody(const RtfFontTable &fonts, RtfFormats &formats, RtfLists &lists, RtfDocumentFiller &filler)
    : m_fonts(fonts)
    , m_formats(formats)
    , m_lists(lists)
    , m_filler(filler)
    , m_stories(1)
{}

void RtfBody::select(const RtfCharacterState &state)
{
    if (m_font && state == m_selected)
        return;
    flushBytes();
    m_selected = state;
    m_format = m_formats.number(state);
    m_font = &m_fonts.font(state.font);
}

void RtfBody::forgetFont()
{
    flushBytes();
    m_font = nullptr;
}

bool RtfBody::takes(const RtfCharacterState &state)
{
    return state.isShown() || (state.isHidden() && !builder().isLabel());
}

/// Where text in the selected format goes.
RtfFlow &RtfBody::selected()
{
    return m_selected.isHidden() ? m_stories.back().hidden : builder().paragraph();
}

void RtfBody::startText(const RtfCharacterState &state)
{
    Story &story = m_stories.back();
    if (story.owesNumber && state.isShown()) {
        story.owesNumber = false;
        number(story.count, story.note, state);
        character(u' ', state);
    }
    select(state);
}

void RtfBody::bytes(QByteArrayView bytes, const RtfCharacterState &state)
{
    if (!takes(state))
        return;
    startText(state);
    if (m_font->page->isMultiByte()) {
        m_bytes.append(bytes);
        return;
    }
    QString &text = selected().text;
    const qsizetype start = text.size();
    m_font->page->append(text, bytes);
    endRun(start);
}

void RtfBody::flushBytes()
{
    if (m_bytes.isEmpty())
        return;
    QString &text = selected().text;
    const qsizetype start = text.size();
    m_font->page->append(text, m_bytes);
    m_bytes.clear();
    for (qsizetype i = start; i < text.size(); ++i)
        text[i] = QChar(harmless(text.at(i).unicode()));
    endRun(start);
}

/// The text from \a start on is new, and in the selected format.
void RtfBody::endRun(qsizetype start)
{
    RtfFlow &paragraph = selected();
    QString &text = paragraph.text;
    if (text.size() == start)
        return;
    if (m_font->signs != RtfSymbolFont::Kind::None) {
        for (qsizetype i = start; i < text.size(); ++i)
            text[i] = QChar(RtfSymbolFont::character(m_font->signs, text.at(i).unicode()));
    }
    paragraph.endRun(m_selected.isHidden() ? m_format : withUnseen(m_format));
}

void RtfBody::character(char16_t c, const RtfCharacterState &state)
{
    if (!takes(state) || c == u'\r') // of a line's end only the feed is one
        return;
    startText(state);
    flushBytes();
    m_hasSurrogates = m_hasSurrogates || QChar::isSurrogate(c);
    QString &text = selected().text;
    text.append(QChar(c == QChar::LineSeparator ? c : harmless(c)));
    endRun(text.size() - 1);
}

void RtfBody::sign(char16_t place, const QString &font, const RtfCharacterState &state)
{
    const RtfSymbolFont::Kind kind = RtfSymbolFont::kind(font, false);
    const char byte = char(place);
    QString text;
    if (kind != RtfSymbolFont::Kind::None)
        text = QChar(RtfSymbolFont::character(kind, place));
    else if (place <= 0xFF)
        RtfCodePage::page(RtfCodePage::standard).append(text, QByteArrayView(&byte, 1));
    else
        text = QChar(place);
    for (const QChar c : std::as_const(text))
        character(c.unicode(), state);
}

void RtfBody::picture(const QTextImageFormat &format, const RtfCharacterState &state)
{
    if (!takes(state) || format.name().isEmpty())
        return;
    startText(state);
    flushBytes();
    const int number = m_formats.addPicture(format, state);
    selected().addText(QString(QChar::ObjectReplacementCharacter),
                       m_selected.isHidden() ? number : withUnseen(number));
}

bool RtfBody::hasText()
{
    flushBytes();
    return builder().hasText();
}

void RtfBody::replaceLoneSurrogates()
{
    QString &text = builder().paragraph().text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
    m_hasSurrogates = m_stories.size() > 1; // the text around it may have one as well
}

void RtfBody::addParagraph(const RtfState &state, int depth)
{
    flushBytes();
    if (m_hasSurrogates)
        replaceLoneSurrogates();
    m_stories.back().behindMark = -1;

    RtfParagraphState paragraph = state.paragraph;
    // Some writers keep the group of the mark open until the item ends, and describe the mark nowhere.
    if (builder().isLabel() && builder().splitLabel() && !m_lists.mark(paragraph))
        paragraph.oldNumbering = m_lists.bullet();
    const RtfListLevel *mark = m_lists.mark(paragraph);
    if (mark && mark->hasIndents) {
        if ((state.paragraphSet & RtfParagraphState::LeftIndent) == 0)
            paragraph.left = mark->left;
        if ((state.paragraphSet & RtfParagraphState::FirstLine) == 0)
            paragraph.firstLine = mark->firstLine;
    }
    if (m_breaksPage)
        paragraph.breaksPage = 1;
    m_breaksPage = false;
    if (m_stories.size() == 1)
        paragraph.section = std::exchange(m_section, 0);
    if (const Story *around = note()) {
        paragraph.note = around->note;
        paragraph.isNoteAtEnd = around->isNoteAtEnd;
    }

    RtfCharacterState end = state.characters;
    end.field = 0;
    RtfFlow::Item item;
    item.list = m_lists.next(paragraph);
    item.format = m_formats.number(paragraph, item.list >= 0);
    item.markFormat = withUnseen(m_formats.number(end));
    builder().endParagraph(depth, item, item.list < 0);
    drain();
}

/// The document takes over what is complete, so that a large file is not held twice.
void RtfBody::drain()
{
    RtfFlow &flow = builder().flow();
    const bool isEnough = flow.text.size() > enoughText || flow.items.size() > enoughItems;
    if (m_stories.size() > 1 || builder().isInTable() || !isEnough)
        return;
    m_filler.append(flow);
    flow.clear();
    m_isBegun = true;
}

void RtfBody::endParagraph(const RtfState &state)
{
    if (state.characters.isShown())
        addParagraph(state, state.paragraph.depth());
    else if (takes(state.characters)) // it is one with the next
        endHiddenParagraph(state.characters);
}

void RtfBody::breakPage(const RtfState &state)
{
    if (hasText())
        addParagraph(state, state.paragraph.depth());
    m_breaksPage = true;
}

void RtfBody::beginSection(const RtfState &state, int section)
{
    breakPage(state);
    if (m_stories.size() == 1)
        builder().finish();
    m_section = section;
}

RtfRowReader &RtfBody::row(const RtfState &state)
{
    return builder().row(state.isNestedRow ? 2 : 1);
}

void RtfBody::endCell(const RtfState &state, bool isNested)
{
    const int depth = isNested ? qMax(2, state.paragraph.depth()) : 1;
    const bool isKnown = builder().isInTable() || builder().row(depth).isDescribed();
    if (!isKnown && state.paragraph.depth() == 0) {
        addParagraph(state, 0);
        return;
    }
    addParagraph(state, depth);
    builder().endCell(depth);
}

void RtfBody::endRow(const RtfState &state)
{
    const int depth = state.isNestedRow ? qMax(2, state.paragraph.depth()) : 1;
    if (hasText())
        addParagraph(state, depth);
    builder().endRow(depth);
}

void RtfBody::setLabel(bool isLabel)
{
    flushBytes();
    builder().setLabel(isLabel);
}

/// What is not shown before an insertion comes before its text.
bool RtfBody::beginInsertion()
{
    flushBytes();
    if (m_stories.size() >= mostStories)
        return false;
    const Unseen::Pieces before = takeUnseen();
    beginStory();
    m_stories.back().unseen = before;
    return true;
}

void RtfBody::beginStory()
{
    m_stories.emplace_back();
    m_stories.back().breaksPage = std::exchange(m_breaksPage, false);
}

void RtfBody::endText(const RtfState &inside)
{
    if (hasText())
        addParagraph(inside, inside.paragraph.depth());
    builder().finish();
    keepRest(builder().flow());
    m_breaksPage = m_stories.back().breaksPage;
}

RtfFlow RtfBody::takeStory()
{
    RtfFlow flow = std::move(builder().flow());
    m_stories.pop_back();
    return flow;
}

/// Of a story that nothing follows: what is not shown behind its last table gets a paragraph.
RtfFlow RtfBody::endStory(const RtfState &inside)
{
    endText(inside);
    if (hasUnseen())
        addParagraph(inside, 0);
    return takeStory();
}

bool RtfBody::beginPageText()
{
    flushBytes();
    if (m_stories.size() > 1)
        return false;
    beginStory();
    return true;
}

RtfFlow RtfBody::endPageText(const RtfState &inside)
{
    return endStory(inside);
}

qsizetype RtfBody::place()
{
    flushBytes();
    return builder().paragraph().text.size();
}

void RtfBody::endInsertion(const RtfState &inside, const RtfState &outside)
{
    endText(inside);
    const Unseen::Pieces rest = takeUnseen();
    RtfFlow flow = takeStory();
    const int depth = outside.paragraph.depth();
    if (hasText())
        addParagraph(outside, depth);
    const int deepest = std::max(0, RtfParagraphState::deepestTable - depthOf(flow));
    builder().append(std::min(depth, deepest), std::move(flow));
    endHidden();
    m_stories.back().unseen.append(rest);
}

/// Text in raised letters right before a note is the note's own mark, unless it is the mark of another.
bool RtfBody::followsMark() const
{
    const RtfFlow &paragraph = m_stories.back().builder.paragraph();
    return !paragraph.runs.empty() && paragraph.text.size() != m_stories.back().behindMark &&
           m_formats.characters(paragraph.runs.back().format).verticalAlignment() ==
               QTextCharFormat::AlignSuperScript;
}

void RtfBody::endHiddenParagraph(const RtfCharacterState &state)
{
    select(state);
    flushBytes();
    selected().text.append(QChar::ParagraphSeparator);
    selected().endRun(m_format);
}

/// Hidden text that ends here becomes one piece.
void RtfBody::endHidden()
{
    RtfFlow &hidden = m_stories.back().hidden;
    if (hidden.text.isEmpty())
        return;
    keep({"{\\v", runsOf(hidden), "}"});
    hidden.clear();
}

void RtfBody::keep(const Unseen::Piece &piece)
{
    m_stories.back().unseen.append(std::make_shared<const Unseen::Piece>(piece));
}

/// The text of paragraphs, without what is in their tables.
QList<Unseen::Run> RtfBody::runsOf(const RtfFlow &flow) const
{
    QList<Unseen::Run> runs;
    int start = 0;
    size_t item = 0;
    const auto endParagraphs = [&] {
        for (; item < flow.items.size() && flow.items[item].textEnd <= start; ++item) {
            const QTextCharFormat mark = m_formats.characters(flow.items[item].markFormat);
            const bool isLast = item + 1 == flow.items.size();
            const bool isEmpty = item > 0 && flow.items[item].textEnd == flow.items[item - 1].textEnd;
            const bool isEndOfText = isLast && !isEmpty; // an empty last one would not be seen
            const QString end = isEndOfText ? QString() : QString(QChar::ParagraphSeparator);
            if (Unseen::isIn(mark) || runs.isEmpty())
                runs.append({end, mark});
            else
                runs.last().text.append(end);
        }
    };
    endParagraphs();
    for (const RtfFlow::Run &run : flow.runs) {
        runs.append({flow.text.mid(start, run.end - start), m_formats.characters(run.format)});
        start = run.end;
        endParagraphs();
    }
    return runs;
}

Unseen::Pieces RtfBody::takeUnseen()
{
    endHidden();
    return std::exchange(m_stories.back().unseen, {});
}

/// \a format with what is not shown before the text that it is for.
int RtfBody::withUnseen(int format)
{
    return hasUnseen() ? m_formats.addUnseen(format, takeUnseen()) : format;
}

/// What is not shown behind the last paragraph goes with its end.
void RtfBody::keepRest(RtfFlow &flow)
{
    if (!hasUnseen() || flow.isEmpty() || flow.items.back().table >= 0)
        return;
    int &format = flow.items.back().markFormat;
    format = m_formats.addUnseen(format, Unseen::of(m_formats.characters(format)) + takeUnseen());
}

void RtfBody::addUnseen(const QByteArray &group)
{
    flushBytes();
    Story &story = m_stories.back();
    if (story.isComment) {
        story.groups.append(group);
    } else {
        endHidden();
        keep({group, {}, {}});
    }
}

bool RtfBody::beginComment()
{
    flushBytes();
    if (m_stories.size() >= mostStories)
        return false;
    beginStory();
    m_stories.back().isComment = true;
    return true;
}

void RtfBody::endComment(const RtfState &state)
{
    const QByteArray groups = m_stories.back().groups;
    const RtfFlow flow = endStory(state);
    endHidden();
    keep({"\\chatn{\\*\\annotation" + groups + "\\pard\\plain", runsOf(flow), "}"});
}

bool RtfBody::beginNote(const RtfCharacterState &state)
{
    flushBytes();
    if (m_stories.size() >= mostStories)
        return false;
    const bool hasReference = std::exchange(m_stories.back().hasReference, false);
    const bool hasOwnMark = !hasReference && followsMark();
    m_notes.emplace_back();
    const int noteNumber = int(m_notes.size());
    if (!hasOwnMark)
        ++m_noteCount;
    if (!hasOwnMark && !hasReference)
        number(m_noteCount, noteNumber, state);
    if (hasOwnMark) {
        int &mark = builder().paragraph().runs.back().format;
        mark = m_formats.addMark(mark, noteNumber);
        m_stories.back().behindMark = builder().paragraph().text.size();
    }
    Story note;
    note.note = noteNumber;
    note.count = hasOwnMark ? 0 : m_noteCount;
    note.owesNumber = !hasOwnMark;
    m_stories.push_back(std::move(note));
    return true;
}

/// A note begins and ends with a paragraph, which tables alone do not have: there it is found again, and what
/// is not shown has its place.
void RtfBody::endNote(const RtfState &state)
{
    startText(state.characters);
    RtfFlow &flow = builder().flow();
    if (hasText() || flow.isEmpty())
        addParagraph(state, state.paragraph.depth());
    builder().finish();
    if (flow.items.back().table >= 0)
        addParagraph(state, 0);
    if (flow.items.front().table >= 0) {
        RtfFlow::Item first = flow.items.back();
        first.textEnd = first.runsEnd = 0;
        first.list = -1;
        flow.items.insert(flow.items.begin(), first);
    }
    keepRest(builder().flow());
    const size_t note = size_t(m_stories.back().note);
    m_notes[note - 1] = takeStory();
}

void RtfBody::noteReference(const RtfCharacterState &state)
{
    Story &story = m_stories.back();
    if (!state.isShown())
        return;
    story.owesNumber = false;
    story.hasReference = story.note == 0;
    if (story.note == 0)
        number(m_noteCount + 1, int(m_notes.size()) + 1, state);
    else if (story.count > 0)
        number(story.count, story.note, state);
}

/// The note whose text is being read, if only in a shape there; null outside of notes.
const RtfBody::Story *RtfBody::note() const
{
    const auto story =
        std::find_if(m_stories.rbegin(), m_stories.rend(), [](const Story &one) { return one.note != 0; });
    return story == m_stories.rend() ? nullptr : &*story;
}

void RtfBody::setNoteAtEnd()
{
    m_stories.back().isNoteAtEnd = m_stories.back().note != 0;
}

void RtfBody::number(int number, int note, const RtfCharacterState &state)
{
    RtfCharacterState raised = state;
    raised.script = RtfCharacterState::Superscript;
    raised.shift = 0;
    raised.note = note;
    raised.noteCount = number;
    const QByteArray digits = QByteArray::number(number);
    for (const char digit : digits)
        character(char16_t(digit), raised);
    m_stories.back().behindMark = builder().paragraph().text.size();
}

void RtfBody::finish(const RtfState &state)
{
    RtfFlow &flow = builder().flow();
    const bool isEmpty = !m_isBegun && flow.isEmpty() && !builder().isInTable() && m_notes.empty();
    if (hasText() || isEmpty)
        addParagraph(state, state.paragraph.depth());
    builder().finish();
    keepRest(flow);
    const bool endsInTable = !flow.isEmpty() && flow.items.back().table >= 0;
    if (hasUnseen() && endsInTable && !m_notes.empty())
        addParagraph(state, 0);
    m_filler.append(flow);
    flow.clear();
    if (hasUnseen()) // behind a table that ends the document, or behind a paragraph that it has already
        m_filler.addUnseen(takeUnseen());
    for (const RtfFlow &note : m_notes)
        m_filler.append(note);
}
