#include "cZip.h"

#include "FileNames.h"
#include "RuntimeError.h"
#include "mZip.h"

#include <QScopedValueRollback>

namespace {

constexpr int patternsBelow = 2;

enum MessageLevels { AllMessages, Quiet, Normal };

} // namespace

cZip::cZip(QObject *parent)
    : QObject(parent)
{
    setStoreDirectories(false);
    setStoreFolderNames(false);
    setRecurseSubDirs(false);
}

QString cZip::BasePath() const
{
    return FileNames::fromBytes(m_options.szRootDir);
}

void cZip::setBasePath(const QString &path)
{
    m_options.szRootDir = FileNames::toBytes(path);
}

bool cZip::AddComment()
{
    m_options.fEncrypt = m_options.fComment;
    return false;
}

void cZip::setRecurseSubDirs(bool value)
{
    m_options.fRecurse = value ? patternsBelow : 0;
}

int cZip::MessageLevel() const
{
    return m_options.fVerbose ? AllMessages : m_options.fQuiet > 0 ? Quiet : Normal;
}

void cZip::setMessageLevel(int level)
{
    if (level < AllMessages || level > Normal)
        return;
    m_options.fVerbose = level == AllMessages;
    m_options.fQuiet = level == Quiet;
}

int cZip::AddFileSpec(const QString &spec)
{
    m_fileSpecs.append(spec);
    return 0;
}

QString cZip::FileSpec(int index) const
{
    if (index < 1 || index > m_fileSpecs.size())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return m_fileSpecs[index - 1];
}

void cZip::zip()
{
    m_result = 0;
    m_result = run();
}

void cZip::Delete()
{
    const QScopedValueRollback deleting(m_options.fDeleteEntries, 1);
    run();
}

int cZip::run()
{
    return mZip::VBZip(*this, m_zipFile, m_options, m_fileSpecs);
}
