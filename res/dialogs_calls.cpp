// The call history's table.
#include "res/dialogs_calls.h"

#include "platform/ui/list_view.h"

namespace velmo::res {
namespace {

constexpr UINT kTextTitle = 40092;   // "Call History"
constexpr UINT kTextInsert = 43125;  // "Insert"
constexpr UINT kTextCancel = 41715;

constexpr DialogItemDef kCallHistoryItems[] = {
    {WC_LISTVIEWW, 0, kCallHistoryList,
     WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER, 0, 0, 0, 0},
};

}  // namespace

const DialogDef kCallHistoryDialog{kTextTitle, kCallHistoryItems};
const SoftKeyBarDef kCallHistoryBar{{kTextInsert, IDOK, nullptr}, {kTextCancel, IDCANCEL, nullptr}};

}  // namespace velmo::res
