#include "frmImageMain.h"

#include "Ask.h"
#include "CommandLine.h"
#include "Forms.h"
#include "GetFileSize.h"
#include "ImageMenus.h"
#include "LengthUnit.h"
#include "PercentList.h"
#include "PictureBox.h"
#include "PictureClipboard.h"
#include "PictureFile.h"
#include "PicturePrint.h"
#include "Placing.h"
#include "ReportFileError.h"
#include "ShownText.h"
#include "SizeBar.h"
#include "SizeSteps.h"
#include "StartPicture.h"
#include "Toolbar.h"
#include "Twips.h"
#include "frmFileOperations.h"
#include "frmImageAbout.h"
#include "frmScale.h"

#include <QAction>
#include <QFileInfo>
#include <utility>

namespace {

constexpr int barTwips = 300; // twips

const QString openFilter =
    QStringLiteral("Supported Picture Files (*.gif, *.jpg, *.tga, *.bmp, *.dib, *.wmf, *.ico, *.cur)|"
                   "*.gif;*.jpg;*.tga;*.bmp;*.dib;*.wmf;*.ico;*.cur|All files (*.*)|*.*");
const QString saveFilter = QStringLiteral("Bitmaps (*.bmp, *.dib)|*.bmp;*.dib");

} // namespace

void frmImageMain::Form_Load()
{
    constexpr double firstHeight = 4800;
    constexpr double firstWidth = 6105;
    take(LoadedPicture(StartPicture::make()));
    setHeight(firstHeight);
    setWidth(firstWidth);
    m_geometry.Resize();
    try {
        readCommandLine();
        m_geometry.setPlace({0, 0});
    } catch (...) {
        if (RuntimeError::current().number() == ErrorNumber::InvalidPicture)
            Ask(QStringLiteral("Invalid Picture"), MsgBoxStyle::Exclamation, QStringLiteral("Error"));
    }
}

/// Intended: the first and the last character are taken for quotes, whatever they are.
void frmImageMain::readCommandLine()
{
    const QString line = CommandLine::text();
    if (line.isEmpty())
        return;
    dlgCD.FileName = line.mid(1).chopped(line.size() > 1 ? 1 : 0);
    take(PictureFile::read(dlgCD.FileName));
    Image1->setStretch(false);
    m_pictureLoaded = true;
}

void frmImageMain::take(const LoadedPicture &picture)
{
    m_picture = picture;
    Image1->setPicture(picture.shown);
}

// ---- Files

/// Intended: a cancelled dialog leaves m_pictureLoaded true.
void frmImageMain::mnuFileOpen_Click()
{
    reportingFileErrors([&] {
        m_pictureLoaded = true;
        dlgCD.DialogTitle = QStringLiteral("Open");
        dlgCD.CancelError = true;
        dlgCD.Filter = openFilter;
        dlgCD.Flags = 0;
        dlgCD.ShowOpen();
        open(dlgCD.FileName);
    });
}

void frmImageMain::dropped(const QStringList &paths)
{
    reportingFileErrors([&] {
        m_pictureLoaded = true;
        dlgCD.FileName = paths.first();
        open(dlgCD.FileName);
    });
}

void frmImageMain::open(const QString &path)
{
    m_currentFile = path;
    take(PictureFile::read(path));
    Image1->setStretch(false);
    m_geometry.panOff();
    UpdateSizeLabels();
    m_geometry.FitWindowtoImage();
    m_geometry.setPlace({0, 0});
    m_geometry.CenterImage();
    setCaption(ShownText::line(QFileInfo(path).fileName()) + QStringLiteral(" - Quill ImageViewer"));
    if (!Picture1->isHidden())
        Combo1_Click();
}

void frmImageMain::mnuFileSaveAs_Click()
{
    try {
        dlgCD.DialogTitle = QStringLiteral("Save");
        dlgCD.CancelError = true;
        dlgCD.Filter = saveFilter;
        dlgCD.Flags = CommonDialog::OverwritePrompt;
        dlgCD.ShowSave();
        PictureFile::saveBitmap(m_picture.pixels, dlgCD.FileName);
    } catch (...) {
        const RuntimeError error = RuntimeError::current();
        if (error.number() != ErrorNumber::DialogCancelled)
            Ask(QStringLiteral("An error has occurred - Code: %1 Description: ").arg(error.number()) +
                    error.description(),
                MsgBoxStyle::Critical, QStringLiteral("System Error!"));
    }
}

void frmImageMain::mnuFileProperties_Click()
{
    Forms::refer<frmFileOperations>().showModal(this);
}

/// Intended: after a failure the hourglass stays.
void frmImageMain::mnuFilePrint_Click()
{
    if (Image1->Picture().isNull()) {
        Ask(QStringLiteral("No picture loaded"), MsgBoxStyle::Exclamation, QStringLiteral("Error"));
        return;
    }
    reportingFileErrors([&] {
        dlgCD.DialogTitle = QStringLiteral("Print");
        dlgCD.CancelError = true;
        dlgCD.PrintJobName = m_currentFile;
        dlgCD.Flags = CommonDialog::ReturnDevice | CommonDialog::NoSelection | CommonDialog::NoPageNumbers;
        dlgCD.ShowPrinter();
        setCursor(Qt::WaitCursor);
        PicturePrint::print(Image1->Picture(), *dlgCD.hDC(), {logicalDpiX(), logicalDpiY()});
        setCursor(Qt::ArrowCursor);
    });
}

// ---- Clipboard

void frmImageMain::mnuEditCopy_Click()
{
    try {
        PictureClipboard::put(Image1->Picture());
    } catch (...) {
        const RuntimeError error = RuntimeError::current();
        Ask(QStringLiteral("%1 : ").arg(error.number()) + error.description() + u'.',
            MsgBoxStyle::Exclamation, QStringLiteral("Error"));
    }
}

void frmImageMain::mnuEditPaste_Click()
{
    reportingFileErrors([&] {
        m_geometry.panOff();
        take(LoadedPicture(PictureClipboard::get()));
        if (Placing::fillsScreen(m_geometry.size(), m_geometry.around())) {
            m_geometry.maximize();
        } else {
            setWindowState(FormState::Normal);
            Image1->setStretch(false);
            m_geometry.FitWindowtoImage();
            m_geometry.CenterImage();
            UpdateSizeLabels();
        }
        m_pictureLoaded = true;
    });
}

// ---- Bars

void frmImageMain::UpdateSizeLabels()
{
    if (Picture1->isHidden())
        return;
    m_geometry.growWindow(barTwips);
    if (!dlgCD.FileName.isEmpty())
        Picture1->setFileSize(GetFileSize(dlgCD.FileName));
    constexpr LengthUnit pixels{LengthUnit::ofDisplay};
    const Surroundings around = m_geometry.around();
    Picture1->setImageSize(QStringLiteral("Image Size: ") +
                           pixels.text(Image1->Width(), around.twipsPerPixelX) + QStringLiteral(" \u00d7 ") +
                           pixels.text(Image1->Height(), around.twipsPerPixelY) + QStringLiteral(" px"));
}

/// Intended: where the size toolbar is on show alone, the offset is negative; and where both bars have gone,
/// the window stays as high as it is.
void frmImageMain::mnuViewToolbar_Click()
{
    const bool isShown = member<QAction>(QStringLiteral("mnuViewToolbar")).isChecked();
    const bool hasSizeBar = !Picture1->isHidden();
    tbToolbar->setVisible(isShown);
    if (isShown || hasSizeBar)
        m_geometry.growWindow(isShown ? barTwips : -barTwips);
    if (isShown)
        m_geometry.setBarOffset(hasSizeBar ? 2 * barTwips : barTwips);
    else
        m_geometry.setBarOffset(hasSizeBar ? -barTwips : 0);
    m_geometry.CenterImage();
}

/// Intended: where "100" is selected already, no click resets the flag, and the user's next choice in the
/// list does nothing.
void frmImageMain::mnuViewSizeAndInfo_Click()
{
    const bool isShown = Picture1->isHidden();
    Picture1->setVisible(isShown);
    m_skipZoomClick = true;
    Picture1->percentages().setListIndex(SizeSteps::wholeRow);
    const bool hasToolbar = !tbToolbar->isHidden();
    if (isShown) {
        UpdateSizeLabels();
        m_geometry.setBarOffset(hasToolbar ? barTwips : -barTwips);
    } else {
        m_geometry.growWindow(-barTwips);
        m_geometry.setBarOffset(hasToolbar ? barTwips : 0);
    }
    if (m_geometry.isMaximized())
        placeMaximized(isShown);
    m_geometry.CenterImage();
}

void frmImageMain::placeMaximized(bool hasSizeBar)
{
    if (!hasSizeBar) {
        Image1->setTop(0);
        m_geometry.CenterImage();
    } else if (Image1->Top() == 0) {
        Image1->setTop(-barTwips);
    }
}

void frmImageMain::Combo1_Click()
{
    if (std::exchange(m_skipZoomClick, false))
        return;
    reportingFileErrors([&] { m_sizing.takePercent(Picture1->percentages().currentIndex()); });
}

/// The list alone leaves a large picture where it may be out of sight.
void frmImageMain::zoomStep(int direction)
{
    Picture1->percentages().step(direction);
    m_sizing.bringIntoView();
}

void frmImageMain::tbToolbar_ButtonClick(const QString &key)
{
    member<QAction>(ImageMenus::itemOf(key)).trigger();
}

// ---- Sizes

void frmImageMain::showSizeIn(double unit)
{
    const LengthUnit shown{unit};
    const Surroundings around = m_geometry.around();
    Ask(QStringLiteral("Image Width: ") + shown.text(Image1->Width(), around.twipsPerPixelX) +
            QStringLiteral("\nImage Height: ") + shown.text(Image1->Height(), around.twipsPerPixelY),
        MsgBoxStyle::Information, QStringLiteral("Image Attributes"));
}

void frmImageMain::mnuViewSizeInPixels_Click()
{
    showSizeIn(LengthUnit::ofDisplay);
}

void frmImageMain::mnuViewSizeInInches_Click()
{
    showSizeIn(Twips::perInch);
}

void frmImageMain::mnuViewSizeInMM_Click()
{
    showSizeIn(Twips::perInch / 25.4);
}

void frmImageMain::mnuViewSizeInTwips_Click()
{
    showSizeIn(1);
}

/// Intended: text that is no number ends the dialog without a message.
void frmImageMain::mnuSizeScale_Click()
{
    reportingFileErrors([&] {
        auto &scale = Forms::refer<frmScale>();
        scale.showModal(this);
        if (scale.Failure() && scale.Failure()->number() != ErrorNumber::TypeMismatch)
            throw *scale.Failure();
    });
}

// ---- Others

void frmImageMain::Image1_Click()
{
    if (!m_geometry.PanMode() && !m_pictureLoaded)
        mnuFileOpen_Click();
}

void frmImageMain::About_Click()
{
    Forms::refer<frmImageAbout>().showModal(this);
}
