#include "EngineModule.h"

#include "EngineControl.h"
#include "WebProfile.h"

#include <QQuickWindow>
#include <unistd.h>

namespace {

constexpr const char *withoutSandbox = "QTWEBENGINE_DISABLE_SANDBOX";

/// Says how the engine is to start, once, and leaves the environment of the programs that the suite starts
/// as it was.
class EngineStart
{
public:
    EngineStart()
    {
        // The other way needs a window of another kind, and the frame would be made anew around it.
        QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
        if (m_isRoot)
            qputenv(withoutSandbox, "1"); // the engine starts for root in no other way
    }
    ~EngineStart()
    {
        if (m_isRoot)
            qunsetenv(withoutSandbox);
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
    const EngineStart start;
    profile = std::make_shared<WebProfile>();
    m_profile = profile;
    return profile;
}
