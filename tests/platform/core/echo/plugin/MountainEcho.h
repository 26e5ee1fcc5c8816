#pragma once

#include "Echo.h"

/// Answers with the call itself.
class MountainEcho : public Echo
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "quill.test.Echo")
public:
    QString answer(const QString &call) override;
};
