#pragma once

#include <QList>
#include <QString>

/// Stands in for the default error box and the end of the process, so that a fatal error is tested in-process: it is
/// recorded, and the event loop goes on. One that was not expected fails the test, as does one that did not come.
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

    /// The next error has this number and, unless that is empty, this \a description.
    void expect(int number, const QString &description = {});

    const QList<Error> &seen() const { return m_seen; }
    /// How often the process would have ended.
    int ends() const { return m_ends; }

    /// Every fatal error fails the running test; so it is wherever no FatalErrors stands.
    static void refuseAll();

private:
    void receive(const Error &error);

    QList<Error> m_expected;
    QList<Error> m_seen;
    int m_ends = 0;
};
