#pragma once

#include <QHash>
#include <QStringList>
#include <functional>

class InternetTransfer;

/// A fake of the transfer session that a window of the test has made: it records what is asked of it, and
/// answers as the test says.
///
/// A command reports the states 5 to 8 from the event loop, then 12 with its response, or 11.
class StandInSession
{
public:
    /// Of the window that was made last.
    static StandInSession &current();

    StandInSession();
    ~StandInSession();
    StandInSession(const StandInSession &) = delete;
    StandInSession &operator=(const StandInSession &) = delete;

    /// Since the last session was made, also when it is gone: "Protocol 2", "RemoteHost x", "UserName x",
    /// "Password x", "RequestTimeout 40", "Cancel", or "Execute TEXT".
    static inline QStringList calls;
    /// The texts alone that were executed.
    static QStringList commands();

    /// From now on commands that begin with \a verb are answered so.
    void respond(const QString &verb, const QString &response);
    void refuse(const QString &verb, int code, const QString &info);
    /// They wait behind state 8 for release(), or for a Cancel.
    void hold(const QString &verb);
    void release();
    bool isHolding() const { return bool(m_held); }
    /// \a step runs once, in the middle of the next command that begins with \a verb.
    void during(const QString &verb, std::function<void()> step);
    /// Execute throws \a number for them; 0 for no more.
    void throwFor(const QString &verb, int number);

    /// Reports \a state without a command.
    void report(int state);

private:
    friend class InternetTransfer;

    struct Answer
    {
        QString response;
        int code = 0;
        QString info;
        bool isHeld = false;
        int thrown = 0;
        std::function<void()> step;
    };

    Answer &answer(const QString &verb) { return m_answers[verb]; }
    void execute(const QString &command);
    void run(int command, const QString &verb);
    void finish(int command, const Answer &answer);
    void cancel();

    InternetTransfer *m_transfer = nullptr;
    QHash<QString, Answer> m_answers;
    std::function<void()> m_held;
    QString m_response;
    QString m_info;
    int m_code = 0;
    int m_command = 0; // counts
    bool m_executing = false;
};
