#include "LogOnNotice.h"

#include "ErrorReports.h"

namespace {

struct Place
{
    const char *section;
    const char *value;
};

constexpr Place winlogonCaption = {"Software\\Microsoft\\Windows NT\\CurrentVersion\\WINLOGON",
                                   "LegalNoticeCaption"};
constexpr Place winlogonText = {winlogonCaption.section, "LegalNoticeText"};
constexpr Place policyCaption = {"Software\\Microsoft\\Windows\\CurrentVersion\\policies\\system",
                                 "LegalNoticeCaption"};
constexpr Place policyText = {policyCaption.section, "LegalNoticeText"};

cRegistry at(const Place &place)
{
    cRegistry registry;
    registry.ClassKey = cRegistry::LocalMachine;
    registry.SectionKey = QString::fromLatin1(place.section);
    registry.ValueKey = QString::fromLatin1(place.value);
    return registry;
}

/// A value that is there replaces what has been read, also when it is empty.
void readInto(QString &text, const Place &place)
{
    const QVariant value = at(place).Value();
    if (value.isValid())
        text = value.toString();
}

QString lastOf(const Place &first, const Place &second)
{
    QString text;
    readInto(text, first);
    readInto(text, second);
    return text;
}

void write(const Place &place, const QString &text)
{
    ignoreErrors([&] { at(place).setValue(text); });
}

void remove(const Place &place)
{
    ignoreErrors([&] { at(place).DeleteValue(); });
}

} // namespace

LogOnNotice::LogOnNotice(const LogInBanner &banner)
    : m_banner(banner)
{}

QString LogOnNotice::caption() const
{
    return lastOf(policyCaption, winlogonCaption);
}

QString LogOnNotice::text() const
{
    return lastOf(policyText, winlogonText);
}

void LogOnNotice::activate(const QString &caption, const QString &text)
{
    write(winlogonCaption, caption);
    write(winlogonText, text);
    write(policyCaption, caption);
    write(policyText, text);
    m_banner.show(caption, text);
}

void LogOnNotice::deactivate()
{
    remove(winlogonCaption);
    remove(winlogonText);
    remove(policyCaption);
    remove(policyText);
    m_banner.remove();
}
