#pragma once

#include <QString>

/// The numbers that ResponseCode has, and their texts: those of the platform's Internet functions and of its
/// file functions.
namespace TransferError {

inline constexpr int FileNotFound = 2;
inline constexpr int PathNotFound = 3;
inline constexpr int AccessDenied = 5;
inline constexpr int FileExists = 80;
inline constexpr int InvalidParameter = 87; ///< a command or name that cannot be sent
inline constexpr int DiskFull = 112;
inline constexpr int InvalidName = 123; ///< no name of a file in the local folder
inline constexpr int DeviceError = 1117;
inline constexpr int TimedOut = 12002;
inline constexpr int Refused = 12003; ///< has the server's reply for its text
inline constexpr int Internal = 12004;
inline constexpr int InvalidUrl = 12005;
inline constexpr int UnknownScheme = 12006;
inline constexpr int NameNotResolved = 12007;
inline constexpr int WrongUserName = 12013;
inline constexpr int WrongPassword = 12014;
inline constexpr int LogOnFailed = 12015;
inline constexpr int CannotConnect = 12029;
inline constexpr int ConnectionLost = 12030;  ///< after the log-on, also where the server says that it closes
inline constexpr int ConnectionReset = 12031; ///< before it, or that of the data
inline constexpr int CertificateDate = 12037;
inline constexpr int CertificateName = 12038;
inline constexpr int CertificateAuthority = 12045;
inline constexpr int InProgress = 12110;
inline constexpr int SessionAborted = 12111; ///< the server says before the log-on that it closes
inline constexpr int InvalidResponse = 12152;
inline constexpr int SecureChannel = 12157;

QString text(int code);

} // namespace TransferError
