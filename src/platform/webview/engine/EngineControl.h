#pragma once

#include "WebControl.h"

#include <QHash>
#include <QPointer>
#include <memory>

class EnginePage;
class EngineView;
class QWebEngineDownloadRequest;
class WebProfile;

/// The control over Qt WebEngine.
class EngineControl : public WebControl
{
    Q_OBJECT

public:
    EngineControl(std::shared_ptr<WebProfile> profile, QWidget *parent);
    ~EngineControl() override;

    void Navigate(const QUrl &address) override;
    void GoBack() override;
    void GoForward() override;
    void Refresh() override;
    void Stop() override;
    QString LocationName() const override;
    QUrl LocationURL() const override;
    bool Busy() const override { return m_isAsked || m_isLoading; }
    void zoom(int steps) override;
    bool isReceiving() const override;

    void undo() override;
    void cut() override;
    void copy() override;
    void paste() override;

private:
    /// A file that is being received.
    struct Download
    {
        QPointer<QWebEngineDownloadRequest> request;
        QString path;
    };

    void bindPage();
    void begin();
    void loadStarted();
    void loadFinished(bool isWhole);
    void urlChanged();
    void announce();
    void titleChanged();
    void offered(QWebEngineDownloadRequest *download);
    void receive(QWebEngineDownloadRequest &download, const QString &path);
    void cancelReceiving();
    void received(const QWebEngineDownloadRequest &download);

    std::shared_ptr<WebProfile> m_profile; ///< longer than the page
    std::unique_ptr<EnginePage> m_page;
    EngineView *m_view;
    bool m_isAsked = false; ///< to load; the page has not begun yet
    bool m_isLoading = false;
    QUrl m_announced;    ///< the address that NavigateComplete has told of since the load began
    int m_percent = 100; ///< enlargement
    QHash<quint32, Download> m_downloads; ///< by the engine's number
};
