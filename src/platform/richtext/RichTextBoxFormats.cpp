#include "ParagraphEdits.h"
#include "RichTextBox.h"
#include "RuntimeError.h"

#include <cmath>

// The formats of the selection.

namespace {

void require(bool isValid)
{
    if (!isValid)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

/// Indents are numbers of rich text, which have 16 bits.
void requireIndent(int indent)
{
    constexpr int most = 32767;
    require(indent >= -most && indent <= most);
}

} // namespace

CharacterStates RichTextBox::characters() const
{
    return m_formats.characters(textCursor(), currentCharFormat());
}

ParagraphStates RichTextBox::paragraphs() const
{
    return m_formats.paragraphs(textCursor());
}

std::optional<bool> RichTextBox::SelBold() const
{
    return characters().bold;
}

void RichTextBox::setSelBold(bool on)
{
    QTextCharFormat format;
    format.setFontWeight(on ? QFont::Bold : QFont::Normal);
    mergeCurrentCharFormat(format);
}

std::optional<bool> RichTextBox::SelItalic() const
{
    return characters().italic;
}

void RichTextBox::setSelItalic(bool on)
{
    QTextCharFormat format;
    format.setFontItalic(on);
    mergeCurrentCharFormat(format);
}

std::optional<bool> RichTextBox::SelUnderline() const
{
    return characters().underline;
}

void RichTextBox::setSelUnderline(bool on)
{
    QTextCharFormat format;
    format.setFontUnderline(on);
    mergeCurrentCharFormat(format);
}

std::optional<bool> RichTextBox::SelStrikeThru() const
{
    return characters().strikeThru;
}

void RichTextBox::setSelStrikeThru(bool on)
{
    QTextCharFormat format;
    format.setFontStrikeOut(on);
    mergeCurrentCharFormat(format);
}

std::optional<QColor> RichTextBox::SelColor() const
{
    return characters().color;
}

void RichTextBox::setSelColor(const QColor &color)
{
    require(color.isValid());
    QTextCharFormat format;
    format.setForeground(color);
    mergeCurrentCharFormat(format);
}

std::optional<QString> RichTextBox::SelFontName() const
{
    return characters().fontName;
}

void RichTextBox::setSelFontName(const QString &name)
{
    require(!name.isEmpty());
    QTextCharFormat format;
    format.setFontFamilies({name});
    mergeCurrentCharFormat(format);
}

std::optional<double> RichTextBox::SelFontSize() const
{
    return characters().fontSize;
}

void RichTextBox::setSelFontSize(double size)
{
    constexpr double largest = 1638;
    require(std::isfinite(size) && size > 0 && size <= largest);
    QTextCharFormat format;
    format.setFontPointSize(size);
    mergeCurrentCharFormat(format);
}

std::optional<int> RichTextBox::SelAlignment() const
{
    return paragraphs().alignment;
}

void RichTextBox::setSelAlignment(int alignment)
{
    constexpr Qt::AlignmentFlag alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    require(alignment >= 0 && alignment <= 2);
    QTextBlockFormat format;
    format.setAlignment(alignments[alignment] | Qt::AlignAbsolute);
    textCursor().mergeBlockFormat(format);
}

std::optional<bool> RichTextBox::SelBullet() const
{
    return paragraphs().bullet;
}

void RichTextBox::setSelBullet(bool on)
{
    if (on)
        ParagraphEdits::addBullets(textCursor(), m_bulletIndent);
    else
        ParagraphEdits::removeBullets(textCursor());
}

int RichTextBox::BulletIndent() const
{
    return m_bulletIndent;
}

void RichTextBox::setBulletIndent(int indent)
{
    require(indent >= 0);
    requireIndent(indent);
    m_bulletIndent = indent;
}

void RichTextBox::applyBulletIndent()
{
    if (SelBullet() != false)
        ParagraphEdits::addBullets(textCursor(), m_bulletIndent, ParagraphEdits::Numbered::Stay);
}

std::optional<int> RichTextBox::SelIndent() const
{
    return paragraphs().indent;
}

void RichTextBox::setSelIndent(int indent)
{
    requireIndent(indent);
    ParagraphEdits::setIndent(textCursor(), indent);
}

std::optional<int> RichTextBox::SelRightIndent() const
{
    return paragraphs().rightIndent;
}

void RichTextBox::setSelRightIndent(int indent)
{
    requireIndent(indent);
    ParagraphEdits::setRightIndent(textCursor(), indent);
}
