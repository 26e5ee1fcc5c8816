#pragma once

#include "WebControl.h"

/// A web browser control without an engine: it records what the window asks of it and shows what a test says.
class FakeControl : public WebControl
{
    Q_OBJECT

public:
    FakeControl()
        : WebControl(nullptr)
    {}

    void Navigate(const QUrl &address) override { calls << QStringLiteral("Navigate ") + address.toString(); }
    void GoBack() override { calls << QStringLiteral("GoBack"); }
    void GoForward() override { calls << QStringLiteral("GoForward"); }
    void Refresh() override { calls << QStringLiteral("Refresh"); }
    void Stop() override { calls << QStringLiteral("Stop"); }
    QString LocationName() const override { return name; }
    QUrl LocationURL() const override { return url; }
    bool Busy() const override { return isBusy; }
    void zoom(int steps) override { calls << QStringLiteral("zoom %1").arg(steps); }
    bool isReceiving() const override { return false; }
    void undo() override {}
    void cut() override {}
    void copy() override {}
    void paste() override {}

    /// The page \a address with the title \a title has come.
    void arrive(const QString &address, const QString &title)
    {
        url = QUrl(address);
        name = title;
        isBusy = false;
        Q_EMIT NavigateComplete();
    }

    QStringList calls;
    QString name;
    QUrl url;
    bool isBusy = false;
};
