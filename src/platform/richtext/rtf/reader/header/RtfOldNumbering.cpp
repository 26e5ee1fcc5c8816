#include "RtfOldNumbering.h"

void RtfOldNumbering::begin()
{
    m_depth = 0;
    m_textDepth = -1;
    m_isMarked = false;
    m_mark = RtfListLevel();
    m_before.clear();
    m_behind.clear();
    m_text = nullptr;
}

int RtfOldNumbering::end()
{
    if (!m_isMarked)
        return 0;
    const bool isBullet = m_mark.kind == RtfListLevel::bulleted;
    m_mark.text = isBullet ? m_before : m_before + QChar(u'\0') + m_behind;
    if (m_marks.isEmpty() || m_marks.last() != m_mark)
        m_marks.append(m_mark);
    return int(m_marks.size());
}

int RtfOldNumbering::bullet()
{
    begin();
    m_isMarked = true;
    m_mark.kind = RtfListLevel::bulleted;
    m_before = QStringLiteral("\u2022");
    return end();
}

void RtfOldNumbering::close()
{
    if (m_depth-- == m_textDepth)
        m_text = nullptr;
}

void RtfOldNumbering::word(const RtfToken &token)
{
    const auto number = [&](int kind) {
        m_mark.kind = kind;
        m_isMarked = true;
    };
    switch (token.word) {
    case RtfWord::PnBullet:
        return number(RtfListLevel::bulleted);
    case RtfWord::PnBody:
    case RtfWord::PnDecimal:
    case RtfWord::PnLevel:
        return number(0);
    case RtfWord::PnUpperRoman:
        return number(1);
    case RtfWord::PnLowerRoman:
        return number(2);
    case RtfWord::PnUpperLetters:
        return number(3);
    case RtfWord::PnLowerLetters:
        return number(4);
    case RtfWord::PnContinued:
        m_isMarked = false;
        break;
    case RtfWord::PnStart:
        m_mark.start = qMax(0, token.parameter);
        break;
    case RtfWord::PnTextBefore:
    case RtfWord::PnTextAfter:
        m_text = token.word == RtfWord::PnTextBefore ? &m_before : &m_behind;
        m_textDepth = m_depth;
        break;
    default:
        break;
    }
}

void RtfOldNumbering::bytes(QByteArrayView bytes)
{
    for (const char byte : bytes)
        character(static_cast<uchar>(byte));
}

void RtfOldNumbering::character(char16_t c)
{
    constexpr char16_t symbolBullet = 0xB7;
    if (m_text)
        m_text->append(QChar(c == symbolBullet ? u'\u2022' : c));
}
