#pragma once

#include "LogInBanner.h"
#include "cRegistry.h"

/// The notice before the log-on: four values of the registry, two pairs alike, and what the log-in shows of
/// them.
class LogOnNotice
{
public:
    explicit LogOnNotice(const LogInBanner &banner = LogInBanner());

    /// The winlogon value where there is one, else that of the policies; empty where neither is.
    QString caption() const;
    QString text() const;

    /// Writes all four values; one that cannot be written is passed over.
    void activate(const QString &caption, const QString &text);
    /// Deletes all four.
    void deactivate();

private:
    LogInBanner m_banner;
};
