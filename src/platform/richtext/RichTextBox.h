#pragma once

#include "LinkMarks.h"
#include "LongDocuments.h"
#include "PictureHandles.h"
#include "RichTextFile.h"
#include "SelectionFormats.h"
#include "SpellingMarks.h"
#include "UndoSteps.h"
#include "UnseenKeeper.h"
#include "ViewZoom.h"

#include <QTextEdit>

class PrintJob;
class QPrinter;

/// The rich-text control: text, selection, formats, files and links under the names that all windows use.
/// A character or paragraph state of the selection is std::nullopt where it is mixed.
/// It knows no window, no menu and no dirty flag.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    explicit RichTextBox(QWidget *parent = nullptr);
    ~RichTextBox() override;

    /// Replaces the content, caret at the start, nothing to undo; what is not rich text loads as plain text.
    /// Throws RuntimeError as Files::read does; the content is then as before.
    void LoadFile(const QString &path);
    /// A plain file keeps the line ends it was loaded with. Throws RuntimeError as Files::write does; the old
    /// file is then left whole. What is typed afterwards is undone by itself.
    void SaveFile(const QString &path, RichTextFile::Format format);
    /// Which line ends SaveFile() writes into a plain file.
    PlainText::LineEnd LineEnd() const { return m_loaded.lineEnd; }
    void setLineEnd(PlainText::LineEnd lineEnd) { m_loaded.lineEnd = lineEnd; }

    QByteArray TextRTF() const;
    void setTextRTF(const QByteArray &rtf);
    /// One character for each position; paragraphs and forced lines end in "\n".
    QString Text() const;
    void setText(const QString &text);

    QByteArray SelRTF() const;
    /// Inserts rich text, or plain text if it is none, in place of the selection.
    void setSelRTF(const QByteArray &rtf);
    /// Positions in Text(). Throws RuntimeError 380 for negative values; larger ones end at the text's end.
    int SelStart() const;
    void setSelStart(int position);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;
    void setSelText(const QString &text);

    std::optional<bool> SelBold() const;
    void setSelBold(bool on);
    std::optional<bool> SelItalic() const;
    void setSelItalic(bool on);
    std::optional<bool> SelUnderline() const;
    void setSelUnderline(bool on);
    std::optional<bool> SelStrikeThru() const;
    void setSelStrikeThru(bool on);
    std::optional<QColor> SelColor() const;
    void setSelColor(const QColor &color);
    std::optional<QString> SelFontName() const;
    void setSelFontName(const QString &name);
    /// Points.
    std::optional<double> SelFontSize() const;
    void setSelFontSize(double size);

    /// 0 left, 1 right, 2 centre; justified text counts as left. Setting another value throws RuntimeError
    /// 380.
    std::optional<int> SelAlignment() const;
    void setSelAlignment(int alignment);
    std::optional<bool> SelBullet() const;
    void setSelBullet(bool on);
    /// Twips; the distance of bullet and text that setSelBullet() gives. Throws RuntimeError 380 below 0.
    int BulletIndent() const;
    void setBulletIndent(int indent);
    /// Brings BulletIndent() to the bulleted paragraphs of the selection, as one undo step. Numbered ones
    /// stay as they are, and so does a selection without bullets; in a mixed one all others become bulleted.
    void applyBulletIndent();
    /// Twips, of the first line; the other lines keep their distance from it.
    std::optional<int> SelIndent() const;
    void setSelIndent(int indent);
    std::optional<int> SelRightIndent() const;
    void setSelRightIndent(int indent);

    /// Twips; 0 wraps at the control's edge.
    int RightMargin() const;
    void setRightMargin(int margin);
    bool Locked() const;
    void setLocked(bool locked);

    /// Prints the selection, without headers and footers, or everything when it is empty. Does nothing
    /// without a device. Throws RuntimeError as PrintJob does.
    void SelPrint(QPrinter *device) const;
    /// The same as further pages of \a job, on its printer's paper.
    void SelPrint(PrintJob &job) const;

    /// Marks web and mail addresses in the text and reports clicks on them; the document itself is not
    /// changed.
    void setAutoURLDetection(bool on);
    /// Underlines misspelt words and offers better ones in the context menu; the document itself is not
    /// changed.
    void setSpellingMarks(bool on);
    /// What the link that begins at \a first points to: the address that a real link carries, else its text.
    QString linkTarget(int first) const;

    QVariant loadResource(int type, const QUrl &name) override;

Q_SIGNALS:
    void Change();
    void SelChange();
    void GotFocus();
    /// A marked address was clicked: the characters from \a first up to \a end of Text().
    void LinkClicked(int first, int end);

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    QMimeData *createMimeDataFromSelection() const override;

private:
    std::unique_ptr<QTextDocument> newDocument() const;
    std::unique_ptr<QTextDocument> printedDocument() const;
    void replaceDocument(std::unique_ptr<QTextDocument> document, const RichTextFile::Loaded &loaded);
    void setPaper();
    void wrap();
    double pageWidth() const;
    void paintLines(const QRegion &region);
    void repeatEmptyParagraph();
    void showCaret(const QTextCursor &caret);
    void forgetLookOfCell();
    void insertPictures(const QMimeData &source);
    void reportChange();
    void reportSelection();
    CharacterStates characters() const;
    ParagraphStates paragraphs() const;

    mutable SelectionFormats m_formats;
    LongDocuments m_longDocuments;
    ViewZoom m_zoom;
    LinkMarks m_links;
    SpellingMarks m_spelling;
    PictureHandles m_handles;
    UndoSteps m_undoSteps;
    UnseenKeeper m_unseen;
    RichTextFile::Loaded m_loaded;
    bool m_isChanged = false; ///< since the latest Change
    int m_bulletIndent = 0;
    int m_rightMargin = 0;
};
