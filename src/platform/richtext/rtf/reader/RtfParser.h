#pragma once

#include "RtfBody.h"
#include "RtfColorTable.h"
#include "RtfKeptGroup.h"
#include "RtfPages.h"
#include "RtfParagraphRows.h"
#include "RtfPictureReader.h"
#include "RtfState.h"
#include "RtfStyleSheet.h"
#include "RtfTextPart.h"

#include <vector>

struct RtfFieldInstruction;

/// Reads the tokens of a file in one pass and says to each part of the reader what is its own. Groups are
/// states on a stack, so that a file may nest them as it likes.
class RtfParser
{
public:
    /// \a fileName is what the document says where it is to name its file.
    RtfParser(QByteArrayView bytes, QTextDocument &document, const QString &fileName);

    void run();

private:
    RtfState &state() { return m_states.back(); }

    void read(const RtfToken &token);
    bool skipsFallback(RtfToken &token);
    void open();
    void close();
    void symbol(char c);
    void text(QByteArrayView bytes);
    void character(char16_t c);

    void word(const RtfToken &token);
    bool universalWord(const RtfToken &token);
    void documentWord(const RtfToken &token);
    void unicode(int value);
    void characterWord(const RtfToken &token);
    void paragraphWord(const RtfToken &token);
    void borderWord(const RtfToken &token);
    void sign(RtfWord word);
    void setPage(int page);
    void pairOfRuns(RtfWord word);
    void dropStyle();

    void destination(const RtfToken &token);
    void fieldDestination(RtfWord word);
    void pictureDestination(RtfWord word);
    void shapeDestination(RtfWord word);
    void beginPart(RtfPart &part, RtfState::End end);
    void beginInsertion();
    void beginNote();
    void beginComment();
    void beginKept(const RtfToken &token);
    void beginPageText(const RtfToken &token);
    void beginStory(RtfState::End end);
    void end(const RtfState &ended);
    void endInstruction(const RtfState &ended);
    void endField(const RtfState &ended);
    QString standIn(const RtfFieldInstruction &instruction) const;
    void pageNumber(const QString &instruction, RtfCharacterState state);

    struct Field
    {
        int number = 0;         ///< RtfCharacterState::field
        bool hasResult = false; ///< what its result would say is in the document already
        QString pageNumber;     ///< the instruction, where it asks for one
        QString standIn;        ///< what it shows without a result
        qsizetype place = 0;    ///< in the paragraph, where the result is to come
    };
    struct RunPair ///< of the two directions; the words before the second are about the other one
    {
        RtfWord word = RtfWord::Unknown;
        RtfCharacterState characters;
        quint32 characterSet = 0;
    };

    RtfLexer m_lexer;
    QString m_fileName;
    std::vector<RtfState> m_states;
    qsizetype m_deeper = 0; ///< groups open beyond those that have states
    bool m_isDone = false;
    bool m_isOurs = false; ///< paragraphs say all of their look: what a style adds, somebody has taken away
    bool m_isStarred = false; ///< \* was the last token
    qint64 m_fallback = 0;    ///< characters to be passed over
    RunPair m_pair;
    std::vector<Field> m_fields;
    bool m_hasShapePicture = false;
    bool m_hasShape = false;
    std::optional<PageTexts::Kind> m_pageText; ///< the one that is being read
    QString m_propertyName;

    RtfFontTable m_fonts;
    RtfColorTable m_colors;
    RtfParagraphRows m_rows;
    RtfStyleSheet m_styles;
    RtfListTable m_listTable;
    RtfListOverrides m_listOverrides;
    RtfOldNumbering m_oldNumbering;
    RtfTextPart m_text;
    RtfPictureReader m_picture;
    RtfKeptGroup m_kept;
    RtfFormats m_formats;
    RtfLists m_lists;
    RtfDocumentFiller m_filler;
    RtfPages m_pages;
    RtfBody m_body;
};
