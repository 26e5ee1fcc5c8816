#include "RtfParser.h"

#include "RtfCodePage.h"
#include "RtfFieldInstruction.h"
#include "RtfGenerator.h"

void RtfParser::beginPart(RtfPart &part, RtfState::End end)
{
    state().part = &part;
    state().end = end;
}

void RtfParser::destination(const RtfToken &token)
{
    switch (token.word) {
    case RtfWord::FontTable:
        m_body.forgetFont();
        m_fonts.begin();
        return beginPart(m_fonts, RtfState::End::FontTable);
    case RtfWord::Generator:
        m_text.begin(RtfCodePage::page(RtfCodePage::standard));
        return beginPart(m_text, RtfState::End::Generator);
    case RtfWord::ColorTable:
        m_colors.begin();
        return beginPart(m_colors, RtfState::End::Nothing);
    case RtfWord::StyleSheet:
        m_styles.begin(*m_fonts.font(RtfCharacterState::standardFont).page);
        return beginPart(m_styles, RtfState::End::StyleSheet);
    case RtfWord::ListTable:
        m_listTable.begin();
        return beginPart(m_listTable, RtfState::End::Nothing);
    case RtfWord::ListOverrideTable:
        m_listOverrides.begin();
        return beginPart(m_listOverrides, RtfState::End::Nothing);
    case RtfWord::Pn:
        m_oldNumbering.begin();
        return beginPart(m_oldNumbering, RtfState::End::OldNumbering);
    case RtfWord::ListText:
    case RtfWord::PnText:
        m_body.beginLabel();
        state().end = RtfState::End::Label;
        break;
    case RtfWord::Footnote:
        return beginNote();
    case RtfWord::Annotation:
        return beginComment();
    case RtfWord::UnicodePair:
        state().isPair = true;
        break;
    case RtfWord::NestedRow:
        state().isNestedRow = true;
        break;
    case RtfWord::Field:
    case RtfWord::FieldInstruction:
    case RtfWord::FieldResult:
        return fieldDestination(token.word);
    case RtfWord::Picture:
    case RtfWord::ShapePicture:
    case RtfWord::NonShapePicture:
        return pictureDestination(token.word);
    case RtfWord::Header:
    case RtfWord::HeaderLeft:
    case RtfWord::HeaderRight:
    case RtfWord::HeaderFirst:
    case RtfWord::Footer:
    case RtfWord::FooterLeft:
    case RtfWord::FooterRight:
    case RtfWord::FooterFirst:
        return beginPageText(token);
    default:
        return shapeDestination(token.word);
    }
}

void RtfParser::fieldDestination(RtfWord word)
{
    if (word == RtfWord::Field) {
        m_fields.emplace_back();
        state().end = RtfState::End::Field;
    } else if (word == RtfWord::FieldInstruction) {
        m_text.begin(*m_fonts.font(RtfCharacterState::standardFont).page);
        beginPart(m_text, RtfState::End::Instruction);
    } else if (!m_fields.empty()) {
        if (m_fields.back().hasResult)
            m_lexer.skipGroup();
        else if (m_fields.back().number != 0)
            state().characters.field = m_fields.back().number;
    }
}

/// Many files have a picture twice, the second time for readers that do not know the first form.
void RtfParser::pictureDestination(RtfWord word)
{
    if (word == RtfWord::Picture) {
        m_picture.begin();
        beginPart(m_picture, RtfState::End::Picture);
    } else if (word == RtfWord::ShapePicture) {
        m_hasShapePicture = false;
    } else if (m_hasShapePicture) {
        m_hasShapePicture = false;
        m_lexer.skipGroup();
    }
}

/// The groups of shapes, objects and formulas that are not named here are transparent: their text is text.
void RtfParser::shapeDestination(RtfWord word)
{
    switch (word) {
    case RtfWord::Shape:
        m_hasShape = false;
        break;
    case RtfWord::ShapeInstance:
        m_hasShape = true;
        break;
    case RtfWord::ShapeResult:
        if (m_hasShape)
            m_lexer.skipGroup();
        break;
    case RtfWord::ShapeText:
    case RtfWord::TextBoxText:
        return beginInsertion();
    case RtfWord::ShapePropertyName:
        m_text.begin(RtfCodePage::page(RtfCodePage::standard));
        return beginPart(m_text, RtfState::End::PropertyName);
    case RtfWord::ShapePropertyValue:
        if (m_propertyName != QLatin1String("pib"))
            m_lexer.skipGroup();
        break;
    default:
        break;
    }
}

void RtfParser::beginInsertion()
{
    if (m_body.beginInsertion())
        beginStory(RtfState::End::Insertion);
}

void RtfParser::beginNote()
{
    if (m_body.beginNote(state().characters))
        beginStory(RtfState::End::Note);
}

void RtfParser::beginComment()
{
    if (m_body.beginComment())
        beginStory(RtfState::End::Comment);
    else
        m_lexer.skipGroup();
}

void RtfParser::beginKept(const RtfToken &token)
{
    const bool isInformation = token.word == RtfWord::Info || token.word == RtfWord::UserProperties;
    m_kept.begin(token, *m_fonts.font(RtfCharacterState::standardFont).page);
    beginPart(m_kept, isInformation ? RtfState::End::Information : RtfState::End::Kept);
}

void RtfParser::beginPageText(const RtfToken &token)
{
    const std::optional<PageTexts::Kind> kind = m_pages.kind(token);
    if (!kind || !m_body.beginPageText()) {
        m_lexer.skipGroup();
        return;
    }
    m_pageText = kind;
    beginStory(RtfState::End::PageText);
}

/// Text of its own has nothing of the look of the text around it.
void RtfParser::beginStory(RtfState::End end)
{
    state().end = end;
    state().characters = RtfCharacterState();
    state().characterSet = 0;
    state().associated = RtfAssociatedLooks();
    state().paragraph = RtfParagraphState();
    state().paragraphSet = 0;
}

/// \a ended is the group that has ended; the state is that of the group around it again.
void RtfParser::end(const RtfState &ended)
{
    switch (ended.end) {
    case RtfState::End::Nothing:
        break;
    case RtfState::End::Generator:
        m_isOurs = m_text.end().startsWith(QLatin1String(RtfGenerator::name));
        break;
    case RtfState::End::FontTable:
        return m_fonts.end();
    case RtfState::End::StyleSheet:
        return m_styles.end();
    case RtfState::End::Label:
        return m_body.endLabel();
    case RtfState::End::OldNumbering:
        state().paragraph.oldNumbering = m_oldNumbering.end();
        break;
    case RtfState::End::Instruction:
        return endInstruction(ended);
    case RtfState::End::Field:
        return endField(ended);
    case RtfState::End::Picture: {
        const QTextImageFormat format = m_picture.end();
        m_hasShapePicture = !format.name().isEmpty();
        return m_body.picture(format, ended.characters);
    }
    case RtfState::End::Note:
        return m_body.endNote(ended);
    case RtfState::End::Insertion:
        return m_body.endInsertion(ended, state());
    case RtfState::End::PageText:
        m_pages.keep(*std::exchange(m_pageText, {}), m_body.endPageText(ended));
        break;
    case RtfState::End::Kept:
        return m_body.addUnseen(m_kept.end());
    case RtfState::End::Information:
        return m_pages.addInformation(m_kept.end());
    case RtfState::End::Comment:
        return m_body.endComment(ended);
    case RtfState::End::PropertyName:
        m_propertyName = m_text.end().trimmed();
        break;
    }
}

void RtfParser::endInstruction(const RtfState &ended)
{
    const QString text = m_text.end();
    const RtfFieldInstruction instruction = RtfFieldInstruction::parse(text);
    if (m_fields.empty())
        return;
    Field &field = m_fields.back();
    if (!instruction.address.isEmpty())
        field.number = m_formats.linkTo(instruction.address);
    else if (m_pageText && instruction.sign < 0)
        field.number = m_formats.fieldOf(text.simplified());
    if (instruction.isPageNumber)
        field.pageNumber = text.simplified();
    field.standIn = standIn(instruction);
    field.place = m_body.place();
    if (instruction.sign < 0)
        return;
    m_body.sign(char16_t(instruction.sign), instruction.font, ended.characters);
    field.hasResult = true;
}

void RtfParser::endField(const RtfState &ended)
{
    const Field field = m_fields.back();
    m_fields.pop_back();
    if (field.place != m_body.place())
        return;
    if (m_pageText && !field.pageNumber.isEmpty())
        return pageNumber(field.pageNumber, ended.characters);
    RtfCharacterState state = ended.characters;
    state.field = field.number;
    for (const QChar c : field.standIn)
        m_body.character(c.unicode(), state);
}

/// What a field shows that has no result.
QString RtfParser::standIn(const RtfFieldInstruction &instruction) const
{
    if (instruction.isFileName)
        return m_fileName;
    if (instruction.fact != RtfWord::Unknown)
        return m_kept.text(instruction.fact);
    return instruction.text;
}

/// A number that a page's own one takes the place of when it is printed.
void RtfParser::pageNumber(const QString &instruction, RtfCharacterState state)
{
    if (!m_pageText)
        return;
    state.field = m_formats.fieldOf(instruction);
    m_body.character(u'1', state);
}
