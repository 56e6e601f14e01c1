// The notes editor's tables.
#include "res/menus_notes.h"

#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "res/menus_app.h"

namespace velmo::res {
namespace {

constexpr MenuItemDef kSeparator{};

constexpr MenuItemDef kNotesMenuItems[] = {
    {kNotesWordWrap, kNotesWordWrap},
    kSeparator,
    {kNotesFind, kNotesFind},
    {kNotesFindNext, kNotesFindNext},
    kSeparator,
    {kNotesSelectAll, kNotesSelectAll},
    {kNotesCut, kNotesCut},
    {kNotesCopy, kNotesCopy},
    {kNotesPaste, kNotesPaste},
    kSeparator,
    {kNotesCancel, kTextCancel},
};

}  // namespace

const MenuDef kNotesMenu{kNotesMenuItems};
const SoftKeyBarDef kNotesBar{{kTextDone, IDOK, nullptr}, {kTextMenu, 0, &kNotesMenu}};
const SoftKeyBarDef kFindBar{{kTextDone, IDOK, nullptr}, {kTextCancel, IDCANCEL, nullptr}};

// Width and height 0: to the dialog's right and bottom edges.
const DLGITEMTEMPLATEW kNotesItems[1] = {
    {WC_EDITW, L"", kNotesFieldId, WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN, 0, 0, 0, 0},
};

namespace {
constexpr DialogItemDef kFindItems[] = {
    {WC_STATICW, kTextFindWhat, 0, 0, 1, 0, -1, 1},
    {WC_EDITW, 0, kFindTextId, WS_TABSTOP | ES_AUTOHSCROLL, 1, 1, -1, 1},
};
}  // namespace

const DialogDef kFindDialog{kTextFindTitle, kFindItems};

}  // namespace velmo::res
