#include "ImageMenus.h"

#include "StandardToolMenu.h"

namespace {

using namespace StandardToolMenu;

constexpr ToolMenuRow item(int level, const char *name, const char *caption, const char *icon = nullptr,
                           const char *shortcut = nullptr, int flags = MenuRow::None)
{
    return {{level, name, caption, shortcut, flags, icon}};
}

constexpr ToolMenuRow separator(int level, const char *name)
{
    return {{level, name, "", nullptr, MenuRow::Separator, nullptr}};
}

constexpr const char *open = "document-open";
constexpr const char *save = "document-save-as";
constexpr const char *properties = "document-properties";
constexpr const char *print = "document-print";
constexpr const char *copy = "edit-copy";
constexpr const char *paste = "edit-paste";
constexpr const char *zoomIn = "zoom-in";
constexpr const char *zoomOut = "zoom-out";
constexpr const char *ownSize = "zoom-original";
constexpr const char *fitWindow = "zoom-fit-best";
constexpr const char *scale = "transform-scale";
constexpr const char *measures = "measure";

constexpr ToolMenuRow menuRows[] = {
    renamed(File, "FILE", "&File"),
    item(1, "mnuFileOpen", "&Open\u2026", open, "Ctrl+O"),
    item(1, "mnuFileSaveAs", "&Save As\u2026", save, "Ctrl+S"),
    item(1, "mnuFileProperties", "Proper&ties", properties),
    item(1, "mnuFilePrint", "&Print\u2026", print, "Ctrl+P"),
    separator(1, "mnuFileBar1"),
    NewDocument,
    renamed(Close, "mnuFileQuit", "&Close Quill-Image"),
    separator(1, "mnuFileBar2"),
    renamed(ExitTools, "mnuexittools", "E&xit Quill Office Tools"),
    item(0, "mnuEdit", "&Edit"),
    item(1, "mnuEditCopy", "&Copy", copy, "Ctrl+C"),
    item(1, "mnuEditPaste", "&Paste", paste, "Ctrl+V"),
    item(0, "mnuView", "&View"),
    item(1, "mnuViewToolbar", "&Toolbar", nullptr, nullptr, MenuRow::Checked),
    item(1, "mnuViewSizeAndInfo", "&Size Toolbar"),
    item(1, "mnuViewPan", "&Pan"),
    item(1, "mnuViewSize", "&Size", measures),
    item(2, "mnuViewSizeInPixels", "In Pixels\u2026"),
    item(2, "mnuViewSizeInInches", "In Inches\u2026"),
    item(2, "mnuViewSizeInMM", "In Millimetres\u2026"),
    item(2, "mnuViewSizeInTwips", "In Twips\u2026"),
    item(0, "mnusize", "&Size"),
    item(1, "mnuSizeZoomIn", "Zoom &In", zoomIn),
    item(1, "mnuSizeZoomOut", "Zoom &Out", zoomOut),
    item(1, "mnuSizeActualPixels", "&Original Size", ownSize),
    item(1, "mnuSizeFittoScreen", "Fit to Screen", "view-fullscreen"),
    item(1, "mnuSizeFittoWindow", "Fit to Window"), // the mark takes the icon's place
    item(1, "mnuSizeFittoPage", "Fit to Page", "zoom-fit-page"),
    item(2, "mnuSizeFitPageL", "Landscape"),
    item(2, "mnuSizeFitPageP", "Portrait"),
    item(1, "mnuSizeSplit", "&Split"),
    item(2, "mnuSizeSplitHeight", "&Height"),
    item(2, "mnuSizeSplitWidth", "&Width"),
    item(1, "mnuSizeDouble", "&Double"),
    item(2, "mnuSizeDoubleHeight", "&Height"),
    item(2, "mnuSizeDoubleWidth", "&Width"),
    item(1, "mnusizeratio", "&Ratio"),
    item(2, "mnuSizeRatio11", "1:1"),
    item(2, "mnuSizeRatio43", "4:3"),
    item(2, "mnuSizeRatio54", "5:4"),
    item(2, "mnuSizeRatio149", "14:9"),
    item(2, "mnuSizeRatio169", "16:9"),
    item(2, "mnuSizeRatio1610", "16:10"),
    item(1, "mnuSizeMakeSquare", "Make Square from"),
    item(2, "mnuSizeMakeSquareWidth", "Width"),
    item(2, "mnuSizeMakeSquareHeight", "Height"),
    item(2, "mnuSizeMakeSquareAverage", "Median"),
    item(1, "mnuSizeScale", "Scale\u2026", scale),
    renamed(Window, "mnuwindow", "&Window"),
    Cascade,
    TileHorizontal,
    TileVertical,
    ArrangeIcons,
    item(0, "About", "&About", nullptr, nullptr, MenuRow::Command),
};

constexpr ToolbarRow separatorAt(int position)
{
    return {position, nullptr, nullptr, nullptr};
}

constexpr ToolbarRow buttonRows[] = {
    {1, "Open", "Open", open},
    {2, "Save", "Save As", save},
    {3, "Properties", "Properties", properties},
    {4, "Print", "Print", print},
    separatorAt(5),
    {6, "Copy", "Copy", copy},
    {7, "Paste", "Paste", paste},
    separatorAt(8),
    {9, "Zoom In", "Zoom In", zoomIn},
    {10, "Zoom Out", "Zoom Out", zoomOut},
    {11, "Normal", "Original Size", ownSize},
    {12, "ScaletoForm", "Fit to Window", fitWindow},
    {13, "Scale", "Scale", scale},
    separatorAt(14),
    {15, "SizeInPixels", "Size in Pixels", measures},
};

struct KeyRow
{
    const char *key;
    const char *item;
};

constexpr KeyRow keyRows[] = {
    {"Open", "mnuFileOpen"},
    {"Save", "mnuFileSaveAs"},
    {"Properties", "mnuFileProperties"},
    {"Print", "mnuFilePrint"},
    {"Copy", "mnuEditCopy"},
    {"Paste", "mnuEditPaste"},
    {"Zoom In", "mnuSizeZoomIn"},
    {"Zoom Out", "mnuSizeZoomOut"},
    {"Normal", "mnuSizeActualPixels"},
    {"ScaletoForm", "mnuSizeFittoWindow"},
    {"Scale", "mnuSizeScale"},
    {"SizeInPixels", "mnuViewSizeInPixels"},
};

} // namespace

std::span<const ToolMenuRow> ImageMenus::menus()
{
    return menuRows;
}

std::span<const ToolbarRow> ImageMenus::buttons()
{
    return buttonRows;
}

QString ImageMenus::itemOf(const QString &key)
{
    for (const KeyRow &row : keyRows) {
        if (key == QLatin1String(row.key))
            return QString::fromLatin1(row.item);
    }
    return {};
}
