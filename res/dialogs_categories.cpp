// The Categories, New Category and search dialogs' tables.
#include "res/dialogs_categories.h"

#include "platform/ui/button.h"
#include "platform/ui/edit.h"
#include "platform/ui/list_view.h"
#include "platform/ui/spinner.h"
#include "res/menus_app.h"

namespace velmo::res {
namespace {

constexpr MenuItemDef kSeparator{};
constexpr UINT kTextCategories = 165;
constexpr UINT kTextNewCategoryTitle = 44108;
constexpr UINT kTextCategoryName = 44109;
constexpr UINT kTextSearchTitle = 44110;

constexpr DialogItemDef kCategoriesItems[] = {
    {WC_LISTVIEWW, 0, kCategoriesList,
     WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_OWNERDRAWFIXED |
         LVS_NOCOLUMNHEADER,
     0, 0, 0, 0},
};

// Each mode removes the items it has no use for.
constexpr MenuItemDef kCategoriesMenuItems[] = {
    {kCmdShowAllCategories, kCmdShowAllCategories},
    {kCmdNewCategory, kCmdNewCategory},
    {kCmdSelectAll, kCmdSelectAll},
    {kCmdSelectNone, kCmdSelectNone},
    {kCmdInvertSelect, kCmdInvertSelect},
    kSeparator,
    {kCmdReloadIcons, kCmdReloadIcons},
    {IDCANCEL, kTextCancel},
};
constexpr MenuDef kCategoriesMenu{kCategoriesMenuItems};

constexpr DialogItemDef kNewCategoryItems[] = {
    {WC_STATICW, kTextCategoryName, -1, 0, 1, 0, -1, 1},
    {WC_EDITW, 0, kNewCategoryName, WS_TABSTOP | ES_AUTOHSCROLL, 1, 1, -1, 1},
    {WC_STATICW, 0, kNewCategoryKnown, 0, 1, 3, -1, 0},
};

constexpr int kSearchField = 9;  // where the filter field starts, after its label

// Labels and boxes 44111-44115: "Find what:", "Subjects", "Notes",
// "Case sensitive", "Filter:".
constexpr DialogItemDef kSearchItems[] = {
    {WC_STATICW, 44111, -1, 0, 1, 0, -1, 1},
    {WC_EDITW, 0, kSearchText, WS_TABSTOP | ES_AUTOHSCROLL, 1, 1, -1, 1},
    {WC_BUTTONW, 44112, kSearchSubjects, WS_TABSTOP | BS_AUTOCHECKBOX, 1, 3, -1, 1},
    {WC_BUTTONW, 44113, kSearchNotes, WS_TABSTOP | BS_AUTOCHECKBOX, 1, 4, -1, 1},
    {WC_BUTTONW, 44114, kSearchCaseSensitive, WS_TABSTOP | BS_AUTOCHECKBOX, 1, 5, -1, 1},
    {WC_STATICW, 44115, -1, 0, 1, 7, kSearchField - 1, 1},
    {WC_LISTBOXW, 0, kSearchFilter, WS_TABSTOP, kSearchField + 1, 7, -2, 1},
    {UPDOWN_CLASSW, 0, kSearchFilter + 1, UDS_AUTOBUDDY | UDS_ARROWKEYS | UDS_WRAP, 0, 0, 1, 1},
};

}  // namespace

const DialogDef kCategoriesDialog{kTextCategories, kCategoriesItems};
const SoftKeyBarDef kCategoriesBar{{kTextDone, kCmdCategoriesDone, nullptr},
                                   {kTextMenu, 0, &kCategoriesMenu}};
const DialogDef kNewCategoryDialog{kTextNewCategoryTitle, kNewCategoryItems};
const SoftKeyBarDef kNewCategoryBar{{kTextDone, IDOK, nullptr}, {kTextCancel, IDCANCEL, nullptr}};
const DialogDef kSearchDialog{kTextSearchTitle, kSearchItems};
const SoftKeyBarDef kSearchBar{{kTextDone, kCmdCategoriesDone, nullptr}, {kTextCancel, IDCANCEL, nullptr}};

}  // namespace velmo::res
