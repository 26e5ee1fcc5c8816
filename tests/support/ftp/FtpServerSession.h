#pragma once

#include "FtpServerData.h"
#include "FtpServerFolder.h"

#include <QPointer>
#include <QSslSocket>
#include <functional>
#include <memory>

class FtpServer;
struct FtpFault;

/// One client of an FtpServer: its control connection and its current folder. It deletes itself when the
/// connection has ended.
class FtpServerSession : public QObject
{
public:
    FtpServerSession(FtpServer &server, qintptr socket);

    bool isHeld() const { return bool(m_held); }
    void release();
    /// Sends \a text, unless it is empty, and closes the connections.
    void drop(const QByteArray &text = {});
    void send(const QByteArray &bytes);
    bool isDelivered() const;

private:
    /// Does a command and returns its reply; empty for one that comes later.
    using Effect = std::function<QByteArray()>;

    void readLines();
    void obey(const QByteArray &line);
    void atStage(const QByteArray &stage, const Effect &effect);
    static void runStep(const QPointer<FtpServerSession> &self, const QByteArray &stage,
                        const std::function<void()> &step);
    void act(const FtpFault &fault, const Effect &effect);
    void answer(const QByteArray &text);

    QByteArray perform(const QByteArray &verb, const QByteArray &argument);
    QByteArray performOnFile(const QByteArray &verb, const QByteArray &argument);
    QByteArray logOn(const QByteArray &password);
    QByteArray beginTls();
    QByteArray openData(const QByteArray &verb);
    QByteArray size(const QByteArray &name) const;
    QByteArray time(const QByteArray &name) const;
    QByteArray rename(const QByteArray &name);
    QByteArray sendList(const QByteArray &list);
    QByteArray sendFile(const QByteArray &name);
    QByteArray receiveFile(const QByteArray &name);
    void startData();
    void endData(bool cut);

    FtpServer &m_server;
    QSslSocket m_socket;
    FtpServerFolder m_folder;
    std::unique_ptr<FtpServerData> m_data;
    std::function<void()> m_held;
    QByteArray m_user;
    QByteArray m_renamed;
    bool m_loggedOn = false;
    bool m_protectsData = false;
    bool m_dropped = false;
};
