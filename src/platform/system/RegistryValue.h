#pragma once

#include <QByteArray>
#include <QString>
#include <variant>

/// The platform's value types.
enum class RegistryType : int {
    String = 1,
    ExpandableString = 2,
    Binary = 3,
    Number = 4,
    BigEndianNumber = 5,
    Link = 6,
    MultiString = 7,
};

/// Data and their type. Strings hold a text, the two numbers their four bytes as a little-endian number, so
/// that a big-endian one is still to be swapped, and all other types bytes.
struct RegistryValue
{
    RegistryType type = RegistryType::String;
    std::variant<QString, quint32, QByteArray> data;

    bool operator==(const RegistryValue &) const = default;
};
