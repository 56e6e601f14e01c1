// The Links View's and "Save As..."'s tables.
#include "res/dialogs_links.h"

#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "res/command_ids.h"

namespace velmo::res {
namespace {

constexpr UINT kTextCancel = 41715;

constexpr DialogItemDef kLinksViewItems[] = {
    {kLinkTextViewClass, kTextLinksViewTask, kLinkTextView, WS_TABSTOP, 0, 0, 0, 0},
};

constexpr DialogItemDef kSaveAsItems[] = {
    {WC_STATICW, kTextSaveAsLabel, 0, 0, 1, 0, -1, 1},
    {WC_EDITW, 0, kSaveAsFileName, WS_TABSTOP | ES_AUTOHSCROLL, 1, 1, -1, 1},
};

}  // namespace

const DialogDef kLinksViewDialog{40539, kLinksViewItems};
const SoftKeyBarDef kLinksViewBar{{cmd::kEdit, cmd::kEdit, nullptr},
                                  {kTextCancel, IDCANCEL, nullptr}};
const DialogDef kSaveAsDialog{kTextSaveAsTitle, kSaveAsItems};
const SoftKeyBarDef kSaveAsBar{{41711, IDOK, nullptr}, {kTextCancel, IDCANCEL, nullptr}};

}  // namespace velmo::res
