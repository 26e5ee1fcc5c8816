#pragma once

#include "ChildForm.h"
#include "CommonDialog.h"
#include "ImageGeometry.h"
#include "ImageSizing.h"
#include "LoadedPicture.h"

class ImageView;
class PictureBox;
class SizeBar;
class Toolbar;

/// The image window: one picture and the rectangle on which it is drawn. Whatever the rectangle's size, the
/// picture that is saved, copied and printed is the one that was loaded. Sizes are ImageSizing's, panning is
/// ImagePanning's.
class frmImageMain : public ChildForm
{
    Q_OBJECT

public:
    frmImageMain();

    QList<QMenu *> menus() const override { return m_menus; }

    ImageGeometry &Geometry() { return m_geometry; }
    /// Its file name is that of the dialog shown last, or of the command line.
    CommonDialog &FileDialog() { return dlgCD; }
    /// Fills the size toolbar while it is on show. Each call makes the window 300 twips higher.
    void UpdateSizeLabels();

protected:
    void Form_Load() override;
    void Form_Resize() override { m_geometry.Resize(); }

private:
    void mnuFileOpen_Click();
    void mnuFileSaveAs_Click();
    void mnuFileProperties_Click();
    void mnuFilePrint_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuViewToolbar_Click();
    void mnuViewSizeAndInfo_Click();
    void mnuViewSizeInPixels_Click();
    void mnuViewSizeInInches_Click();
    void mnuViewSizeInMM_Click();
    void mnuViewSizeInTwips_Click();
    void mnuSizeScale_Click();
    void About_Click();
    void tbToolbar_ButtonClick(const QString &key);
    void Image1_Click();
    void Combo1_Click();
    void zoomStep(int direction);
    void dropped(const QStringList &paths);

    void readCommandLine();
    void open(const QString &path);
    void take(const LoadedPicture &picture);
    void showSizeIn(double unit);
    void placeMaximized(bool hasSizeBar);

    void layOut();
    void bind();
    void bindKeys();

    QList<QMenu *> m_menus;
    Toolbar *tbToolbar;
    SizeBar *Picture1;
    ImageView *m_view;
    PictureBox *Image1;
    CommonDialog dlgCD;
    ImageGeometry m_geometry;
    ImageSizing m_sizing;
    LoadedPicture m_picture;
    QString m_currentFile; ///< the last one that was opened
    bool m_pictureLoaded = false;
    bool m_skipZoomClick = false; ///< the next click of the percentages does nothing
};
