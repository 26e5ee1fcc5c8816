#include "PageTextPainter.h"

#include "ListMark.h"
#include "PageArea.h"
#include "PaperLayout.h"
#include "ParagraphLines.h"
#include "RichTextProperties.h"
#include "Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

using namespace PageTexts;

namespace {

QString instructionOf(const QTextCharFormat &format)
{
    return format.stringProperty(RichTextProperty::Field);
}

bool isNumber(const QTextCharFormat &format)
{
    const QString name = instructionOf(format).section(u' ', 0, 0).toUpper();
    return name == QLatin1String("PAGE") || name == QLatin1String("NUMPAGES") ||
           name == QLatin1String("SECTIONPAGES");
}

/// From the end, so that a longer number moves none that is still to come.
QList<QTextCursor> numbersIn(QTextDocument &document)
{
    QList<QTextCursor> numbers;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (!isNumber(it.fragment().charFormat()))
                continue;
            QTextCursor number(&document);
            number.setPosition(it.fragment().position());
            number.setPosition(it.fragment().position() + it.fragment().length(), QTextCursor::KeepAnchor);
            numbers.prepend(number);
        }
    }
    return numbers;
}

/// What the field's own switch says, else \a usual.
QTextListFormat::Style styleOf(const QString &instruction, QTextListFormat::Style usual)
{
    if (instruction.contains(QLatin1String("\\* ROMAN")))
        return QTextListFormat::ListUpperRoman;
    if (instruction.contains(QLatin1String("\\* roman")))
        return QTextListFormat::ListLowerRoman;
    if (instruction.contains(QLatin1String("\\* ALPHABETIC")))
        return QTextListFormat::ListUpperAlpha;
    if (instruction.contains(QLatin1String("\\* alphabetic")))
        return QTextListFormat::ListLowerAlpha;
    return instruction.contains(QLatin1String("\\* Arabic")) ? QTextListFormat::ListDecimal : usual;
}

} // namespace

PageTextPainter::PageTextPainter(const QTextDocument &document, const PageArea &area, QPaintDevice &device)
    : m_setup(PageSetup::of(document))
{
    for (int kind = 0; kind < KindCount; ++kind) {
        if (const auto text = PageTexts::text(document, Kind(kind)))
            m_texts[size_t(kind)] = layOut(*text, area, device);
    }
}

PageTextPainter::~PageTextPainter() = default;

PageTextPainter::Text PageTextPainter::layOut(const QTextDocument &text, const PageArea &area,
                                              QPaintDevice &device) const
{
    Text paper;
    paper.document.reset(text.clone());
    QTextDocument &document = *paper.document;
    document.setDocumentMargin(0);
    PaperLayout::fit(document, {area.text().width(), area.paper.height()}, PaperLayout::fineDpi);
    document.documentLayout()->setPaintDevice(&device);
    document.setTextWidth(area.text().width() * PaperLayout::fineDpi);
    paper.numbers = numbersIn(document);
    return paper;
}

double PageTextPainter::height(Kind kind) const
{
    const auto &document = m_texts[size_t(kind)].document;
    return document ? document->documentLayout()->documentSize().height() / PaperLayout::fineDpi : 0;
}

double PageTextPainter::room(Kind kind, int distance) const
{
    return m_texts[size_t(kind)].document ? distance / double(Twips::perInch) + height(kind) : 0;
}

double PageTextPainter::headerRoom() const
{
    return std::max({room(Header, m_setup.headerDistance), room(HeaderLeft, m_setup.headerDistance),
                     room(HeaderRight, m_setup.headerDistance)});
}

double PageTextPainter::firstHeaderRoom() const
{
    return m_setup.hasTitlePage ? room(HeaderFirst, m_setup.headerDistance) : 0;
}

double PageTextPainter::footerRoom() const
{
    const double first = m_setup.hasTitlePage ? room(FooterFirst, m_setup.footerDistance) : 0;
    return std::max({first, room(Footer, m_setup.footerDistance), room(FooterLeft, m_setup.footerDistance),
                     room(FooterRight, m_setup.footerDistance)});
}

/// The kinds follow each other in one order: all, left, right, first.
Kind PageTextPainter::kind(int page, Kind all) const
{
    if (page == 0 && m_setup.hasTitlePage)
        return Kind(all + (HeaderFirst - Header));
    const bool isLeft = m_setup.hasFacingPages && (page + m_setup.firstNumber) % 2 == 0;
    const Kind side = Kind(all + ((isLeft ? HeaderLeft : HeaderRight) - Header));
    const bool hasAll = m_texts[size_t(all)].document != nullptr;
    const bool hasSide = m_texts[size_t(side)].document != nullptr;
    return hasSide && (m_setup.hasFacingPages || !hasAll) ? side : all;
}

void PageTextPainter::setNumbers(Text &text, int page, int count) const
{
    for (QTextCursor &number : text.numbers) {
        const QTextCharFormat format = number.charFormat();
        const QString instruction = instructionOf(format);
        const bool isPage = instruction.startsWith(QLatin1String("PAGE"), Qt::CaseInsensitive);
        const int value = isPage ? page + m_setup.firstNumber : count;
        const auto usual = isPage ? m_setup.numbers : QTextListFormat::ListDecimal;
        const QString shown = ListMark::numeral(styleOf(instruction, usual), value);
        const int start = number.selectionStart();
        number.insertText(shown, format);
        number.setPosition(start);
        number.setPosition(start + int(shown.size()), QTextCursor::KeepAnchor);
    }
}

void PageTextPainter::paint(int page, int count, const PageArea &area, QPainter &painter)
{
    constexpr double inch = Twips::perInch;
    paint(kind(page, Header), page, count, m_setup.headerDistance / inch - area.margins.top(), painter);
    const Kind footer = kind(page, Footer);
    const double foot = area.text().height() + area.margins.bottom() - m_setup.footerDistance / inch;
    paint(footer, page, count, foot - height(footer), painter);
}

/// \a top is in inches from the text's.
void PageTextPainter::paint(Kind kind, int page, int count, double top, QPainter &painter)
{
    Text &text = m_texts[size_t(kind)];
    if (!text.document)
        return;
    setNumbers(text, page, count);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.save();
    painter.translate(0, top * PaperLayout::fineDpi);
    text.document->documentLayout()->draw(&painter, context);
    painter.setPen(Qt::black);
    for (QTextBlock block = text.document->begin(); block.isValid(); block = block.next()) {
        if (ParagraphLines::has(block))
            ParagraphLines::paint(block, PaperLayout::fineDpi, painter);
    }
    painter.restore();
}
