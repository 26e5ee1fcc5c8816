#include "RtfParser.h"

#include "RtfCodePage.h"

namespace {

constexpr size_t mostStates = 100000; // groups beyond are read, but leave no state to come back to

} // namespace

RtfParser::RtfParser(QByteArrayView bytes, QTextDocument &document, const QString &fileName)
    : m_lexer(bytes)
    , m_fileName(fileName)
    , m_states(1)
    , m_styles(m_rows)
    , m_listOverrides(m_listTable)
    , m_picture(document)
    , m_formats(m_fonts, m_colors, m_rows, m_styles)
    , m_lists(m_listOverrides, m_oldNumbering, m_fonts)
    , m_filler(document, m_formats, m_colors, m_lists)
    , m_pages(document, m_formats, m_colors, m_lists)
    , m_body(m_fonts, m_formats, m_lists, m_filler)
{}

void RtfParser::run()
{
    for (RtfToken token = m_lexer.next(); token.kind != RtfToken::Kind::End && !m_isDone;
         token = m_lexer.next())
        read(token);
    m_deeper = 0;
    while (!m_isDone && m_states.size() > 1)
        close();
    if (!m_isDone)
        m_body.finish(state());
    m_pages.setFontWords(m_fonts.words());
    m_pages.setStyles(m_styles.sheet(m_fonts, m_colors));
    m_pages.finish();
}

void RtfParser::read(const RtfToken &found)
{
    RtfToken token = found;
    if (m_fallback > 0 && skipsFallback(token))
        return;
    switch (token.kind) {
    case RtfToken::Kind::Open:
        return open();
    case RtfToken::Kind::Close:
        return close();
    case RtfToken::Kind::Word:
        token.isStarred = std::exchange(m_isStarred, false);
        return word(token);
    case RtfToken::Kind::Symbol:
        return symbol(token.text.front());
    case RtfToken::Kind::Byte: {
        const char byte = char(token.byte);
        return text(QByteArrayView(&byte, 1));
    }
    case RtfToken::Kind::Text:
        return text(token.text);
    case RtfToken::Kind::End:
        break;
    }
}

/// Passes over the fallback of a \u. A group's end, or another \u, ends that as well.
bool RtfParser::skipsFallback(RtfToken &token)
{
    const bool isUnicode = token.word == RtfWord::Unicode;
    if (token.kind == RtfToken::Kind::Open || token.kind == RtfToken::Kind::Close || isUnicode) {
        m_fallback = 0;
        return false;
    }
    if (token.kind == RtfToken::Kind::Text) {
        const qsizetype count = qMin<qsizetype>(m_fallback, token.text.size());
        m_fallback -= count;
        token.text = token.text.sliced(count);
        return token.text.isEmpty();
    }
    if (token.word == RtfWord::Binary)
        m_lexer.take(token.parameter);
    --m_fallback;
    return true;
}

void RtfParser::open()
{
    m_isStarred = false;
    m_pair.word = RtfWord::Unknown;
    if (m_states.size() >= mostStates) {
        ++m_deeper;
        return;
    }
    const RtfState outer = state();
    m_states.push_back(outer);
    state().end = RtfState::End::Nothing;
    state().isPair = false;
    if (outer.part)
        outer.part->open();
    if (outer.isPair && !m_lexer.startsWith("\\*\\ud") && !m_lexer.startsWith("\\ud"))
        m_lexer.skipGroup();
}

void RtfParser::close()
{
    m_isStarred = false;
    m_pair.word = RtfWord::Unknown;
    if (m_deeper > 0) {
        --m_deeper;
        return;
    }
    constexpr size_t documentGroup = 2;
    m_isDone = m_states.size() <= documentGroup;
    const RtfState ended = state();
    if (m_states.size() > 1) { // fewer where no group was ever opened
        m_states.pop_back();
        if (state().part)
            state().part->close();
    }
    end(ended);
    if (m_isDone)
        m_body.finish(ended);
}

void RtfParser::symbol(char c)
{
    constexpr char16_t noBreakSpace = 0xA0;
    constexpr char16_t softHyphen = 0xAD;
    constexpr char16_t noBreakHyphen = 0x2011;
    switch (c) {
    case '*':
        m_isStarred = true;
        break;
    case '\\':
    case '{':
    case '}':
    case ' ':
    case '\t':
        text(QByteArrayView(&c, 1));
        break;
    case '\r':
    case '\n':
        sign(RtfWord::ParagraphEnd);
        break;
    case '~':
        character(noBreakSpace);
        break;
    case '-':
        character(softHyphen);
        break;
    case '_':
        character(noBreakHyphen);
        break;
    default: // marks of index entries, and what is no symbol
        break;
    }
}

void RtfParser::text(QByteArrayView bytes)
{
    m_pair.word = RtfWord::Unknown;
    if (state().part)
        state().part->bytes(bytes);
    else if (m_states.size() > 1)
        m_body.bytes(bytes, state().associated.look(state().characters));
}

void RtfParser::character(char16_t c)
{
    m_pair.word = RtfWord::Unknown;
    if (state().part)
        state().part->character(c);
    else if (m_states.size() > 1)
        m_body.character(c, state().associated.look(state().characters, c));
}

void RtfParser::word(const RtfToken &token)
{
    const RtfSubject subject = RtfKeywords::subject(token.word);
    const bool isKept = subject == RtfSubject::Kept;
    const bool beginsGroup = isKept || subject == RtfSubject::Destination || subject == RtfSubject::Skipped;
    const bool isStrange =
        token.isStarred && !beginsGroup && (!state().part || token.word == RtfWord::Unknown);
    if (subject == RtfSubject::Skipped || (isKept && state().part) || isStrange ||
        (m_deeper > 0 && beginsGroup)) {
        m_lexer.skipGroup();
        return;
    }
    if (beginsGroup && state().isStory()) // one that did not begin a group: the text has one end alone
        return;
    if (universalWord(token))
        return;
    if (state().part) {
        state().part->word(token);
        return;
    }
    switch (subject) {
    case RtfSubject::Document:
        return documentWord(token);
    case RtfSubject::Destination:
        return destination(token);
    case RtfSubject::Kept:
        return beginKept(token);
    case RtfSubject::Character:
        return characterWord(token);
    case RtfSubject::Paragraph:
        return paragraphWord(token);
    case RtfSubject::Row:
        m_body.row(state()).apply(token);
        break;
    case RtfSubject::Border:
        return borderWord(token);
    case RtfSubject::Page:
        if (token.word == RtfWord::SectionWithoutBreak)
            m_body.setNextBreaksPage(false);
        return m_pages.apply(token);
    case RtfSubject::Sign:
        return sign(token.word);
    case RtfSubject::None:
    case RtfSubject::Skipped:
    case RtfSubject::Detail:
        break;
    }
}

/// What means the same in every group.
bool RtfParser::universalWord(const RtfToken &token)
{
    constexpr int mostFallback = 1000;
    switch (token.word) {
    case RtfWord::Unicode:
        if (token.hasParameter)
            unicode(token.parameter);
        return true;
    case RtfWord::FallbackCount:
        state().fallbackCount = qBound(0, token.parameterOr(1), mostFallback);
        return true;
    case RtfWord::Binary: {
        const QByteArrayView bytes = m_lexer.take(token.parameter);
        if (state().part)
            state().part->binary(bytes);
        return true;
    }
    default:
        return false;
    }
}

/// Numbers are of 16 bits with a sign, but some writers leave the sign out, or the bits in.
void RtfParser::unicode(int value)
{
    constexpr int sixteenBits = 0x10000;
    constexpr int lastUnicode = 0x10FFFF;
    const int code = value < 0 ? value + sixteenBits : value;
    if (code < 0 || code > lastUnicode) {
        character(QChar::ReplacementCharacter);
    } else if (code >= sixteenBits) {
        character(QChar::highSurrogate(char32_t(code)));
        character(QChar::lowSurrogate(char32_t(code)));
    } else {
        character(char16_t(code));
    }
    m_fallback = state().fallbackCount;
}

void RtfParser::documentWord(const RtfToken &token)
{
    switch (token.word) {
    case RtfWord::Ansi:
        return setPage(RtfCodePage::standard);
    case RtfWord::Mac:
        return setPage(10000);
    case RtfWord::Pc:
        return setPage(437);
    case RtfWord::Pca:
        return setPage(850);
    case RtfWord::AnsiCodePage:
        return setPage(token.parameter > 0 ? token.parameter : RtfCodePage::standard);
    case RtfWord::DefaultFont:
        m_body.forgetFont();
        m_fonts.setStandardFont(token.parameter);
        break;
    case RtfWord::RightToLeftRun:
    case RtfWord::LeftToRightRun:
        pairOfRuns(token.word);
        [[fallthrough]];
    default:
        return state().associated.mark(token.word);
    }
}

void RtfParser::setPage(int page)
{
    m_body.forgetFont();
    m_fonts.setStandardPage(page);
}

void RtfParser::pairOfRuns(RtfWord word)
{
    const bool isSecond = m_pair.word != RtfWord::Unknown && m_pair.word != word;
    if (isSecond) {
        state().characters = m_pair.characters;
        state().characterSet = m_pair.characterSet;
    }
    m_pair = {isSecond ? RtfWord::Unknown : word, state().characters, state().characterSet};
}

void RtfParser::characterWord(const RtfToken &token)
{
    RtfState &here = state();
    if (token.word == RtfWord::Plain) {
        const int field = here.characters.field;
        here.characters = RtfCharacterState();
        here.characters.field = field;
        here.characterSet = 0;
        here.associated = RtfAssociatedLooks();
    } else if (token.word == RtfWord::CharacterStyle) {
        const RtfStyleSheet::Style &style = m_styles.style(RtfStyleSheet::Kind::Character, token.parameter);
        here.characters.take(style.characters, style.characterSet);
        here.characterSet |= style.characterSet;
    } else if (!here.associated.apply(token)) {
        const quint32 said = here.characters.apply(token);
        here.characterSet |= said;
        here.associated.overrule(said);
    }
}

/// Leaves of the characters' look what the file itself asked for.
void RtfParser::dropStyle()
{
    state().characters.take(RtfCharacterState(), ~state().characterSet);
}

void RtfParser::paragraphWord(const RtfToken &token)
{
    RtfState &here = state();
    if (token.word == RtfWord::ParagraphDefault) {
        m_body.row(here).leaveBorder();
        here.paragraph = RtfParagraphState();
        here.paragraphSet = 0;
        dropStyle();
    } else if (token.word == RtfWord::ParagraphStyle && m_isOurs) {
        here.paragraph.style = token.parameter;
    } else if (token.word == RtfWord::ParagraphStyle) {
        here.paragraph.style = token.parameter;
        const RtfStyleSheet::Style &style = m_styles.style(RtfStyleSheet::Kind::Paragraph, token.parameter);
        here.paragraph.take(RtfParagraphState(), ~here.paragraphSet);
        here.paragraph.take(style.paragraph, style.paragraphSet & ~here.paragraphSet);
        dropStyle();
        here.characters.take(style.characters, style.characterSet & ~here.characterSet);
    } else {
        here.paragraphSet |= here.paragraph.apply(token, m_rows);
    }
}

/// A row's lines have sides of their own; the words that follow a side are the same for both.
void RtfParser::borderWord(const RtfToken &token)
{
    RtfRowReader &row = m_body.row(state());
    if (RtfBorders::isSide(token))
        row.leaveBorder();
    if (row.isAtBorder())
        row.apply(token);
    else
        paragraphWord(token);
}
