#pragma once

#include <QString>
#include <exception>

/// The platform's error numbers, as far as the suite names them.
namespace ErrorNumber {
inline constexpr int InvalidProcedureCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int ModuleNotLoaded = 48;
inline constexpr int BadFileName = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int DeviceIoError = 57;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEnd = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccessError = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int ObjectNotSet = 91;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int InvalidFileFormat = 321;
inline constexpr int InvalidPropertyValue = 380;
inline constexpr int InvalidPropertyIndex = 381;
inline constexpr int ObjectRequired = 424;
inline constexpr int NoSuchMember = 438;
inline constexpr int InvalidPicture = 481;
inline constexpr int PrinterError = 482;
inline constexpr int DialogCancelled = 32755;
inline constexpr int IndexOutOfBounds = 35600;
inline constexpr int ElementNotFound = 35601;
inline constexpr int KeyNotUnique = 35602;
} // namespace ErrorNumber

/// A failure that a handler may catch. Uncaught, it ends the process with the default error box.
class RuntimeError : public std::exception
{
public:
    /// An empty \a description means the platform's own text for \a number.
    explicit RuntimeError(int number, const QString &description = {}, const QString &source = {});

    int number() const { return m_number; }
    QString description() const { return m_description; }
    /// The path, member or value that the failure is about; may be empty.
    QString source() const { return m_source; }
    const char *what() const noexcept override { return m_what.constData(); }

    /// The exception that is being handled; 7 where memory was short, 5 for another that is no RuntimeError.
    static RuntimeError current();

    /// The error for the C library's \a code (an errno value) met while touching \a path.
    static RuntimeError fromErrno(int code, const QString &path);

private:
    int m_number;
    QString m_description;
    QString m_source;
    QByteArray m_what;
};
