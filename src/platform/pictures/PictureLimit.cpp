#include "PictureLimit.h"

#include <QImageReader>
#include <limits>
#include <unistd.h>

namespace {

constexpr qint64 mebibyte = 1024 * 1024;
constexpr qint64 least = 256 * mebibyte; // Qt's own limit, for computers that do not tell their memory

} // namespace

PictureLimit::PictureLimit(qint64 bytes)
    : m_before(QImageReader::allocationLimit())
{
    const qint64 rounded = (bytes + mebibyte - 1) / mebibyte;
    // Zero would be no limit at all.
    QImageReader::setAllocationLimit(
        int(qBound(qint64(1), rounded, qint64(std::numeric_limits<int>::max()))));
}

PictureLimit::~PictureLimit()
{
    QImageReader::setAllocationLimit(m_before);
}

qint64 PictureLimit::ofThisComputer()
{
    const qint64 pages = ::sysconf(_SC_PHYS_PAGES);
    const qint64 page = ::sysconf(_SC_PAGESIZE);
    return qMax(least, pages / 4 * page);
}

RuntimeError PictureLimit::exceeded()
{
    return RuntimeError(ErrorNumber::InvalidPicture,
                        QStringLiteral("Invalid picture: it is too large for this computer's memory"));
}
