#pragma once

#include <QByteArrayView>
#include <optional>

/// The extra fields of an entry. Whatever their lengths say, nothing is read outside of \a bytes.
class ExtraFields
{
public:
    enum Id : quint16 {
        Zip64 = 0x0001,
        WindowsTimes = 0x000a,
        UnixTimes = 0x5455,
        UnicodePath = 0x7075,
        Aes = 0x9901,
    };

    explicit ExtraFields(QByteArrayView bytes)
        : m_bytes(bytes)
    {}

    /// The data of the first field \a id; empty without one.
    QByteArrayView find(Id id) const;

    /// Seconds since 1970.
    std::optional<qint64> modified() const;

private:
    std::optional<qint64> windowsModified() const;

    QByteArrayView m_bytes;
};
