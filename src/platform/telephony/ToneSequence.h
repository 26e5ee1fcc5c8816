#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

/// Sends tones one after the other, for lines that send each of them on demand. A "," is a pause.
class ToneSequence : public QObject
{
    Q_OBJECT

public:
    explicit ToneSequence(QObject *parent = nullptr);

    /// Puts \a tones behind those that are left.
    void add(const QString &tones);
    void stop();

Q_SIGNALS:
    /// It is time for this tone, one of "0123456789*#".
    void toneDue(QChar tone);

private:
    void next();

    QString m_tones; ///< that are left
    QTimer m_timer;
};
