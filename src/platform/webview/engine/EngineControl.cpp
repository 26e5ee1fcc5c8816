#include "EngineControl.h"

#include "EnginePage.h"
#include "EngineView.h"
#include "WebProfile.h"

#include <QFileInfo>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>

namespace {

/// Why \a download has not come; empty where it has. The engine's own texts fit only some of its reasons.
QString failureOf(const QWebEngineDownloadRequest &download)
{
    using Download = QWebEngineDownloadRequest;
    if (download.state() == Download::DownloadCompleted)
        return {};
    if (download.state() == Download::DownloadCancelled) // by the engine
        return QStringLiteral("its folder cannot be written to");
    const Download::DownloadInterruptReason reason = download.interruptReason();
    if (reason == Download::FileNoSpace)
        return QStringLiteral("the disk is full");
    if (reason > Download::NoReason && reason < Download::NetworkFailed)
        return QStringLiteral("the file cannot be written");
    return QStringLiteral("the server has not sent all of it");
}

} // namespace

EngineControl::EngineControl(std::shared_ptr<WebProfile> profile, QWidget *parent)
    : WebControl(parent)
    , m_profile(std::move(profile))
    , m_page(std::make_unique<EnginePage>(*m_profile))
    , m_view(new EngineView(*m_page, this))
{
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_view);
    setFocusProxy(m_view);
    bindPage();
    connect(m_view, &EngineView::UserInput, m_page.get(), &EnginePage::noteUserInput);
    connect(m_view, &EngineView::ZoomWanted, this, &EngineControl::zoom);
    connect(m_profile.get(), &QWebEngineProfile::downloadRequested, this, &EngineControl::offered);
}

EngineControl::~EngineControl()
{
    cancelReceiving();
    delete m_view; // before the page that it shows
}

void EngineControl::bindPage()
{
    connect(m_page.get(), &QWebEnginePage::loadStarted, this, &EngineControl::loadStarted);
    connect(m_page.get(), &QWebEnginePage::loadFinished, this, &EngineControl::loadFinished);
    connect(m_page.get(), &QWebEnginePage::urlChanged, this, &EngineControl::urlChanged);
    connect(m_page.get(), &QWebEnginePage::titleChanged, this, &EngineControl::titleChanged);
    connect(m_page.get(), &EnginePage::BoxWanted, this, &WebControl::BoxWanted);
    connect(m_page.get(), &EnginePage::FileWanted, this, &WebControl::FileWanted);
    // Queued: what hears of it may close the window, and the engine is not done with the page yet.
    connect(
        m_page.get(), &QWebEnginePage::renderProcessTerminated, this,
        [this](QWebEnginePage::RenderProcessTerminationStatus status) {
            if (status != QWebEnginePage::NormalTerminationStatus)
                Q_EMIT PageCrashed();
        },
        Qt::QueuedConnection);
}

// ---- Pages

void EngineControl::Navigate(const QUrl &address)
{
    if (!EnginePage::isShown(address))
        return;
    begin();
    m_page->load(address);
}

/// The user wants a page, and hears of it what it has to say.
void EngineControl::begin()
{
    m_isAsked = true;
    m_page->noteUserInput();
}

void EngineControl::GoBack()
{
    if (!m_page->history()->canGoBack())
        return;
    begin();
    m_page->history()->back();
}

void EngineControl::GoForward()
{
    if (!m_page->history()->canGoForward())
        return;
    begin();
    m_page->history()->forward();
}

void EngineControl::Refresh()
{
    if (LocationURL().isEmpty())
        return;
    begin();
    m_page->triggerAction(QWebEnginePage::Reload);
}

void EngineControl::Stop()
{
    m_isAsked = false;
    m_page->triggerAction(QWebEnginePage::Stop);
}

QString EngineControl::LocationName() const
{
    return m_page->title();
}

QUrl EngineControl::LocationURL() const
{
    return m_page->url().adjusted(QUrl::RemovePassword);
}

void EngineControl::loadStarted()
{
    m_isAsked = false;
    m_isLoading = true;
    m_announced.clear();
}

void EngineControl::loadFinished(bool isWhole)
{
    m_isAsked = false;
    m_isLoading = false;
    if (isWhole && m_announced != LocationURL())
        announce();
    Q_EMIT DownloadComplete();
}

/// A page that is being loaded may go on to other places in it, of which only the last one counts.
void EngineControl::urlChanged()
{
    if (m_isLoading && !m_announced.isEmpty())
        return;
    m_isAsked = false;
    announce();
}

void EngineControl::announce()
{
    m_announced = LocationURL();
    Q_EMIT NavigateComplete();
}

/// A page may change its title at any time.
void EngineControl::titleChanged()
{
    if (!Busy())
        Q_EMIT DownloadComplete();
}

void EngineControl::zoom(int steps)
{
    constexpr int usual = 100;
    constexpr int step = 10;
    m_percent = steps == 0 ? usual : qBound(30, m_percent + steps * step, 300);
    m_page->setZoomFactor(m_percent / 100.0);
}

// ---- Editing

void EngineControl::undo()
{
    m_page->triggerAction(QWebEnginePage::Undo);
}

void EngineControl::cut()
{
    m_page->triggerAction(QWebEnginePage::Cut);
}

void EngineControl::copy()
{
    m_page->triggerAction(QWebEnginePage::Copy);
}

void EngineControl::paste()
{
    m_page->triggerAction(QWebEnginePage::Paste);
}

// ---- Files that pages offer

/// Every control hears of every file. One that nobody accepts is refused by the engine. A file that breaks
/// off is offered some times more, and comes to its place without a question.
void EngineControl::offered(QWebEngineDownloadRequest *download)
{
    if (download->page() != m_page.get())
        return;
    if (const auto earlier = m_downloads.constFind(download->id()); earlier != m_downloads.cend()) {
        receive(*download, QString(earlier->path));
        return;
    }
    const QPointer<QWebEngineDownloadRequest> request(download); // may go while the user is asked
    QString path;
    Q_EMIT SaveWanted(download->suggestedFileName(), path);
    if (request && !path.isEmpty())
        receive(*request, path);
}

void EngineControl::receive(QWebEngineDownloadRequest &download, const QString &path)
{
    m_downloads.insert(download.id(), {&download, path});
    connect(&download, &QWebEngineDownloadRequest::stateChanged, this, [this, &download](auto state) {
        if (state != QWebEngineDownloadRequest::DownloadInProgress)
            received(download);
    });
    const QFileInfo place(path);
    download.setDownloadDirectory(place.path());
    download.setDownloadFileName(place.fileName());
    download.accept();
}

void EngineControl::received(const QWebEngineDownloadRequest &download)
{
    const auto [request, path] = m_downloads.take(download.id());
    if (!request)
        return; // given up
    const QString failure = failureOf(download);
    // Later, as what hears of it may close the window.
    QMetaObject::invokeMethod(
        this,
        [this, request, path, failure] {
            if (request)
                request->cancel(); // so that the engine keeps nothing of a file that has broken off
            Q_EMIT Received(path, failure);
        },
        Qt::QueuedConnection);
}

bool EngineControl::isReceiving() const
{
    return !m_downloads.isEmpty();
}

void EngineControl::cancelReceiving()
{
    for (const auto &[request, path] : std::exchange(m_downloads, {})) {
        if (request)
            request->cancel();
    }
}
