#pragma once

#include <QByteArrayList>

/// The names that a job is about, as the libraries take them: at most 1,023.
class NameList
{
public:
    static constexpr int most = 1023;

    /// Throws RuntimeError 9 where the list is full.
    void append(const QByteArray &name);

    const QByteArrayList &names() const { return m_names; }

private:
    QByteArrayList m_names;
};
