#include "ParagraphWords.h"

#include "BorderWords.h"
#include "PageSections.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfHeader.h"
#include "RtfWords.h"

#include <QBrush>
#include <QTextDocument>
#include <QTextList>
#include <algorithm>

using ParagraphFormat::toTwips;

namespace {

void appendNonZero(QByteArray &out, const char *word, int length)
{
    if (length != 0)
        RtfWords::appendLength(out, word, length);
}

/// The format's left and right are the page's. Qt mirrors its own in right-to-left paragraphs unless they are
/// absolute; the side where the text begins is not said, unless the style could say another one.
void appendAlignment(QByteArray &out, const QTextBlockFormat &format, bool hasStyle)
{
    const bool rightToLeft = format.layoutDirection() == Qt::RightToLeft;
    const Qt::Alignment alignment = format.alignment();
    const bool isMirrored = rightToLeft && !alignment.testFlag(Qt::AlignAbsolute);
    if (rightToLeft)
        RtfWords::append(out, "rtlpar");
    if (alignment.testFlag(Qt::AlignHCenter))
        RtfWords::append(out, "qc");
    else if (alignment.testFlag(Qt::AlignJustify))
        RtfWords::append(out, "qj");
    else if (alignment.testFlag(Qt::AlignRight))
        RtfWords::append(out, isMirrored ? "ql" : "qr");
    else if (rightToLeft ? alignment.testFlag(Qt::AlignLeft) && !isMirrored : hasStyle)
        RtfWords::append(out, "ql");
}

/// Without marks a list is a matter of indents alone. A blank is a mark.
bool isMarked(const QTextList &list)
{
    const QTextListFormat format = list.format();
    return format.style() != QTextListFormat::ListStyleUndefined ||
           format.hasProperty(RichTextProperty::ListBullet);
}

/// Qt's own indents count in steps of the document; rich text that was read has none of them.
int stepsIn(const QTextBlockFormat &format, const QTextList *list)
{
    return format.indent() + (list ? list->format().indent() : 0);
}

/// An item of a list says its indents even where they are 0, as those of the list would apply instead.
QByteArray indents(const QTextBlockFormat &format, const QTextList *list, double step)
{
    constexpr int hanging = -360; // the mark of an item whose paragraph does not say where it is
    const int steps = stepsIn(format, list);
    const int left = ParagraphFormat::leftIndent(format) + toTwips(steps * step);
    const int first = ParagraphFormat::firstLineIndent(format);
    QByteArray out;
    if (list) {
        RtfWords::appendLength(out, "fi", first == 0 && steps > 0 ? hanging : first);
        RtfWords::appendLength(out, "li", left);
    } else {
        appendNonZero(out, "fi", first);
        appendNonZero(out, "li", left);
    }
    return out;
}

void appendLineSpacing(QByteArray &out, int spacing, bool isMultiple)
{
    if (spacing == 0)
        return;
    RtfWords::appendLength(out, "sl", spacing);
    RtfWords::append(out, "slmult", isMultiple);
}

void appendSpacing(QByteArray &out, const QTextBlockFormat &format)
{
    constexpr double single = 240;
    appendNonZero(out, "sb", ParagraphFormat::spaceBefore(format));
    appendNonZero(out, "sa", ParagraphFormat::spaceAfter(format));
    const double height = format.lineHeight();
    if (format.hasProperty(RichTextProperty::LineSpacing))
        appendLineSpacing(out, format.intProperty(RichTextProperty::LineSpacing),
                          format.boolProperty(RichTextProperty::LineSpacingIsMultiple));
    else if (format.lineHeightType() == QTextBlockFormat::ProportionalHeight)
        appendLineSpacing(out, qRound(single * height / 100), true);
    else if (format.lineHeightType() == QTextBlockFormat::FixedHeight)
        appendLineSpacing(out, -toTwips(height), false);
    else if (format.lineHeightType() == QTextBlockFormat::MinimumHeight)
        appendLineSpacing(out, toTwips(height), false);
}

/// Words that are kept as they came.
void appendKept(QByteArray &out, const QString &words)
{
    if (!words.isEmpty())
        out.append('\\').append(words.toLatin1().replace(' ', '\\'));
}

void appendTabs(QByteArray &out, const QTextBlockFormat &format)
{
    const QString words = format.stringProperty(RichTextProperty::TabStops);
    if (!words.isEmpty())
        return appendKept(out, words);
    for (const QTextOption::Tab &tab : format.tabPositions()) {
        if (tab.type == QTextOption::RightTab)
            RtfWords::append(out, "tqr");
        else if (tab.type == QTextOption::CenterTab)
            RtfWords::append(out, "tqc");
        else if (tab.type == QTextOption::DelimiterTab)
            RtfWords::append(out, "tqdec");
        RtfWords::appendLength(out, "tx", toTwips(tab.position));
    }
}

} // namespace

ParagraphWords::ParagraphWords(const QTextDocument &document, const QList<QTextFormat> &formats,
                               RtfHeader &header)
    : m_document(document)
    , m_formats(formats)
    , m_header(header)
    , m_paragraphs(formats.size())
{}

bool ParagraphWords::beginSections()
{
    m_hasSections = std::any_of(m_formats.begin(), m_formats.end(), [](const QTextFormat &format) {
        return PageSections::of(format) != nullptr;
    });
    return m_hasSections;
}

ParagraphWords::Paragraph ParagraphWords::paragraph(int format)
{
    Paragraph &known = m_paragraphs[format];
    if (known.words < 0)
        known = make(m_formats.at(format).toBlockFormat());
    return known;
}

ParagraphWords::Paragraph ParagraphWords::make(const QTextBlockFormat &format)
{
    Paragraph paragraph;
    paragraph.list = qobject_cast<QTextList *>(m_document.objectForFormat(format));
    paragraph.words = m_words.number(wordsOf(format, paragraph.list));
    if (paragraph.list && !isMarked(*paragraph.list))
        paragraph.list = nullptr;
    return paragraph;
}

QByteArray ParagraphWords::wordsOf(const QTextBlockFormat &format, const QTextList *list)
{
    QByteArray out = m_header.styles.word(format.stringProperty(RichTextProperty::Style));
    const bool hasStyle = !out.isEmpty();
    const QByteArray edges = indents(format, list, m_document.indentWidth());
    out.append(list && isMarked(*list) ? m_header.lists.words(*list, edges, m_header.fonts) : edges);
    appendNonZero(out, "ri", ParagraphFormat::rightIndent(format));
    appendAlignment(out, format, hasStyle);
    appendSpacing(out, format);
    appendTabs(out, format);
    appendKept(out, format.stringProperty(RichTextProperty::Flow));
    const PageSections::Section section = m_hasSections ? PageSections::of(format) : nullptr;
    const bool breaksPage = format.pageBreakPolicy().testFlag(QTextFormat::PageBreak_AlwaysBefore);
    if (breaksPage && !(section && PageSections::breaksPage(*section)))
        RtfWords::append(out, "pagebb");
    BorderWords::append(out, format.stringProperty(RichTextProperty::Borders), m_header.colours);
    appendBackground(out, format);
    return out;
}

void ParagraphWords::appendBackground(QByteArray &out, const QTextBlockFormat &format)
{
    const int colour = m_header.colours.number(format.background());
    if (colour != 0)
        RtfWords::append(out, "cbpat", colour);
}
