#include "CommonDialog.h"

#include "ColorNumber.h"
#include "DialogHook.h"
#include "EventGate.h"
#include "FileFilter.h"
#include "FilePlaces.h"
#include "FontDialog.h"
#include "Paths.h"
#include "PromptOwner.h"
#include "RuntimeError.h"
#include "ShowDialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>
#include <memory>

namespace {

constexpr int white = 0xFFFFFF;

/// A path with a slash at its end names the same folder.
QString folderFor(const QString &initDir)
{
    return initDir.isEmpty() ? QString() : Paths::native(initDir);
}

/// The index of the filter that \a dialog shows, from 1. Where the dialog is Qt's own its list knows; the
/// dialog itself gives the text without the patterns.
int filterIndex(const QFileDialog &dialog)
{
    if (const auto *filters = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo")))
        return filters->currentIndex() + 1;
    return int(dialog.nameFilters().indexOf(dialog.selectedNameFilter())) + 1;
}

/// Asks the hook before it takes what was chosen.
class HookedDialog : public QFileDialog
{
public:
    HookedDialog(QWidget *owner, const QString &title, const QString &folder, DialogHook *hook)
        : QFileDialog(owner, title, folder)
        , m_hook(hook)
    {
        if (!m_hook)
            return;
        // The desktop's own dialogs are down by the time when they ask.
        setOption(DontUseNativeDialog);
        on(this, &QFileDialog::filterSelected, this, [this] { m_hook->TypeChange(filterIndex(*this)); });
        // The dialog's own signal is not emitted for a folder whose name was typed.
        if (auto *files = findChild<QFileSystemModel *>())
            on(files, &QFileSystemModel::rootPathChanged, this,
               [this](const QString &folderNow) { m_hook->FolderChange(folderNow); });
        on(this, &QFileDialog::currentChanged, this,
           [this](const QString &path) { m_hook->FileChange(path); });
    }

protected:
    void done(int result) override
    {
        bool isConfirmed = true;
        if (result == Accepted && m_hook)
            run([&] { isConfirmed = m_hook->ConfirmOK(selectedFiles().value(0)); });
        if (isConfirmed)
            QFileDialog::done(result);
    }

private:
    DialogHook *m_hook;
};

/// Adds the default extension only to a name that does not exist as it was typed: otherwise no file without
/// an extension could be opened.
class OpenDialog : public HookedDialog
{
public:
    OpenDialog(QWidget *owner, const QString &title, const QString &folder, DialogHook *hook,
               const QString &suffix)
        : HookedDialog(owner, title, folder, hook)
        , m_suffix(suffix)
    {}

protected:
    void accept() override
    {
        run([&] { setDefaultSuffix(namesMissingFile() ? m_suffix : QString()); });
        QFileDialog::accept();
    }

private:
    bool namesMissingFile() const
    {
        const auto *edit = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        return edit && !edit->text().startsWith(u'"') && // several names are in quotes
               !QFileInfo::exists(directory().absoluteFilePath(edit->text()));
    }

    QString m_suffix;
};

constexpr QLatin1String readOnlyName("readOnlyBox");

void addReadOnlyBox(QFileDialog &dialog, bool isChecked)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // no desktop's own dialog has such a box
    auto *box = new QCheckBox(QStringLiteral("Open as &read-only"), &dialog);
    box->setObjectName(readOnlyName);
    box->setChecked(isChecked);
    if (auto *grid = qobject_cast<QGridLayout *>(dialog.layout()))
        grid->addWidget(box, grid->rowCount(), 1);
}

/// One path as it is; several ones as their folder and their names.
QString nameOf(const QStringList &paths)
{
    if (paths.size() == 1)
        return paths.first();
    QStringList parts(QFileInfo(paths.value(0)).path());
    for (const QString &path : paths)
        parts << QFileInfo(path).fileName();
    return parts.join(QChar(u'\0'));
}

/// The names' column takes the width that the other columns leave, and the folders beside the list are
/// readable. A desktop's own dialog has neither.
void fitParts(QFileDialog &dialog)
{
    constexpr QSize readable(760, 460); // pixels
    constexpr int sidebar = 160;
    dialog.resize(dialog.size().expandedTo(readable).boundedTo(dialog.screen()->availableSize()));
    if (auto *splitter = dialog.findChild<QSplitter *>(QStringLiteral("splitter")))
        splitter->setSizes({sidebar, readable.width() - sidebar});
    if (const auto *list = dialog.findChild<QTreeView *>(QStringLiteral("treeView"))) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
}

void prepareForBoth(QFileDialog &dialog, const CommonDialog &settings)
{
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the texts have patterns of their own
    dialog.setSidebarUrls(FilePlaces::complete(dialog.sidebarUrls(), Volume::all()));
    fitParts(dialog);
    dialog.setNameFilters(FileFilter::toNameFilters(settings.Filter));
    dialog.selectNameFilter(dialog.nameFilters().value(settings.FilterIndex - 1));
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(settings.Flags & CommonDialog::OverwritePrompt));
    if (!settings.FileName.isEmpty())
        dialog.selectFile(settings.FileName);
}

void prepareToSave(QFileDialog &dialog, const CommonDialog &settings)
{
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    prepareForBoth(dialog, settings);
    dialog.setDefaultSuffix(settings.DefaultExt);
}

void prepareToOpen(QFileDialog &dialog, const CommonDialog &settings)
{
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (settings.Flags & CommonDialog::AllowMultiselect)
        dialog.setFileMode(QFileDialog::ExistingFiles);
    else
        dialog.setFileMode(settings.AllowsMissing ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    prepareForBoth(dialog, settings);
    if (settings.OffersReadOnly)
        addReadOnlyBox(dialog, settings.Flags & CommonDialog::ReadOnly);
}

void takeChoice(const QFileDialog &dialog, CommonDialog &settings)
{
    settings.FileName = nameOf(dialog.selectedFiles());
    settings.FilterIndex = filterIndex(dialog);
    if (const auto *box = dialog.findChild<QCheckBox *>(readOnlyName)) {
        settings.Flags &= ~CommonDialog::ReadOnly;
        settings.Flags |= box->isChecked() ? CommonDialog::ReadOnly : 0;
    }
}

} // namespace

CommonDialog::CommonDialog(QWidget *owner)
    : m_owner(owner)
{
    CustomColors.fill(white);
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
    const QString folder = folderFor(InitDir);
    const std::unique_ptr<QFileDialog> shown(
        kind == Kind::Save ? new HookedDialog(m_owner, DialogTitle, folder, Hook)
                           : new OpenDialog(m_owner, DialogTitle, folder, Hook, DefaultExt));
    kind == Kind::Save ? prepareToSave(*shown, *this) : prepareToOpen(*shown, *this);
    if (Hook)
        Hook->InitDialog(shown->winId());
    const bool accepted = showDialog(*shown) == QDialog::Accepted;
    if (accepted)
        takeChoice(*shown, *this);
    if (Hook)
        Hook->DialogClose();
    if (!accepted && CancelError)
        throw RuntimeError(ErrorNumber::DialogCancelled);
}

void CommonDialog::ShowColor()
{
    for (int i = 0; i < int(CustomColors.size()); ++i)
        QColorDialog::setCustomColor(i, ColorNumber::toColor(CustomColors[std::size_t(i)]));
    const std::unique_ptr<QColorDialog> shown(new QColorDialog(ColorNumber::toColor(Color), m_owner));
    shown->setObjectName(QStringLiteral("ColorDialog"));
    shown->setWindowTitle(DialogTitle);
    const bool accepted = showDialog(*shown) == QDialog::Accepted;
    if (accepted)
        Color = ColorNumber::of(shown->selectedColor());
    for (int i = 0; i < int(CustomColors.size()); ++i)
        CustomColors[std::size_t(i)] = ColorNumber::of(QColorDialog::customColor(i));
    if (!accepted && CancelError)
        throw RuntimeError(ErrorNumber::DialogCancelled);
}

void CommonDialog::ShowFont()
{
    QFont font(FontName.isEmpty() ? QFontInfo(QFont()).family() : FontName);
    if (FontSize > 0)
        font.setPointSizeF(FontSize);
    font.setBold(FontBold);
    font.setItalic(FontItalic);
    font.setStrikeOut(FontStrikethru);
    font.setUnderline(FontUnderline);
    const std::unique_ptr<FontDialog> shown(new FontDialog(font, ColorNumber::toColor(Color), m_owner));
    shown->setWindowTitle(DialogTitle);
    if (showDialog(*shown) == QDialog::Accepted)
        takeFont(shown->currentFont(), shown->color());
    else if (CancelError)
        throw RuntimeError(ErrorNumber::DialogCancelled);
}

void CommonDialog::takeFont(const QFont &font, const QColor &color)
{
    FontName = font.family();
    FontSize = font.pointSizeF();
    FontBold = font.bold();
    FontItalic = font.italic();
    FontStrikethru = font.strikeOut();
    FontUnderline = font.underline();
    Color = ColorNumber::of(color);
}

void CommonDialog::ShowPrinter()
{
    if (!m_printer.show(m_owner ? m_owner : promptOwner(), DialogTitle, Flags, PrintJobName) && CancelError)
        throw RuntimeError(ErrorNumber::DialogCancelled);
}
