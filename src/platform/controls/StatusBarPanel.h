#pragma once

#include <QLabel>

/// One panel of a status bar. Its text is shown on one line, plain.
class StatusBarPanel : public QLabel
{
public:
    explicit StatusBarPanel(QWidget *parent = nullptr);

    QString Text() const { return m_text; }
    void setText(const QString &text);

private:
    QString m_text;
};
