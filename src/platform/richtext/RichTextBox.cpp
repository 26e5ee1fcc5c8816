#include "RichTextBox.h"

#include "ClipboardText.h"
#include "EventGate.h"
#include "PageFormat.h"
#include "ParagraphLines.h"
#include "Pictures.h"
#include "PlainText.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "RuntimeError.h"
#include "TextPrinter.h"

#include <QTextDocumentFragment>

namespace {

QFont documentFont()
{
    constexpr int points = 10;
    return QFont(QStringLiteral("Liberation Sans"), points);
}

void fill(QTextDocument &document, const QByteArray &bytes)
{
    if (RtfReader::recognises(bytes))
        RtfReader::read(bytes, document);
    else
        document.setPlainText(PlainText::decode(bytes));
}

} // namespace

RichTextBox::RichTextBox(QWidget *parent)
    : QTextEdit(parent)
    , m_longDocuments(*this)
    , m_zoom(*this, m_longDocuments)
    , m_links(*this, m_longDocuments)
    , m_spelling(*this, m_longDocuments)
    , m_handles(*this, m_zoom)
{
    setAccessibleName(tr("Text"));
    setAcceptRichText(true);
    viewport()->setMouseTracking(true); // for the pointer above links
    setPaper();
    on(this, &QTextEdit::selectionChanged, this, &RichTextBox::reportSelection);
    on(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::forgetLookOfCell);
    on(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::reportSelection);
    setText({});
}

RichTextBox::~RichTextBox() = default;

/// Documents take white paper for granted; what is selected looks as the desktop has it.
void RichTextBox::setPaper()
{
    QPalette paper;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    paper.setColor(QPalette::PlaceholderText, Qt::darkGray);
    paper.setColor(QPalette::Link, QColor(0x05, 0x4F, 0xB9));
    setPalette(paper);
}

// ---- Documents

std::unique_ptr<QTextDocument> RichTextBox::newDocument() const
{
    constexpr int margin = 10; // pixels
    auto document = std::make_unique<QTextDocument>();
    document->setDefaultFont(documentFont());
    document->setDocumentMargin(margin);
    PageFormat::spaceTabs(*document);
    return document;
}

void RichTextBox::replaceDocument(std::unique_ptr<QTextDocument> document, const RichTextFile::Loaded &loaded)
{
    QTextDocument *old = this->document();
    QTextDocument *shown = document.release();
    shown->setParent(this);
    shown->setUndoRedoEnabled(true);
    shown->setModified(false);
    m_longDocuments.attach(*shown);
    m_zoom.attach(*shown);
    m_unseen.attach(*shown);
    on(shown, &QTextDocument::contentsChange, this, [this](int from, int, int added) {
        m_isChanged = true;
        m_handles.forget();
        if (ParagraphLines::areNear(*this->document(), from, from + added)) // Qt paints the text's area anew
            viewport()->update();
    });
    on(shown, &QTextDocument::contentsChanged, this, &RichTextBox::reportChange);
    m_formats.forget();
    ViewMarks::show(*this, {});
    m_links.forget();
    m_spelling.forget();
    m_handles.forget();
    m_loaded = loaded;
    const bool isFirst = old->parent() != this;
    setDocument(shown);
    setTextCursor(QTextCursor(shown)); // as Qt gives the new caret the format of the old one
    if (!isFirst)
        delete old;
    m_isChanged = true;
    reportChange();
}

void RichTextBox::LoadFile(const QString &path)
{
    auto document = newDocument();
    const RichTextFile::Loaded loaded = RichTextFile::load(path, *document);
    replaceDocument(std::move(document), loaded);
}

void RichTextBox::SaveFile(const QString &path, RichTextFile::Format format)
{
    RichTextFile::save(path, *document(), format, m_loaded.lineEnd);
    m_undoSteps.end();
}

QByteArray RichTextBox::TextRTF() const
{
    return RtfWriter::write(*document());
}

void RichTextBox::setTextRTF(const QByteArray &rtf)
{
    auto document = newDocument();
    fill(*document, rtf);
    replaceDocument(std::move(document), {});
}

QString RichTextBox::Text() const
{
    return RichTextFile::text(*document());
}

void RichTextBox::setText(const QString &text)
{
    auto document = newDocument();
    document->setUndoRedoEnabled(false);
    document->setPlainText(text);
    replaceDocument(std::move(document), {});
}

QVariant RichTextBox::loadResource(int, const QUrl &name)
{
    // A pasted text must not make us open what it names, on this computer or another; it brings its pictures
    // along. Nothing at all would let Qt go on looking.
    return name.scheme() == QLatin1String("data") ? QVariant() : QVariant(QByteArray());
}

// ---- Reports

/// Reported when the edit is over: a listener in its midst would find the text half laid out.
void RichTextBox::reportChange()
{
    if (std::exchange(m_isChanged, false))
        Q_EMIT Change();
}

void RichTextBox::reportSelection()
{
    m_handles.followSelection();
    Q_EMIT SelChange();
}

// ---- Selection

QByteArray RichTextBox::SelRTF() const
{
    return RtfWriter::writeSelection(textCursor());
}

void RichTextBox::setSelRTF(const QByteArray &rtf)
{
    if (!RtfReader::recognises(rtf)) {
        setSelText(PlainText::decode(rtf));
        return;
    }
    const auto inserted = newDocument();
    RtfReader::read(rtf, *inserted);
    Pictures::move(*inserted, *document());
    textCursor().insertFragment(QTextDocumentFragment(inserted.get()));
}

int RichTextBox::SelStart() const
{
    return textCursor().selectionStart();
}

void RichTextBox::setSelStart(int position)
{
    if (position < 0)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    QTextCursor cursor = textCursor();
    cursor.setPosition(qMin(position, document()->characterCount() - 1));
    setTextCursor(cursor);
}

int RichTextBox::SelLength() const
{
    return textCursor().selectionEnd() - textCursor().selectionStart();
}

void RichTextBox::setSelLength(int length)
{
    if (length < 0)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    QTextCursor cursor = textCursor();
    const int start = cursor.selectionStart();
    const int most = document()->characterCount() - 1 - start;
    cursor.setPosition(start);
    cursor.setPosition(start + qMin(length, most), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QString RichTextBox::SelText() const
{
    return RichTextFile::text(textCursor());
}

void RichTextBox::setSelText(const QString &text)
{
    textCursor().insertText(text);
}

// ---- Layout

int RichTextBox::RightMargin() const
{
    return m_rightMargin;
}

void RichTextBox::setRightMargin(int margin)
{
    if (margin < 0)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_rightMargin = margin;
    wrap();
}

bool RichTextBox::Locked() const
{
    return isReadOnly();
}

void RichTextBox::setLocked(bool locked)
{
    setTextInteractionFlags(locked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                   : Qt::TextInteractionFlags(Qt::TextEditorInteraction));
}

void RichTextBox::SelPrint(QPrinter *device) const
{
    if (device)
        TextPrinter::print(*printedDocument(), *device, m_links.look());
}

void RichTextBox::SelPrint(PrintJob &job) const
{
    TextPrinter::print(*printedDocument(), job, m_links.look());
}

std::unique_ptr<QTextDocument> RichTextBox::printedDocument() const
{
    if (!textCursor().hasSelection()) {
        std::unique_ptr<QTextDocument> all(document()->clone());
        ViewZoom::forgetIn(*all);
        return all;
    }
    auto selection = newDocument();
    RtfReader::read(SelRTF(), *selection);
    PageFormat::copy(*document(), *selection);
    return selection;
}

void RichTextBox::setAutoURLDetection(bool on)
{
    m_links.setOn(on);
}

void RichTextBox::setSpellingMarks(bool on)
{
    m_spelling.setOn(on);
}

QString RichTextBox::linkTarget(int first) const
{
    const auto link = LinkFinder::at(*document(), first);
    return link ? link->target : QString();
}
