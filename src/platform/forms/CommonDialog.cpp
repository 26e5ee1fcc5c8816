#include "CommonDialog.h"

#include "FileFilter.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {

/// A path with a slash at its end names the same folder.
QString folderFor(const QString &initDir)
{
    return initDir.isEmpty() ? QString() : Paths::native(initDir);
}

} // namespace

CommonDialog::CommonDialog(QWidget *owner)
    : m_owner(owner)
{
}

void CommonDialog::ShowOpen()
{
    showFileDialog(Kind::Open);
}

void CommonDialog::ShowSave()
{
    showFileDialog(Kind::Save);
}

void CommonDialog::showFileDialog(Kind kind)
{
    QFileDialog dialog(m_owner, DialogTitle, folderFor(InitDir));
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setAcceptMode(kind == Kind::Open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(kind == Kind::Open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilters(FileFilter::toNameFilters(Filter));
    dialog.setDefaultSuffix(DefaultExt);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(Flags & OverwritePrompt));
    if (!FileName.isEmpty())
        dialog.selectFile(FileName);
    if (dialog.exec() == QDialog::Accepted)
        FileName = dialog.selectedFiles().value(0);
    else if (CancelError)
        throw RuntimeError(ErrorNumber::DialogCancelled);
}
