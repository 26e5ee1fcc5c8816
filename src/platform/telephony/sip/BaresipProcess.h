#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <memory>

class AccountFolder;
class SipAccount;

/// A baresip process with one account. It ends with this process, however that ends.
class BaresipProcess : public QObject
{
    Q_OBJECT

public:
    explicit BaresipProcess(QObject *parent = nullptr);
    /// As kill().
    ~BaresipProcess() override;

    /// Whether the program is installed.
    static bool isInstalled();

    /// Starts it for \a account with its control port at controlPort(). False where that fails at once;
    /// ended() follows where it fails later.
    bool start(const SipAccount &account);
    /// 0 where there is none.
    qint64 processId() const;
    quint16 controlPort() const { return m_controlPort; }

    /// Removes the files that it has read, which have the password in them.
    void removeFiles();

    /// Lets it take its leave of the server and of a call on its own; it has a few seconds.
    void release();
    void kill();

Q_SIGNALS:
    /// It has ended, or could not be started, without having been released or killed.
    void ended();

private:
    bool writeFiles(const SipAccount &account, const QString &folder);
    void letGo();

    std::unique_ptr<AccountFolder> m_folder; ///< its configuration
    QProcess *m_process = nullptr;           ///< owns itself once it has been let go
    quint16 m_controlPort = 0;
};
