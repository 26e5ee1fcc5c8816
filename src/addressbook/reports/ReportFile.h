#pragma once

#include <QString>

/// A report file in the program's folder that is being written. It is on the disk, whole, when it has been
/// closed.
class ReportFile
{
public:
    /// Begins the file \a name anew; what has been printed and not been closed is dropped.
    void open(const QString &name);
    void print(const QString &text) { m_text += text; }
    /// Writes the file, Windows-1252; characters outside that page are written as "\uN?". Throws RuntimeError
    /// as Files::write does; the old file is then unchanged, and what was printed is dropped.
    void close();
    void drop() { m_text.clear(); }

    /// Its native path.
    QString path() const;

private:
    QString m_name;
    QString m_text;
};
