#include "EngineModule.h"

#include "EngineControl.h"
#include "WebProfile.h"

#include <QLoggingCategory>
#include <QQuickWindow>
#include <optional>
#include <unistd.h>
#include <utility>

namespace {

constexpr const char *withoutSandbox = "QTWEBENGINE_DISABLE_SANDBOX";

QLoggingCategory::CategoryFilter usualFilter = nullptr;

/// The engine reports each start, with all its options.
void keepStartQuiet(QLoggingCategory *category)
{
    usualFilter(category);
    if (qstrcmp(category->categoryName(), "qt.webenginecontext") == 0)
        category->setEnabled(QtInfoMsg, false);
}

/// Says how the engine is to start, once, and leaves the environment of the programs that the suite starts
/// as it was.
class EngineStart
{
public:
    EngineStart()
    {
        usualFilter = QLoggingCategory::installFilter(nullptr); // the new one runs before it is returned
        QLoggingCategory::installFilter(keepStartQuiet);
        // The other way needs a window of another kind, and the frame would be made anew around it.
        QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
        if (m_isRoot)
            qputenv(withoutSandbox, "1"); // the engine starts for root in no other way
    }
    ~EngineStart()
    {
        if (m_isRoot)
            qunsetenv(withoutSandbox);
        QLoggingCategory::installFilter(usualFilter);
    }
    EngineStart(const EngineStart &) = delete;
    EngineStart &operator=(const EngineStart &) = delete;

private:
    const bool m_isRoot = ::geteuid() == 0 && !qEnvironmentVariableIsSet(withoutSandbox);
};

} // namespace

WebControl *EngineModule::makeControl(QWidget *parent)
{
    return new EngineControl(profile(), parent);
}

std::shared_ptr<WebProfile> EngineModule::profile()
{
    std::shared_ptr<WebProfile> profile = m_profile.lock();
    if (profile)
        return profile;
    std::optional<EngineStart> start;
    if (!std::exchange(m_isStarted, true))
        start.emplace();
    profile = std::make_shared<WebProfile>();
    m_profile = profile;
    return profile;
}
