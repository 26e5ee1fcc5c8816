#include "SummaryTable.h"

#include "ReportRecord.h"
#include "ReportValue.h"

namespace {

constexpr qsizetype nameCharacters = 25;
constexpr qsizetype addressWidth = 20;
constexpr qsizetype cityWidth = 15;
constexpr qsizetype phoneWidth = 12;

const QString tableHead =
    QStringLiteral(R"({\rtf1\ansi\ansicpg1252\deff0\deflang2057{\fonttbl{\f0\fnil\fcharset0 MS Sans Serif;}}
{\colortbl ;\red0\green0\blue160;}
\viewkind4\uc1\pard\cf1\b\f0\fs24 Address Records Summary For Selected Records\cf0\fs20
\par \b0
\par \b Name\tab\tab\tab Address\tab\tab City/Town\tab Phone Numbers
\par ___________________________________________________________________________________________
)")
        .replace(u'\n', QStringLiteral("\r\n"));

/// The cut comes first, since it may take away half of a value's markup.
QString fitted(const QString &value, qsizetype width)
{
    return ReportValue::markup(value.left(width).leftJustified(width));
}

/// Intended: also an address that just fits is marked as cut.
QString fittedAddress(const QString &address)
{
    const QString fit = fitted(address, addressWidth);
    return address.size() < addressWidth ? fit : fit + QStringLiteral("..");
}

QString columns(const ReportRecord &contact)
{
    return fitted(contact.name, nameCharacters) + QStringLiteral("\\tab ") +
           fittedAddress(contact.homeAddress) + QStringLiteral("\\tab ") +
           fitted(contact.homeCity, cityWidth) + QStringLiteral("\\tab H:") +
           fitted(contact.homePhones, phoneWidth) + QStringLiteral("\\tab M:") +
           fitted(contact.homeMobile, phoneWidth) + QStringLiteral("\\tab W:") +
           fitted(contact.workPhones, phoneWidth) + QStringLiteral("\r\n");
}

} // namespace

QString SummaryTable::firstRow(const ReportRecord &contact)
{
    return tableHead + QStringLiteral("\\par \\b0 ") + columns(contact);
}

QString SummaryTable::row(const ReportRecord &contact)
{
    return QStringLiteral("\\par ") + columns(contact);
}

QString SummaryTable::end()
{
    return QStringLiteral("\\par \r\n\\par End of Report..\\tab\r\n\\par }\r\n\r\n");
}
