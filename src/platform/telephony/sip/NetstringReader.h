#pragma once

#include <QByteArray>
#include <QList>

/// Cuts a stream into netstrings, each of which is a length in digits, ":", as many bytes, and ",".
class NetstringReader
{
public:
    static constexpr int longest = 65536; ///< bytes

    /// The contents of the netstrings that are complete with \a bytes.
    QList<QByteArray> add(const QByteArray &bytes);

    /// The stream has something else, or a netstring that is too long. Nothing more is read then.
    bool isBroken() const { return m_isBroken; }

private:
    bool takeNext(QList<QByteArray> &contents);

    QByteArray m_rest;
    bool m_isBroken = false;
};
