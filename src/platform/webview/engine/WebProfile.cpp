#include "WebProfile.h"

#include <QWebEngineSettings>
#include <iterator>

namespace {

constexpr QWebEngineSettings::WebAttribute switchedOff[] = {
    QWebEngineSettings::JavascriptCanOpenWindows, // without a click
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::JavascriptCanPaste,
    QWebEngineSettings::LocalContentCanAccessFileUrls,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::AllowRunningInsecureContent,
    QWebEngineSettings::FullScreenSupportEnabled,
    QWebEngineSettings::ScreenCaptureEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::NavigateOnDropEnabled,
};

} // namespace

WebProfile::WebProfile()
{
    for (const QWebEngineSettings::WebAttribute attribute : switchedOff)
        settings()->setAttribute(attribute, false);
    settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
    settings()->setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}
