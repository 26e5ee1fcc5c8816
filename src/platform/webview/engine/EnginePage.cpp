#include "EnginePage.h"

#include "WebProfile.h"

#include <QWebEngineCertificateError>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>

namespace {

bool isOfTheWeb(const QUrl &address)
{
    return address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https");
}

/// Empty pages, and those that a frame has in its own text.
bool isAboutNothing(const QUrl &address)
{
    return address.scheme() == QLatin1String("about") &&
           (address.path() == QLatin1String("blank") || address.path() == QLatin1String("srcdoc"));
}

WebBox boxOf(WebBox::Kind kind, const QUrl &origin, const QString &text, const QString &value = {})
{
    return {.kind = kind, .host = origin.authority(), .text = text, .value = value};
}

} // namespace

EnginePage::EnginePage(WebProfile &profile)
    : QWebEnginePage(&profile)
{
    refusePermissions();
    connect(this, &QWebEnginePage::newWindowRequested, this, &EnginePage::openHere);
}

void EnginePage::refusePermissions()
{
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl &origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::quotaRequested, this,
            [](QWebEngineQuotaRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
}

bool EnginePage::isShown(const QUrl &address)
{
    return isOfTheWeb(address) || isAboutNothing(address) || address.isLocalFile();
}

bool EnginePage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    // A page leads to no file by itself.
    const bool isUsersOwn =
        type == NavigationTypeTyped || type == NavigationTypeBackForward || type == NavigationTypeReload;
    return isOfTheWeb(url) || isAboutNothing(url) || (url.isLocalFile() && isMainFrame && isUsersOwn);
}

void EnginePage::openHere(QWebEngineNewWindowRequest &request)
{
    if (isOfTheWeb(request.requestedUrl()))
        load(request.requestedUrl());
}

void EnginePage::ask(WebBox &box)
{
    if (m_boxesLeft == 0)
        return;
    --m_boxesLeft;
    Q_EMIT BoxWanted(box);
}

void EnginePage::javaScriptAlert(const QUrl &origin, const QString &text)
{
    WebBox box = boxOf(WebBox::Kind::Alert, origin, text);
    ask(box);
}

bool EnginePage::javaScriptConfirm(const QUrl &origin, const QString &text)
{
    WebBox box = boxOf(WebBox::Kind::Confirm, origin, text);
    ask(box);
    return box.isAccepted;
}

bool EnginePage::javaScriptPrompt(const QUrl &origin, const QString &text, const QString &value,
                                  QString *result)
{
    WebBox box = boxOf(WebBox::Kind::Prompt, origin, text, value);
    ask(box);
    if (box.isAccepted)
        *result = box.value;
    return box.isAccepted;
}

/// One file, also where a page would take several; no folder.
QStringList EnginePage::chooseFiles(FileSelectionMode mode, const QStringList &, const QStringList &)
{
    QString path;
    if (mode == FileSelectOpen || mode == FileSelectOpenMultiple)
        Q_EMIT FileWanted(path);
    return path.isEmpty() ? QStringList() : QStringList(path);
}
