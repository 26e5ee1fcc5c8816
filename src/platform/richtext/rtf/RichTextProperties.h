#pragma once

#include <QTextFormat>

/// What rich text knows beyond Qt's own format properties. Lengths are kept in twips beside the pixels that
/// Qt lays out with, so that they leave as they came.
namespace RichTextProperty {

enum Id {
    // Paragraphs (QTextBlockFormat)
    LeftIndent = QTextFormat::UserProperty + 1, ///< int, twips: the edge of all lines but the first
    RightIndent,                                ///< int, twips
    FirstLineIndent,                            ///< int, twips, relative to LeftIndent, may be negative
    SpaceBefore,                                ///< int, twips
    SpaceAfter,                                 ///< int, twips
    LineSpacing,                                ///< int, twips; 240 is single where LineSpacingIsMultiple
    LineSpacingIsMultiple,                      ///< bool
    TabStops, ///< QString, the stops' control words in order without backslashes: "tx720 tqr tldot tx1440"
    Borders,  ///< QString, the same for the lines around it: "brdrt brdrs brdrw15 brsp20 brdrcf#ff0000"
    Flow,     ///< QString, words on lines and pages that say nothing on this screen: "keepn outlinelevel0"
    Style,    ///< QString, the name of its style, TextStyles
    Section,  ///< shared format, PageSections: the section that begins with the paragraph
    SectionNumber,   ///< int, different for each
    OnlyBeforeTable, ///< bool, the paragraph is there because Qt has one before each table, and the file has
                     ///< none
    Note,            ///< int: the paragraph is the text of the note with that number, which no other note has
    NoteIsAtEnd,     ///< bool, it is one of the notes at the end of the text rather than of a page
    ListStart,       ///< int, first number of a numbered list (QTextListFormat)
    ListBullet,      ///< QString, the sign of a bullet list where it is none of Qt's (QTextListFormat)
    ListBulletFont,  ///< QString, the family without which the sign means nothing (QTextListFormat)
    ListNumber,      ///< int: lists with one number are levels of one list, whose marks have several numbers
                     ///< (QTextListFormat)
    ListLevelText,   ///< QString, such a mark; a character below 9 is a level's number (QTextListFormat)
    ListLevel, ///< int, 0 to 8, depth in nested lists (QTextListFormat, whose own indent is 0: paragraphs
               ///< indent)

    // Characters (QTextCharFormat)
    BaselineShift = QTextFormat::UserProperty + 100, ///< int, half points, up positive
    Language,                                        ///< int, language number as the file gave it
    IsShading,                                       ///< bool, the background is shading and no highlight
    Unseen,                                          ///< Unseen::Pieces, what is not shown before the text
    UnseenNumber,                                    ///< int, different wherever that is
    Field, ///< QString, what the field asks for whose result the text is: "PAGE"; in headers and footers

    NoteMark,  ///< int: the text is the mark of the note with that number (Note)
    NoteCount, ///< int, what the mark says where notes are counted

    // Pictures (QTextImageFormat); the shown size is the format's own width and height in pixels
    PictureBytes = QTextFormat::UserProperty + 200, ///< QByteArray, the picture as it came
    PictureKind,         ///< QByteArray, its control words ("pngblip", "wmetafile8")
    PictureWidth,        ///< int, twips, unscaled goal width
    PictureHeight,       ///< int, twips
    PictureSourceWidth,  ///< int, width in the kind's own unit
    PictureSourceHeight, ///< int
    PictureScaleX,       ///< int, percent
    PictureScaleY,       ///< int, percent

    // Tables (QTextTableFormat)
    RowTwips = QTextFormat::UserProperty + 300, ///< QString, right cell edges of the columns, "1440 2880"
    CellBorders, ///< QString, as Borders, of a cell (QTextTableCellFormat); without it the table's are around
                 ///< it

    // Pages (QTextFrameFormat of the root frame)
    PageWord = QTextFormat::UserProperty + 400,  ///< int, the first of as many as PageFormat::Word has
    FontWords = QTextFormat::UserProperty + 480, ///< QVariantMap by family, lists of two QByteArray: what a
                                                 ///< table of fonts says before the name, and behind it
    Information,                                 ///< QByteArray, groups of rich text: who wrote it and when
    Styles,                                      ///< shared list of styles, TextStyles
    PageText = QTextFormat::UserProperty + 500,  ///< shared document, the first of as many as PageTexts::Kind
};

} // namespace RichTextProperty
