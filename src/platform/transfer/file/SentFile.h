#pragma once

#include <QByteArray>

/// A local file that is being sent. The functions throw TransferFailure with the number of the platform's
/// file error.
class SentFile
{
public:
    /// Opens the regular file \a path for reading.
    explicit SentFile(const QByteArray &path);
    ~SentFile();
    SentFile(const SentFile &) = delete;
    SentFile &operator=(const SentFile &) = delete;

    /// The next bytes, \a most of them at the most; none at the end.
    QByteArray read(qsizetype most);

private:
    int m_file;
};
