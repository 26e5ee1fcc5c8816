#pragma once

#include <QList>
#include <QString>

/// Replaces the default error box and the end of the process, so that both are tested in-process: they
/// are recorded, and the event loop continues. One that was not expected fails the test, as does one that did
/// not come.
class FatalErrors
{
public:
    struct Error
    {
        int number;
        QString description;
    };

    FatalErrors();
    ~FatalErrors();
    FatalErrors(const FatalErrors &) = delete;
    FatalErrors &operator=(const FatalErrors &) = delete;

    /// The next error has this number and, unless that is empty, this \a description. The end that follows an
    /// error belongs to it.
    void expect(int number, const QString &description = {});
    /// The process ends without an uncaught error.
    void expectEnd(int code);

    const QList<Error> &seen() const { return m_seen; }
    /// The codes that the process would have ended with, errors included.
    const QList<int> &ends() const { return m_ends; }

    /// Every fatal error and every end fails the running test, as they do without a FatalErrors.
    static void refuseAll();

private:
    void receiveError(const Error &error);
    void receiveEnd(int code);

    QList<Error> m_expected;
    QList<int> m_expectedEnds;
    QList<Error> m_seen;
    QList<int> m_ends;
};
