#pragma once

#include <QtGlobal>

/// The codes by which a line service reports a failure. All are negative; 0 is success.
namespace LineError {

inline constexpr qint32 code(quint32 value)
{
    return static_cast<qint32>(value);
}

inline constexpr qint32 None = 0;
inline constexpr qint32 BadDevice = code(0x80000002);
inline constexpr qint32 CallUnavailable = code(0x80000005);
inline constexpr qint32 IncompatibleVersion = code(0x8000000C);
inline constexpr qint32 InUse = code(0x8000000F);
inline constexpr qint32 InvalidAddress = code(0x80000010);
inline constexpr qint32 InvalidApplication = code(0x80000014);
inline constexpr qint32 InvalidCall = code(0x80000018);
inline constexpr qint32 InvalidCallState = code(0x8000001C);
inline constexpr qint32 InvalidDigits = code(0x80000028);
inline constexpr qint32 InvalidLine = code(0x8000002B);
inline constexpr qint32 InvalidMediaMode = code(0x8000002F);
inline constexpr qint32 InvalidParameter = code(0x80000032);
inline constexpr qint32 InvalidRate = code(0x80000037);
inline constexpr qint32 NoDevice = code(0x80000042);
inline constexpr qint32 NoDriver = code(0x80000043);
inline constexpr qint32 NotRegistered = code(0x80000047);
inline constexpr qint32 OperationFailed = code(0x80000048);
inline constexpr qint32 OperationUnavailable = code(0x80000049);
inline constexpr qint32 ResourceUnavailable = code(0x8000004B);
inline constexpr qint32 StructureTooSmall = code(0x8000004D);

} // namespace LineError
