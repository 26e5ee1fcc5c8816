#include "HostileNames.h"

#include "FileNames.h"

#include <algorithm>
#include <climits>

namespace {

QList<HostileName> namesThat(bool (*holds)(const HostileName &))
{
    QList<HostileName> names;
    std::copy_if(HostileNames::all().cbegin(), HostileNames::all().cend(), std::back_inserter(names), holds);
    return names;
}

} // namespace

QString HostileName::text() const
{
    return FileNames::fromBytes(bytes);
}

bool HostileName::isUtf8() const
{
    return bytes.isValidUtf8();
}

bool HostileName::canBeFile() const
{
    return bytes.size() <= NAME_MAX && bytes != "..";
}

const QList<HostileName> &HostileNames::all()
{
    static const QList<HostileName> names = {
        {"Markup", "<b>bold<br><img src=x.png>"},
        {"Ampersand", "Salt & Pepper && co&lt;"},
        {"Placeholder", "%1 of %2 %n 100%s"},
        {"LeadingDash", "-rf"},
        {"ParentFolder", ".."},
        {"Dots", "a..b"},
        {"Blanks", " blank "},
        {"Backslash", "back\\slash"},
        {"LineFeeds", "one\ntwo\r\nthree\u2028four"},
        {"ControlCharacters", "bell\a\ttab\x1b[2J\u0085"},
        {"TurnedDirection", "invoice\u202Efdp.exe\u2067\u200F"},
        {"Joiners", QByteArray("\u0645\u06CC\u200C\u062E").repeated(9)},
        {"Long", QByteArray(200, 'w')},
        {"NearlyLongest", QByteArray(NAME_MAX - 5, 'l')}, // leaves room for an extension
        {"TooLong", QByteArray("\u00E9").repeated(150)},
        {"NotUtf8", "caf\xE9.rtf"},
        {"ByteOrderMark", "\xFF\xFE"},
        {"CutUtf8", "cut\xE2\x82"},
    };
    return names;
}

QList<HostileName> HostileNames::texts()
{
    return namesThat([](const HostileName &name) { return name.isUtf8(); });
}

QList<HostileName> HostileNames::files()
{
    return namesThat([](const HostileName &name) { return name.canBeFile(); });
}
