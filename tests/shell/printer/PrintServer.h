#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A print server of the test's own with two printers, "Study", the usual one, and "Attic", which throw away
/// what is printed; the server keeps each job as it came. It is the one that this process prints to.
class PrintServer
{
public:
    /// Why no server can be started here; null where one can.
    static const char *missing();

    PrintServer();
    ~PrintServer();
    PrintServer(const PrintServer &) = delete;
    PrintServer &operator=(const PrintServer &) = delete;

    void stop();

    int jobs() const;
    /// The file that came with job \a number, from 1.
    QString document(int number) const;
    /// Its options as the server keeps them: names and values, in the protocol's bytes.
    QByteArray ticket(int number) const;

private:
    QString file(const QString &name) const { return m_folder.filePath(name); }
    void writeFiles() const;

    QTemporaryDir m_folder;
    QProcess m_server;
};
