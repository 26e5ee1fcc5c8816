#include "CommonDialog.h"

#include "FileFilter.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>

namespace {

/// A path with a slash at its end names the same folder.
QString folderFor(const QString &initDir)
{
    return initDir.isEmpty() ? QString() : Paths::native(initDir);
}

/// Adds the default extension only to a name that does not exist as it was typed: otherwise no file without
/// an extension could be opened.
class OpenDialog : public QFileDialog
{
public:
    OpenDialog(QWidget *owner, const QString &title, const QString &folder, const QString &suffix)
        : QFileDialog(owner, title, folder)
        , m_suffix(suffix)
    {}

protected:
    void accept() override
    {
        const auto *edit = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        const bool isMissing = edit && !QFileInfo::exists(directory().absoluteFilePath(edit->text()));
        setDefaultSuffix(isMissing ? m_suffix : QString());
        QFileDialog::accept();
    }

private:
    QString m_suffix;
};

} // namespace

CommonDialog::CommonDialog(QWidget *owner)
    : m_owner(owner)
{}

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
    const bool saves = kind == Kind::Save;
    const QString folder = folderFor(InitDir);
    const QPointer<QFileDialog> dialog = saves ? new QFileDialog(m_owner, DialogTitle, folder)
                                               : new OpenDialog(m_owner, DialogTitle, folder, DefaultExt);
    dialog->setObjectName(QStringLiteral("FileDialog"));
    dialog->setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setNameFilters(FileFilter::toNameFilters(Filter));
    if (saves)
        dialog->setDefaultSuffix(DefaultExt);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !(Flags & OverwritePrompt));
    if (!FileName.isEmpty())
        dialog->selectFile(FileName);

    const bool cancelError = CancelError; // the owner, and this with it, may go while the dialog is up
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (accepted)
        FileName = dialog->selectedFiles().value(0);
    delete dialog;
    if (!accepted && cancelError)
        throw RuntimeError(ErrorNumber::DialogCancelled);
}
