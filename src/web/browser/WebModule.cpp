#include "WebModule.h"

#include "Plugin.h"
#include "WebEngine.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <QOpenGLContext>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);
Q_GUI_EXPORT QOpenGLContext *qt_gl_global_share_context();
QT_END_NAMESPACE

namespace {

/// The engine ends the process where one of its files is missing.
void requireFile(const QString &path)
{
    if (!QFileInfo(path).isFile())
        throw RuntimeError(ErrorNumber::ModuleNotLoaded, QStringLiteral("The file %1 is missing.").arg(path),
                           path);
}

void requireEngine()
{
    requireFile(QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) +
                QStringLiteral("/QtWebEngineProcess"));
    requireFile(QLibraryInfo::path(QLibraryInfo::DataPath) +
                QStringLiteral("/resources/qtwebengine_resources.pak"));
}

/// The engine needs a context that all windows share. A program that has none from its start on, which costs
/// time and memory, makes it before it loads the engine.
void makeSharedContext()
{
    if (qt_gl_global_share_context())
        return;
    auto *context = new QOpenGLContext; // exists until the process ends
    context->create();                  // pages are also shown where this fails
    qt_gl_set_global_share_context(context);
}

} // namespace

WebControl *WebModule::makeControl(QWidget *parent)
{
    static Plugin module(QStringLiteral("platform-webview-engine"));
    if (module.isInstalled()) {
        requireEngine();
        makeSharedContext();
    }
    return module.as<WebEngine>().makeControl(parent);
}
