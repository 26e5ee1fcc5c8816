#include "TransferError.h"

QString TransferError::text(int code)
{
    switch (code) {
    case FileNotFound:
        return QStringLiteral("The system cannot find the file specified.");
    case PathNotFound:
        return QStringLiteral("The system cannot find the path specified.");
    case AccessDenied:
        return QStringLiteral("Access is denied.");
    case FileExists:
        return QStringLiteral("The file exists.");
    case InvalidParameter:
        return QStringLiteral("The parameter is incorrect.");
    case DiskFull:
        return QStringLiteral("There is not enough space on the disk.");
    case InvalidName:
        return QStringLiteral("The filename, directory name, or volume label syntax is incorrect.");
    case DeviceError:
        return QStringLiteral("The request could not be performed because of an I/O device error.");
    case TimedOut:
        return QStringLiteral("The request has timed out.");
    case Refused:
        return QStringLiteral("An extended error was returned from the server.");
    case InvalidUrl:
        return QStringLiteral("The URL is invalid.");
    case UnknownScheme:
        return QStringLiteral("The URL scheme could not be recognized, or is not supported.");
    case NameNotResolved:
        return QStringLiteral("The server name could not be resolved.");
    case WrongUserName:
        return QStringLiteral(
            "The request to connect to and log on to an FTP server could not be completed because "
            "the supplied user name is incorrect.");
    case WrongPassword:
        return QStringLiteral(
            "The request to connect to and log on to an FTP server could not be completed because "
            "the supplied password is incorrect.");
    case LogOnFailed:
        return QStringLiteral("The request to connect to and log on to an FTP server failed.");
    case CannotConnect:
        return QStringLiteral("The attempt to connect to the server failed.");
    case ConnectionLost:
        return QStringLiteral("The connection with the server has been terminated.");
    case ConnectionReset:
        return QStringLiteral("The connection with the server has been reset.");
    case CertificateDate:
        return QStringLiteral("The certificate of the server is expired or not yet valid.");
    case CertificateName:
        return QStringLiteral("The host name in the certificate is invalid or does not match.");
    case CertificateAuthority:
        return QStringLiteral("The function is unfamiliar with the certificate authority that generated the "
                              "server's certificate.");
    case InProgress:
        return QStringLiteral("The requested operation cannot be made on the FTP session handle because an "
                              "operation is already in progress.");
    case SessionAborted:
        return QStringLiteral("The FTP operation was not completed because the session was aborted.");
    case InvalidResponse:
        return QStringLiteral("The server returned an invalid or unrecognized response.");
    case SecureChannel:
        return QStringLiteral("A secure channel to the server could not be established.");
    default:
        return QStringLiteral("An internal error has occurred.");
    }
}
