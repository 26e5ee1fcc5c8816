#include "GCommonDialog.h"

#include "CommonDialog.h"
#include "NulTerminated.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <utility>

namespace {

constexpr int white = 0xFFFFFF;
constexpr int fileMustExist = 4096;
constexpr int hookFlags = 32 | 64; // the class's own business

/// The name in what a dialog gave, which is native; several chosen files have no one name.
QString titleOf(const QString &path)
{
    return path.contains(QChar(u'\0')) ? QString() : path.section(u'/', -1);
}

/// The entry of \a filter, separated by bars, at \a index from 1: its text and its patterns.
QString filterEntry(const QString &filter, int index)
{
    return filter.section(u'|', 2 * index - 2, 2 * index - 1);
}

} // namespace

GCommonDialog::GCommonDialog()
{
    m_customColors.fill(white);
}

bool GCommonDialog::show(CommonDialog &dialog, Showing showing)
{
    m_apiReturn = 0;
    m_extendedError = 0;
    dialog.CancelError = true;
    dialog.CustomColors = m_customColors;
    try {
        (dialog.*showing)();
        m_apiReturn = 1;
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::DialogCancelled)
            m_extendedError = error.number();
    }
    m_customColors = dialog.CustomColors;
    return m_apiReturn == 1;
}

template<class Arguments>
bool GCommonDialog::showFileDialog(CommonDialog &dialog, Showing showing, Arguments &arguments, int flags)
{
    dialog.DialogTitle = arguments.DlgTitle;
    dialog.FileName = upToNul(arguments.FileName);
    dialog.InitDir = arguments.InitDir;
    dialog.DefaultExt = arguments.DefaultExt;
    dialog.Filter = QString(arguments.Filter).replace(u':', u'|');
    dialog.FilterIndex = arguments.FilterIndex;
    dialog.Flags = (arguments.Flags & ~hookFlags) | flags;
    dialog.Hook = std::exchange(arguments.Hook, nullptr);
    if (!show(dialog, showing))
        return false;
    arguments.FileName = dialog.FileName;
    arguments.FileTitle = titleOf(dialog.FileName);
    arguments.Filter = filterEntry(dialog.Filter, dialog.FilterIndex);
    arguments.FilterIndex = dialog.FilterIndex;
    arguments.Flags = dialog.Flags;
    return true;
}

bool GCommonDialog::VBGetOpenFileName(OpenFileName &arguments)
{
    const int flags = (arguments.FileMustExist ? fileMustExist : 0) |
                      (arguments.MultiSelect ? CommonDialog::AllowMultiselect : 0) |
                      (arguments.ReadOnly ? CommonDialog::ReadOnly : 0) |
                      (arguments.HideReadOnly ? CommonDialog::HideReadOnly : 0);
    const int word = arguments.Flags | flags;
    CommonDialog dialog(arguments.Owner);
    dialog.AllowsMissing = !(word & fileMustExist);
    dialog.OffersReadOnly = !(word & CommonDialog::HideReadOnly);
    if (!showFileDialog(dialog, &CommonDialog::ShowOpen, arguments, flags))
        return false;
    arguments.ReadOnly = arguments.Flags & CommonDialog::ReadOnly;
    return true;
}

bool GCommonDialog::VBGetSaveFileName(SaveFileName &arguments)
{
    CommonDialog dialog(arguments.Owner);
    return showFileDialog(dialog, &CommonDialog::ShowSave, arguments,
                          arguments.OverwritePrompt ? CommonDialog::OverwritePrompt : 0);
}

QString GCommonDialog::VBGetFileTitle(const QString &path)
{
    return Paths::native(upToNul(path)).section(u'/', -1);
}

bool GCommonDialog::VBChooseColor(int &color, QWidget *owner, const QString &title)
{
    CommonDialog dialog(owner);
    dialog.DialogTitle = title;
    dialog.Color = color;
    if (!show(dialog, &CommonDialog::ShowColor))
        return false;
    color = dialog.Color;
    return true;
}

int GCommonDialog::CustomColor(int index) const
{
    const bool isThere = index >= 0 && index < int(m_customColors.size());
    return isThere ? m_customColors[std::size_t(index)] : -1;
}

void GCommonDialog::setCustomColor(int index, int color)
{
    if (index >= 0 && index < int(m_customColors.size()))
        m_customColors[std::size_t(index)] = color;
}
