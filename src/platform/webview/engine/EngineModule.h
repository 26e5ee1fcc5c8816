#pragma once

#include "WebEngine.h"

#include <memory>

class WebProfile;

/// The module's object: it starts Qt WebEngine for the first control.
class EngineModule : public WebEngine
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "quill.WebEngine")

public:
    WebControl *makeControl(QWidget *parent) override;

private:
    std::shared_ptr<WebProfile> profile();

    std::weak_ptr<WebProfile> m_profile; ///< the controls own it
    bool m_isStarted = false;
};
