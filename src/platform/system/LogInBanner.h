#pragma once

#include <QString>

/// The notice that a computer shows before the log-in: on consoles, and on the desktop's log-in screen where
/// that is GDM. Each place is a file of our own, which only root may write.
///
/// Nothing here fails aloud: where the rights or the program are missing, that place stays as it is.
class LogInBanner
{
public:
    /// \a folder is that of the system's configuration, for tests another one.
    explicit LogInBanner(const QString &folder = QStringLiteral("/etc"));

    /// Shows \a title and \a text from the next log-in on.
    void show(const QString &title, const QString &text) const noexcept;
    void remove() const noexcept;

private:
    void write(const QString &name, const QByteArray &content) const;
    bool hasDesktopLogIn() const;
    void showOnDesktop(const QString &notice) const;

    QString m_folder;
};
