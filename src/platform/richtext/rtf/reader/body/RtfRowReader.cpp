#include "RtfRowReader.h"

#include "RtfLexer.h"

#include <QTextCharFormat>
#include <QTextFrameFormat>
#include <array>

namespace {

constexpr int largest = 32767;

} // namespace

void RtfRowReader::reset()
{
    m_row = RtfRow();
    m_next = RtfRow::Cell();
    m_side = -1;
    m_isAtBorder = false;
}

bool RtfRowReader::apply(const RtfToken &token)
{
    const int length = qBound(-largest, token.parameter, largest);
    switch (token.word) {
    case RtfWord::RowDefault:
        reset();
        m_isDescribed = true;
        m_isNew = true;
        break;
    case RtfWord::CellEdge:
        addCell(length);
        break;
    case RtfWord::RowLeft:
        m_row.left = length;
        break;
    case RtfWord::RowGap:
        m_row.gap = qMax(0, length);
        break;
    case RtfWord::RightToLeftRow:
        m_row.isRightToLeft = true;
        break;
    case RtfWord::RowAtLeft:
        m_row.alignment = 0;
        break;
    case RtfWord::RowInCenter:
        m_row.alignment = Qt::AlignHCenter;
        break;
    case RtfWord::RowAtRight:
        m_row.alignment = Qt::AlignRight;
        break;
    case RtfWord::HeaderRow:
        m_row.isHeader = true;
        break;
    case RtfWord::MergeNext:
        m_next.joinsLeft = true;
        break;
    case RtfWord::VerticalMergeNext:
        m_next.joinsAbove = true;
        break;
    case RtfWord::CellShading:
        m_next.shading = qMax(0, token.parameter);
        break;
    case RtfWord::CellMiddle:
        m_next.alignment = QTextCharFormat::AlignMiddle;
        break;
    case RtfWord::CellBottom:
        m_next.alignment = QTextCharFormat::AlignBottom;
        break;
    case RtfWord::CellBorderTop:
        openLine(RtfRow::Top);
        break;
    case RtfWord::CellBorderLeft:
        openLine(RtfRow::Left);
        break;
    case RtfWord::CellBorderBottom:
        openLine(RtfRow::Bottom);
        break;
    case RtfWord::CellBorderRight:
        openLine(RtfRow::Right);
        break;
    case RtfWord::RowBorderTop:
    case RtfWord::RowBorderLeft:
    case RtfWord::RowBorderBottom:
    case RtfWord::RowBorderRight:
    case RtfWord::RowBorderInnerRows:
    case RtfWord::RowBorderInnerColumns:
        m_isAtBorder = true;
        m_side = -1;
        break;
    case RtfWord::BorderSingle:
    case RtfWord::BorderThick:
    case RtfWord::BorderHair:
        applyBorder(QTextFrameFormat::BorderStyle_Solid, token);
        break;
    case RtfWord::BorderDouble:
        applyBorder(QTextFrameFormat::BorderStyle_Double, token);
        break;
    case RtfWord::BorderDotted:
        applyBorder(QTextFrameFormat::BorderStyle_Dotted, token);
        break;
    case RtfWord::BorderDashed:
        applyBorder(QTextFrameFormat::BorderStyle_Dashed, token);
        break;
    case RtfWord::BorderWidth:
        if (m_isAtBorder && m_row.borderStyle != 0)
            m_row.borderWidth = qMax(0, length);
        if (m_isAtBorder && line())
            line()->width = qMax(0, length);
        break;
    case RtfWord::BorderColor:
        if (m_isAtBorder && m_row.borderStyle != 0)
            m_row.borderColor = qMax(0, token.parameter);
        if (m_isAtBorder && line())
            line()->color = qMax(0, token.parameter);
        break;
    default:
        return applyPadding(token);
    }
    return true;
}

bool RtfRowReader::applyPadding(const RtfToken &token)
{
    constexpr int twips = 3; // of the units the only one that lengths have
    struct Word
    {
        RtfWord length;
        RtfWord unit;
    };
    constexpr std::array<Word, RtfRow::SideCount> ofRow = {
        {{RtfWord::RowPadLeft, RtfWord::RowPadLeftUnit},
         {RtfWord::RowPadTop, RtfWord::RowPadTopUnit},
         {RtfWord::RowPadRight, RtfWord::RowPadRightUnit},
         {RtfWord::RowPadBottom, RtfWord::RowPadBottomUnit}}};
    constexpr std::array<Word, RtfRow::SideCount> ofCell = {
        {{RtfWord::CellPadLeft, RtfWord::CellPadLeftUnit},
         {RtfWord::CellPadTop, RtfWord::CellPadTopUnit},
         {RtfWord::CellPadRight, RtfWord::CellPadRightUnit},
         {RtfWord::CellPadBottom, RtfWord::CellPadBottomUnit}}};
    const auto applies = [&](const std::array<Word, RtfRow::SideCount> &words, RtfRow::Padding &padding) {
        for (size_t side = 0; side < words.size(); ++side) {
            if (token.word == words[side].length)
                padding[side] = qBound(0, token.parameter, largest);
            else if (token.word == words[side].unit && token.parameter != twips)
                padding[side] = -1;
            else if (token.word != words[side].unit)
                continue;
            return true;
        }
        return false;
    };
    return applies(ofRow, m_row.padding) || applies(ofCell, m_next.padding);
}

void RtfRowReader::openLine(RtfRow::Side side)
{
    m_isAtBorder = true;
    m_side = side;
    *line() = RtfRow::Line();
}

void RtfRowReader::applyBorder(int style, const RtfToken &token)
{
    if (!m_isAtBorder)
        return;
    m_row.borderStyle = style;
    if (line())
        line()->style = int(token.word);
    else
        m_row.hasLines = true;
}

/// Edges go to the right; one that does not leaves its cell as narrow as can be.
void RtfRowReader::addCell(int edge)
{
    if (m_row.cells.size() < RtfRow::mostCells) {
        const int before = m_row.cells.empty() ? m_row.left : m_row.cells.back().edge;
        m_next.edge = qMax(edge, before + 1);
        m_row.cells.push_back(m_next);
    }
    m_next = RtfRow::Cell();
    m_side = -1;
    m_isAtBorder = false;
}
