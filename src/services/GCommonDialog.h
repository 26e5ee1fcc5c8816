#pragma once

#include "OpenFileName.h"
#include "SaveFileName.h"

#include <array>

class CommonDialog;

/// The desktop's dialogs for windows without a dialog control. Font, print and page setup are not among them.
/// It shows nothing of its own: a cancelled dialog gives false, a failed one also sets ExtendedError.
class GCommonDialog
{
public:
    GCommonDialog();

    bool VBGetOpenFileName(OpenFileName &arguments);
    bool VBGetSaveFileName(SaveFileName &arguments);
    /// The name at the end of \a path, up to a NUL; empty where there is none.
    static QString VBGetFileTitle(const QString &path);
    /// Colours are 0xBBGGRR. \a color is the one shown first, and then the chosen one.
    bool VBChooseColor(int &color, QWidget *owner = nullptr, const QString &title = {});

    /// The user's own colour \a index, 0 to 15; -1 for any other index, which cannot be set.
    int CustomColor(int index) const;
    void setCustomColor(int index, int color);

    /// 1 after a dialog that was taken, otherwise 0.
    int APIReturn() const { return m_apiReturn; }
    /// The error's number after a failed dialog, otherwise 0.
    int ExtendedError() const { return m_extendedError; }

private:
    using Showing = void (CommonDialog::*)();
    bool show(CommonDialog &dialog, Showing showing);
    template<class Arguments>
    bool showFileDialog(CommonDialog &dialog, Showing showing, Arguments &arguments, int flags);

    int m_apiReturn = 0;
    int m_extendedError = 0;
    std::array<int, 16> m_customColors;
};
