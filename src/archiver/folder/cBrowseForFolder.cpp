#include "cBrowseForFolder.h"

#include "EventGate.h"
#include "Folder.h"
#include "FolderDialog.h"
#include "RuntimeError.h"
#include "ShowDialog.h"

#include <QScopedValueRollback>
#include <QStandardPaths>
#include <algorithm>
#include <iterator>
#include <memory>

namespace {

const QString errorSource = QStringLiteral(".cBrowseForFolder");

struct SpecialFolder
{
    int number; ///< the platform's
    QStandardPaths::StandardLocation location;
};

constexpr SpecialFolder specialFolders[] = {
    {0, QStandardPaths::DesktopLocation},  {5, QStandardPaths::DocumentsLocation},
    {13, QStandardPaths::MusicLocation},   {14, QStandardPaths::MoviesLocation},
    {16, QStandardPaths::DesktopLocation}, {39, QStandardPaths::PicturesLocation},
    {40, QStandardPaths::HomeLocation},
};

void requireFolder(const QString &path)
{
    if (!Folder::canOpen(path))
        throw RuntimeError(ErrorNumber::PathNotFound, {}, errorSource);
}

} // namespace

void cBrowseForFolder::setSpecialFolderLocation(int number)
{
    const auto *found = std::find_if(std::begin(specialFolders), std::end(specialFolders),
                                     [number](const SpecialFolder &each) { return each.number == number; });
    if (found == std::end(specialFolders))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, {}, errorSource);
    m_specialFolder = number;
    RootDir = QStandardPaths::writableLocation(found->location);
}

QString cBrowseForFolder::BrowseForFolder()
{
    if (!RootDir.isEmpty())
        requireFolder(RootDir);
    const auto dialog = std::make_unique<FolderDialog>(*this);
    const QScopedValueRollback open(m_dialog, dialog.get());
    on(m_dialog, &FolderDialog::SelectionChanged, this, &cBrowseForFolder::SelectionChanged);
    on(m_dialog, &FolderDialog::ValidationFailed, this, &cBrowseForFolder::ValidationFailed);
    dialog->selectFirst();
    Q_EMIT Initialized();
    const QString path = showDialog(*dialog) == QDialog::Accepted ? dialog->path() : QString();
    m_displayName = path.section(u'/', -1);
    return path;
}

void cBrowseForFolder::SetFolder(const QString &path)
{
    FolderDialog &open = dialog();
    requireFolder(path);
    open.select(path);
    open.activateWindow();
}

void cBrowseForFolder::SetStatus(const QString &text)
{
    dialog().setStatus(text);
}

FolderDialog &cBrowseForFolder::dialog() const
{
    if (!m_dialog)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           QStringLiteral("Operation invalid unless dialog is displayed."), errorSource);
    return *m_dialog;
}
