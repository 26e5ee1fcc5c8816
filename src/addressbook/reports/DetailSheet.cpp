#include "DetailSheet.h"

#include "ReportRecord.h"
#include "ReportValue.h"

namespace {

QString withCrLf(QString lines)
{
    return lines.replace(u'\n', QStringLiteral("\r\n"));
}

const QString firstHead = withCrLf(QStringLiteral(R"({\rtf1\ansi\ansicpg1252\deff0\deflang1033\deflangfe1033)"
                                                  R"({\fonttbl{\f0\fswiss\fprq2\fcharset0 Arial;})"
                                                  R"({\f1\fnil\fcharset0 MS Sans Serif;}}
{\colortbl;\red51\green51\blue153;\red0\green0\blue0;}
{\stylesheet{ Normal;}{\s1 heading 1;}}
\viewkind4\uc1\pard\keepn\nowidctlpar\s1\cf1\lang2057\b\f0\fs20 ADDRESS BOOK DETAILS FOR %1.
)"));

const QString nextHead = withCrLf(QStringLiteral(R"(\par
\par \cf0\b\fs20
\par \b0
\par \pard\keepn\nowidctlpar\s1\cf1\b\f0 ADDRESS BOOK DETAILS FOR %1.
)"));

const QString homePart = withCrLf(QStringLiteral(R"(\par \pard\nowidctlpar\cf0\f1
\par Name:  \b0 %1\tab\tab\tab\b (Nickname: \b0 %2\b\tab )
\par
\par \pard\keepn\nowidctlpar\s1 Home Address:  \tab\b0 %3\tab
\par \pard\nowidctlpar\tab\tab\tab %4
\par \tab\tab\tab %5
\par \tab\tab\tab %6
\par \b
\par Telephone:\tab\b0 %7\tab\tab\b Mobile:\b0\tab %8\tab
\par
\par \b Email:\tab\tab\b0 %9\b\tab\b0
\par
\par \pard\keepn\nowidctlpar\s1\b DOB:\tab\tab\b0 %10\tab\tab\tab\tab\b (In Group:\tab\b0 %11\b )
)"));

const QString workPart = withCrLf(QStringLiteral(R"(\par \pard\nowidctlpar\b0\f0
\par \b\f1 Company:\b0\tab %1\tab\tab\tab\b Dept:\b0\tab %2
\par \b
\par Position:\b0\tab %3\tab\tab
\par \pard\keepn\nowidctlpar\s1\b
\par Work Address: \tab\b0 %4\tab
\par \pard\nowidctlpar\tab\tab\tab %5
\par \tab\tab\tab %6
\par \tab\tab\tab %7\b
\par
\par Work Telephone:\tab\b0 %8\tab\b Mobile:\b0\tab %9\tab
\par
\par \b Fax:\tab\tab\tab\cf2\b0 %10\cf0
\par
\par \b Comments:\tab\tab\cf2\b0\fs16 %11
\par
\par \cf0\b\fs20
\par \b0
\par \f0
)"));

const QString firstEnd = withCrLf(QStringLiteral(R"(\par \b\f1
\par \b0
)"));

const QString secondEnd = withCrLf(QStringLiteral(R"(\par
\par \b\f1
\par \b0
\par }
)"));

/// All values at once, so that a "%1" in one of them stays what it is.
template<class... Values>
QString filled(const QString &lines, const Values &...values)
{
    return lines.arg(ReportValue::markup(values)...);
}

QString contactLines(const ReportRecord &contact)
{
    return filled(homePart, contact.name, contact.nickName, contact.homeAddress, contact.homeCity,
                  contact.homeState, contact.homeZip, contact.homePhones, contact.homeMobile,
                  contact.eMailText, contact.birthDate, contact.groupName) +
           filled(workPart, contact.company, contact.department, contact.post, contact.workAddress,
                  contact.workCity, contact.workState, contact.workZip, contact.workPhones,
                  contact.workMobile, contact.workFax, contact.comment);
}

} // namespace

QString DetailSheet::first(const ReportRecord &contact)
{
    return filled(firstHead, contact.name) + contactLines(contact) + firstEnd;
}

QString DetailSheet::second(const ReportRecord &contact)
{
    return filled(nextHead, contact.name) + contactLines(contact) + secondEnd;
}

QString DetailSheet::end()
{
    return QStringLiteral("}\r\n");
}
