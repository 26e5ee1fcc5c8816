#pragma once

#include <QByteArray>
#include <optional>

class QTextDocument;
class QTextFrameFormat;

/// The words of rich text about pages and about all of the text, kept as properties of the format of a
/// document's root frame. They are set while a document is read; no undo step knows of them, and clones of
/// the document have them too.
namespace PageFormat {

enum Word {
    PaperWidth,
    PaperHeight,
    MarginLeft,
    MarginRight,
    MarginTop,
    MarginBottom,
    Gutter,
    TabDistance,
    DefaultLanguage, ///< of text that names none
    FirstNumber,
    Landscape,
    FacingPages,
    MirroredMargins,
    HtmlSpacing,
    WidowControlOfAll,
    AutomaticHyphens,
    HyphensInCapitals,
    HyphensInARow,
    HyphenZone,
    NoteKinds,
    NotesAtBottom,
    NotesBeneathText,
    NotesAtSectionEnd,
    NotesAtDocumentEnd,
    EndnotesAtSectionEnd,
    EndnotesAtDocumentEnd,
    FirstNote,
    FirstEndnote,
    NotesArabic,
    NotesLowerLetters,
    NotesUpperLetters,
    NotesLowerRoman,
    NotesUpperRoman,
    NotesChicago,
    EndnotesArabic,
    EndnotesLowerLetters,
    EndnotesUpperLetters,
    EndnotesLowerRoman,
    EndnotesUpperRoman,
    EndnotesChicago,

    // Of a section, whose words go before those of the document
    SectionWidth,
    SectionHeight,
    SectionLeft,
    SectionRight,
    SectionTop,
    SectionBottom,
    SectionGutter,
    HeaderDistance,
    FooterDistance,
    SectionNumber,
    SectionLandscape,
    SectionMirrored,
    TitlePage,
    RestartsNumbers,
    Decimal,
    UpperRoman,
    LowerRoman,
    UpperLetters,
    LowerLetters,
    Columns,
    ColumnGap,
    ColumnLine,
    BreakNone, ///< where the section begins
    BreakColumn,
    BreakPage,
    BreakEven,
    BreakOdd,
    WordCount
};

/// The word that is spelled so, without its backslash.
std::optional<Word> find(QByteArrayView spelling);

/// Lengths in twips; null where no number follows the word. Words that take none are set by that, and 0 takes
/// them away; others mean nothing without.
void set(QTextFrameFormat &format, Word word, std::optional<int> value);
void clear(QTextFrameFormat &format, Word word);
/// Takes the words of the section away.
void clearSection(QTextFrameFormat &format);
std::optional<int> value(const QTextFrameFormat &format, Word word);

/// The words as they are written. Those of the section begin with \sectd; without any it is empty.
QByteArray documentWords(const QTextFrameFormat &format);
QByteArray sectionWords(const QTextFrameFormat &format);

/// Gives the words of \a from to \a to, which is no longer to be changed through undo.
void copy(const QTextDocument &from, QTextDocument &to);

/// Lays out tabs that have no stop of their own: at the distance that \a document says, else at half an inch,
/// as the format has it.
void spaceTabs(QTextDocument &document);

} // namespace PageFormat
