#include "RuntimeError.h"

#include <cerrno>

namespace {

QString platformText(int number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::DivisionByZero:
        return QStringLiteral("Division by zero");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::ModuleNotLoaded:
        return QStringLiteral("Error in loading DLL");
    case ErrorNumber::BadFileName:
        return QStringLiteral("Bad file name or number");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::DeviceIoError:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::InputPastEnd:
        return QStringLiteral("Input past end of file");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::PathFileAccessError:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    case ErrorNumber::ObjectNotSet:
        return QStringLiteral("Object variable or With block variable not set");
    case ErrorNumber::InvalidUseOfNull:
        return QStringLiteral("Invalid use of Null");
    case ErrorNumber::InvalidFileFormat:
        return QStringLiteral("Invalid file format");
    case ErrorNumber::InvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case ErrorNumber::InvalidPropertyIndex:
        return QStringLiteral("Invalid property array index");
    case ErrorNumber::ObjectRequired:
        return QStringLiteral("Object required");
    case ErrorNumber::NoSuchMember:
        return QStringLiteral("Object doesn't support this property or method");
    case ErrorNumber::InvalidPicture:
        return QStringLiteral("Invalid picture");
    case ErrorNumber::PrinterError:
        return QStringLiteral("Printer error");
    case ErrorNumber::DialogCancelled:
        return QStringLiteral("Cancel was selected.");
    case ErrorNumber::IndexOutOfBounds:
        return QStringLiteral("Index out of bounds");
    case ErrorNumber::ElementNotFound:
        return QStringLiteral("Element not found");
    case ErrorNumber::KeyNotUnique:
        return QStringLiteral("Key is not unique in collection");
    default:
        return QStringLiteral("Application-defined or object-defined error");
    }
}

int numberForErrno(int code)
{
    switch (code) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorNumber::DiskFull;
    case ENOMEM:
        return ErrorNumber::OutOfMemory;
    case EIO:
        return ErrorNumber::DeviceIoError;
    default:
        return ErrorNumber::PathFileAccessError;
    }
}

} // namespace

RuntimeError::RuntimeError(int number, const QString &description, const QString &source)
    : m_number(number)
    , m_description(description.isEmpty() ? platformText(number) : description)
    , m_source(source)
    , m_what(QStringLiteral("%1: %2").arg(number).arg(m_description).toUtf8())
{}

RuntimeError RuntimeError::fromErrno(int code, const QString &path)
{
    return RuntimeError(numberForErrno(code), {}, path);
}

RuntimeError RuntimeError::current()
{
    try {
        throw;
    } catch (const RuntimeError &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::exception &error) {
        return RuntimeError(ErrorNumber::InvalidProcedureCall, QString::fromUtf8(error.what()));
    } catch (...) {
        return RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
}
