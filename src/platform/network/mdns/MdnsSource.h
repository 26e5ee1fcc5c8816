#pragma once

#include "ComputerSource.h"

#include <QDBusConnection>
#include <QSet>
#include <QStringList>

class QDBusMessage;

/// Computers that announce themselves by multicast DNS. The system's service Avahi has heard them; it is not
/// started for this.
class MdnsSource : public ComputerSource
{
    Q_OBJECT

public:
    explicit MdnsSource(QObject *parent = nullptr);
    ~MdnsSource() override;

    void start() override;

private Q_SLOTS:
    void itemNew(int interface, int protocol, const QString &name, const QString &type, const QString &domain,
                 uint flags);
    void allForNow();
    void failure(const QString &reason);

private:
    struct Service
    {
        int interface;
        int protocol;
        QString name;
        QString type;
        QString domain;
    };

    template<class Step>
    void ask(const QDBusMessage &question, Step &&step);
    void browse(const QString &type);
    void listenTo(const QString &browser);
    void resolve(const Service &service);
    void settle();
    void finish();

    QDBusConnection m_bus;
    QStringList m_browsers; ///< their paths on the bus
    QSet<QString> m_seen;   ///< services that have been asked for their hosts
    int m_open = 0;         ///< answers that are still to come
    bool m_hasAsked = false;
    bool m_isFinished = false;
};
