#pragma once

#include "WebControl.h"

/// Takes the place of the web browser control where there is none, and says what is missing.
class MissingControl : public WebControl
{
    Q_OBJECT

public:
    MissingControl(const QString &reason, QWidget *parent);

    void Navigate(const QUrl &) override {}
    void GoBack() override {}
    void GoForward() override {}
    void Refresh() override {}
    void Stop() override {}
    QString LocationName() const override { return {}; }
    QUrl LocationURL() const override { return {}; }
    bool Busy() const override { return false; }
    void zoom(int) override {}
    bool isReceiving() const override { return false; }

    void undo() override {}
    void cut() override {}
    void copy() override {}
    void paste() override {}
};
