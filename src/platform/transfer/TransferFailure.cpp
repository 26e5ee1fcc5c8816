#include "TransferFailure.h"

#include "FileNames.h"
#include "FtpReply.h"
#include "TransferError.h"

#include <cerrno>

namespace {

int codeOf(int error)
{
    switch (error) {
    case ENOENT:
        return TransferError::FileNotFound;
    case ENOTDIR:
        return TransferError::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return TransferError::AccessDenied;
    case EEXIST:
        return TransferError::FileExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return TransferError::DiskFull;
    case ENAMETOOLONG:
    case EINVAL:
        return TransferError::InvalidName;
    default:
        return TransferError::DeviceError;
    }
}

} // namespace

TransferFailure::TransferFailure(int number)
    : code(number)
    , info(TransferError::text(number))
{}

TransferFailure TransferFailure::ofReply(const FtpReply &reply)
{
    TransferFailure failure(TransferError::Refused);
    failure.info = FileNames::fromBytes(reply.text);
    return failure;
}

TransferFailure TransferFailure::ofErrno(int error)
{
    return TransferFailure(codeOf(error));
}
