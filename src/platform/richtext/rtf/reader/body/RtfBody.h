#pragma once

#include "RtfDocumentFiller.h"
#include "RtfFlowBuilder.h"
#include "RtfFontTable.h"
#include "RtfFormats.h"
#include "RtfLists.h"
#include "RtfState.h"

#include <vector>

/// The text of the document: characters into runs, runs into paragraphs, notes behind the end.
class RtfBody
{
public:
    RtfBody(const RtfFontTable &fonts, RtfFormats &formats, RtfLists &lists, RtfDocumentFiller &filler);

    void bytes(QByteArrayView bytes, const RtfCharacterState &state);
    void character(char16_t c, const RtfCharacterState &state);
    /// The sign of \a font at \a place.
    void sign(char16_t place, const QString &font, const RtfCharacterState &state);
    void picture(const QTextImageFormat &format, const RtfCharacterState &state);
    /// Fonts are about to change.
    void forgetFont();

    void endParagraph(const RtfState &state);
    /// Ends the paragraph if it has begun; the next one begins a page.
    void breakPage(const RtfState &state);
    /// The next paragraph begins \a section; tables end here.
    void beginSection(const RtfState &state, int section);
    void setNextBreaksPage(bool breaks) { m_breaksPage = breaks; }
    void endCell(const RtfState &state, bool isNested);
    void endRow(const RtfState &state);
    RtfRowReader &row(const RtfState &state);

    void beginLabel() { setLabel(true); }
    void endLabel() { setLabel(false); }
    /// Text that becomes paragraphs of its own where it is met, such as a shape's. False when too many are
    /// open inside each other; the text then belongs to the paragraph.
    bool beginInsertion();
    void endInsertion(const RtfState &inside, const RtfState &outside);
    /// Text that is not the document's own. False inside a note or an insertion.
    bool beginPageText();
    RtfFlow endPageText(const RtfState &inside);
    /// A group that shows nothing; it is kept before the text that follows.
    void addUnseen(const QByteArray &group);
    /// The same for a comment, whose groups are then its own. False when too many are open.
    bool beginComment();
    void endComment(const RtfState &state);
    bool beginNote(const RtfCharacterState &state);
    void endNote(const RtfState &state);
    void setNoteAtEnd();
    void noteReference(const RtfCharacterState &state);

    /// The length of the paragraph that is being read.
    qsizetype place();

    /// Brings all that is left into the document.
    void finish(const RtfState &state);

private:
    struct Story ///< the text itself, a note or an insertion
    {
        RtfFlowBuilder builder;
        RtfFlow hidden;        ///< a paragraph of hidden text that is being read
        Unseen::Pieces unseen; ///< what is not shown before the text that follows
        QByteArray groups;     ///< of a comment
        bool isComment = false;
        int note = 0; ///< RtfParagraphState, that of a note
        bool isNoteAtEnd = false;
        int count = 0;             ///< the number of a note, 0 when it has a mark of its own
        bool owesNumber = false;   ///< that number has yet to be put before the note
        qsizetype behindMark = -1; ///< place in the paragraph behind the last mark of a note
        bool hasReference = false; ///< the number of the next note in this text is written
        bool breaksPage = false;   ///< the paragraph around it is to begin a page
    };

    RtfFlowBuilder &builder() { return m_stories.back().builder; }
    /// True for text that is kept, if only to be written back.
    bool takes(const RtfCharacterState &state);
    RtfFlow &selected();
    void endHiddenParagraph(const RtfCharacterState &state);
    void endHidden();
    bool hasUnseen() const
    {
        return !m_stories.back().unseen.isEmpty() || !m_stories.back().hidden.text.isEmpty();
    }
    void keep(const Unseen::Piece &piece);
    QList<Unseen::Run> runsOf(const RtfFlow &flow) const;
    Unseen::Pieces takeUnseen();
    int withUnseen(int format);
    void keepRest(RtfFlow &flow);
    void select(const RtfCharacterState &state);
    void startText(const RtfCharacterState &state);
    bool followsMark() const;
    void flushBytes();
    void endRun(qsizetype start);
    void number(int number, int note, const RtfCharacterState &state);
    const Story *note() const;
    void addParagraph(const RtfState &state, int depth);
    void beginStory();
    void endText(const RtfState &inside);
    RtfFlow takeStory();
    RtfFlow endStory(const RtfState &inside);
    bool hasText();
    void replaceLoneSurrogates();
    void setLabel(bool isLabel);
    void drain();

    const RtfFontTable &m_fonts;
    RtfFormats &m_formats;
    RtfLists &m_lists;
    RtfDocumentFiller &m_filler;
    std::vector<Story> m_stories;
    std::vector<RtfFlow> m_notes; ///< in the order in which they begin, which numbers them
    int m_noteCount = 0;          ///< of those without marks of their own
    bool m_breaksPage = false;
    int m_section = 0; ///< RtfParagraphState, of the next paragraph

    // What text is read with
    RtfCharacterState m_selected;
    int m_format = 0;
    const RtfFontTable::Font *m_font = nullptr;
    QByteArray m_bytes; ///< of a multi-byte page, until the next that is no byte
    bool m_hasSurrogates = false;
    bool m_isBegun = false; ///< the document has items already
};
