#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

/// Receives what the suite hands to the desktop's default handlers for addresses and folders.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher()
    {
        for (const QString &scheme : schemes())
            QDesktopServices::setUrlHandler(scheme, this, "receive");
    }
    ~UrlCatcher() override
    {
        for (const QString &scheme : schemes())
            QDesktopServices::unsetUrlHandler(scheme);
    }

    const QList<QUrl> &opened() const { return m_opened; }

    Q_INVOKABLE void receive(const QUrl &url) { m_opened.append(url); }

private:
    static QStringList schemes()
    {
        return {QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("mailto"),
                QStringLiteral("file")};
    }

    QList<QUrl> m_opened;
};
