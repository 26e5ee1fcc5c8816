#include "HostileNames.h"

#include <QFile>
#include <QStringDecoder>
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
    return QFile::decodeName(bytes);
}

bool HostileName::isUtf8() const
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString ignored = decoder(bytes);
    return !decoder.hasError();
}

bool HostileName::canBeFile() const
{
    return bytes.size() <= NAME_MAX && bytes != "..";
}

const QList<HostileName> &HostileNames::all()
{
    static const QList<HostileName> names = {
        {"Markup", "<b>bold<br><img src=x.png>"},
        {"Ampersand", "Salt & Pepper && co"},
        {"Placeholder", "%1 of %2 %n 100%s"},
        {"LeadingDash", "-rf"},
        {"ParentFolder", ".."},
        {"LineFeeds", "one\ntwo\r\nthree"},
        {"RightToLeftOverride", "invoice\u202Efdp.exe"},
        {"TooLong", QByteArray("\u00E9").repeated(150)},
        {"NotUtf8", "caf\xE9.rtf"},
    };
    return names;
}

QList<HostileName> HostileNames::texts()
{
    return namesThat([](const HostileName &name) { return name.isUtf8(); });
}

QList<HostileName> HostileNames::files()
{
    return namesThat([](const HostileName &name) { return name.isUtf8() && name.canBeFile(); });
}
