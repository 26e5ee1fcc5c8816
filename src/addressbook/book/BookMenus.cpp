#include "BookMenus.h"

#include "StandardToolMenu.h"

namespace {

using namespace StandardToolMenu;

constexpr ToolMenuRow item(int level, const char *name, const char *caption, const char *icon = nullptr,
                           int flags = MenuRow::None)
{
    return {{level, name, caption, nullptr, flags, icon}};
}

constexpr ToolMenuRow separator(int level, const char *name)
{
    return {{level, name, "", nullptr, MenuRow::Separator, nullptr}};
}

constexpr ToolMenuRow below(ToolMenuRow row, int level)
{
    row.item.level = level;
    return row;
}

constexpr const char *newContact = "list-add-user";
constexpr const char *newGroup = "user-group-new";
constexpr const char *newCity = "find-location";
constexpr const char *newState = "flag";
constexpr const char *birthdays = "view-calendar-birthday";
constexpr const char *deletion = "edit-delete";
constexpr const char *refresh = "view-refresh";
constexpr const char *print = "document-print";
constexpr const char *selectAll = "edit-select-all";
constexpr const char *selectNone = "edit-select-none";
constexpr const char *about = "help-about";
constexpr const char *howTo = "help-contents";

constexpr ToolMenuRow menuRows[] = {
    renamed(File, "mnufile", "&File"),
    item(1, "mnunewrecord", "&New"),
    separator(2, "mnuline1"),
    item(2, "mnunewcontact", "Contact", newContact),
    item(2, "mnunewgroup", "Group", newGroup),
    item(2, "mnunewcity", "City", newCity),
    item(2, "mnunewstate", "County/State/Province", newState),
    separator(2, "mnuline2"),
    below(NewDocument, 2),
    separator(2, "mnuspacer10"),
    separator(1, "mnuline4"),
    item(1, "mnupagesetup", "Page &Setup..", "document-properties"),
    item(1, "mnuprint", "Print", print),
    item(2, "mnuprintselected", "Selected &Records"),
    item(2, "mnusummary", "&Summary"),
    separator(1, "mnuline3"),
    renamed(Close, "mnuexitprog", "&Close"),
    separator(1, "mnuspacer20"),
    ExitTools,
    separator(1, "mnuspacer21"),
    item(0, "mnubirthdays", "&Birthdays"),
    item(1, "mnufindbirthdays", "&Find..", birthdays),
    item(0, "mnudelete", "&Delete"),
    item(1, "mnudeleteselected", "&Selected", deletion),
    item(0, "mnudata", "Da&ta"),
    item(1, "mnurefresh2", "&Refresh", refresh),
    item(0, "mnutest", "Test", nullptr, MenuRow::Hidden | MenuRow::Disabled),
    item(0, "mnuselectrecords", "&Select"),
    item(1, "mnuselectall", "Select &All Records in List", selectAll),
    item(1, "mnudeselectall", "&De-Select All Records in List", selectNone),
    renamed(Window, "mnuwindow", "&Window"),
    renamed(ArrangeIcons, "mnuArrangeIcons", "&Arrange Icons"),
    Cascade,
    TileHorizontal,
    TileVertical,
    item(0, "mnuhelp", "&Help"),
    item(1, "mnuabout", "About", about),
    item(1, "mnuhowto", "How to...", howTo),
    item(0, "mnuPopup", "Popup", nullptr, MenuRow::Hidden),
    item(1, "mnunew", "New"),
    item(2, "mnuContact", "Contact", newContact),
    item(2, "mnuGroup", "Group", newGroup),
    item(2, "mnuCity", "City", newCity),
    item(2, "mnuState", "County/State/Province", newState),
    item(1, "mnuView", "View"),
    item(2, "mnuLarge", "Large Icons", "view-list-icons"),
    item(2, "mnuSmall", "Small Icons", "view-list-text"),
    item(2, "mnuList", "List", "view-list-tree"),
    item(2, "mnuDets", "Details", "view-list-details"),
    item(1, "mnurefresh", "Refresh", refresh),
    separator(1, "mnuDash"),
    renamed(Close, "mnuexit", "Exit"),
};

using Style = ToolbarRow::Style;

constexpr ToolbarRow separatorAt(int position)
{
    return {position, nullptr, nullptr, nullptr};
}

constexpr ToolbarRow buttonRows[] = {
    separatorAt(1),
    {2, "newcontact", "Add A New Contact", newContact},
    {3, "newgroup", "Add New Group", newGroup},
    {4, "newcity", "Add New City", newCity},
    {5, "newstate", "Add New County/State/Province", newState},
    separatorAt(6),
    {7, "reminder", "Birthday Reminder", birthdays},
    separatorAt(8),
    {9, "deleteselected", "Delete Selected Records", deletion},
    separatorAt(10),
    {11, "refreshdata", "Refresh Data", refresh},
    separatorAt(12),
    {13, "mprint", "Print", print, Style::DropDown},
    separatorAt(14),
    {15, "selectall", "Select All Records in List", selectAll},
    {16, "deselectall", "Un-Select All Records in List", selectNone},
    separatorAt(17),
    {18, "helpme", "Help", howTo, Style::DropDown},
};

// Intended: nothing is bound to "prtsummary"; the summary is printed by the menu alone.
constexpr ToolbarMenuRow listRows[] = {
    {"mprint", "Selected", "prtselected", nullptr},
    {"mprint", "Print Summary", "prtsummary", nullptr},
    {"helpme", "About", "helpmeabout", about},
    {"helpme", "How To..", "helpmehowto", howTo},
};

} // namespace

std::span<const ToolMenuRow> BookMenus::menus()
{
    return menuRows;
}

std::span<const ToolbarRow> BookMenus::buttons()
{
    return buttonRows;
}

std::span<const ToolbarMenuRow> BookMenus::lists()
{
    return listRows;
}
