#pragma once

/// How a change of the registry ended, by the platform's codes.
enum class RegistryResult : int {
    Ok = 0,
    Absent = 2,        ///< the key, the value or the whole root is not there
    NoRights = 5,      ///< also: a key that cannot go, since it has subkeys or is a root
    WriteFault = 29,   ///< a full disk, or another failure to write
    InvalidPath = 161, ///< a key name too long, or keys too deep
    Unreadable = 1009, ///< the store is damaged; it is left as it is
};
