#include "ShownText.h"

#include <algorithm>

namespace {

bool turnsDirection(QChar character)
{
    const char16_t code = character.unicode();
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

bool isHidden(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return turnsDirection(character);
    }
}

} // namespace

QString shownText(const QString &text)
{
    if (std::none_of(text.cbegin(), text.cend(), isHidden))
        return text;
    QString shown = text;
    std::replace_if(shown.begin(), shown.end(), isHidden, QChar(QChar::ReplacementCharacter));
    return shown;
}
