#include "EventGate.h"
#include "FileDrop.h"
#include "ImageMenus.h"
#include "ImagePanning.h"
#include "ImageView.h"
#include "Named.h"
#include "PercentList.h"
#include "PictureBox.h"
#include "SizeBar.h"
#include "StandardToolMenu.h"
#include "ThemeIcon.h"
#include "Toolbar.h"
#include "Twips.h"
#include "WindowCommands.h"
#include "frmImageMain.h"

#include <QAction>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr int iconSize = 16; // pixels

} // namespace

frmImageMain::frmImageMain()
    : ChildForm(QStringLiteral("frmImageMain"))
    , m_menus(StandardToolMenu::build(ImageMenus::menus(), *this))
    , tbToolbar(named("tbToolbar", new Toolbar))
    , Picture1(named("Picture1", new SizeBar))
    , m_view(new ImageView)
    , Image1(&m_view->picture())
    , dlgCD(this)
    , m_geometry(*this, *Image1, member<QAction>(QStringLiteral("mnuViewPan")),
                 member<QAction>(QStringLiteral("mnuSizeFittoWindow")))
    , m_sizing(m_geometry, [this] { UpdateSizeLabels(); })
{
    setCaption(QStringLiteral("Quill-ImageViewer"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("image-x-generic")));
    for (const char *item : {"mnuViewSizeAndInfo", "mnuViewPan", "mnuSizeFittoWindow"})
        member<QAction>(QString::fromLatin1(item)).setCheckable(true);
    layOut();
    bind();
    bindKeys();
}

void frmImageMain::layOut()
{
    constexpr double barHeight = 300; // twips, which the window's height allows for
    tbToolbar->setIconSize({iconSize, iconSize});
    tbToolbar->setFixedHeight(Twips::toPixels(barHeight, logicalDpiY()));
    tbToolbar->setButtons(ImageMenus::buttons());
    Picture1->hide();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(tbToolbar);
    column->addWidget(Picture1);
    column->addWidget(m_view, 1);
    setFocusProxy(m_view);
}

void frmImageMain::bind()
{
    WindowCommands::bind(*this, {
                                    {"mnuFileOpen", &frmImageMain::mnuFileOpen_Click},
                                    {"mnuFileSaveAs", &frmImageMain::mnuFileSaveAs_Click},
                                    {"mnuFileProperties", &frmImageMain::mnuFileProperties_Click},
                                    {"mnuFilePrint", &frmImageMain::mnuFilePrint_Click},
                                    {"mnuEditCopy", &frmImageMain::mnuEditCopy_Click},
                                    {"mnuEditPaste", &frmImageMain::mnuEditPaste_Click},
                                    {"mnuViewToolbar", &frmImageMain::mnuViewToolbar_Click},
                                    {"mnuViewSizeAndInfo", &frmImageMain::mnuViewSizeAndInfo_Click},
                                    {"mnuViewSizeInPixels", &frmImageMain::mnuViewSizeInPixels_Click},
                                    {"mnuViewSizeInInches", &frmImageMain::mnuViewSizeInInches_Click},
                                    {"mnuViewSizeInMM", &frmImageMain::mnuViewSizeInMM_Click},
                                    {"mnuViewSizeInTwips", &frmImageMain::mnuViewSizeInTwips_Click},
                                    {"mnuSizeScale", &frmImageMain::mnuSizeScale_Click},
                                    {"About", &frmImageMain::About_Click},
                                });
    m_sizing.bind(*this);
    on(tbToolbar, &Toolbar::ButtonClick, this, &frmImageMain::tbToolbar_ButtonClick);
    on(&Picture1->percentages(), &PercentList::Click, this, &frmImageMain::Combo1_Click);
    on(new FileDrop(*this), &FileDrop::Dropped, this, &frmImageMain::dropped);
}

void frmImageMain::bindKeys()
{
    auto *panning = new ImagePanning(*this, m_geometry, member<QAction>(QStringLiteral("mnuViewPan")));
    on(Image1, &PictureBox::Click, this, &frmImageMain::Image1_Click);
    on(m_view, &ImageView::Arrow, panning, &ImagePanning::step);
    on(m_view, &ImageView::ZoomStep, this, &frmImageMain::zoomStep);
    const auto bindZoom = [&](const char *key, int direction) {
        auto *shortcut = new QShortcut(QKeySequence(QString::fromLatin1(key)), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        on(shortcut, &QShortcut::activated, this, [this, direction] { zoomStep(direction); });
    };
    bindZoom("Ctrl++", 1);
    bindZoom("Ctrl+=", 1);
    bindZoom("Ctrl+-", -1);
}
