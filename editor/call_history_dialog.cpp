#include "editor/call_history_dialog.h"

#include "platform/ui/dialog.h"
#include "platform/ui/list_view.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/dialogs_calls.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/contacts_db.h"

namespace velmo {
namespace {

struct Choice {
  const std::vector<CallEntry>* calls;
  int chosen = -1;
};

void Fill(HWND list, const std::vector<CallEntry>& calls) {
  for (size_t i = 0; i < calls.size(); ++i) {
    std::wstring text = CallRowText(calls[i]);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = static_cast<int>(i);
    item.pszText = text.data();
    item.lParam = static_cast<LPARAM>(i);
    ListView_InsertItem(list, &item);
  }
  ListView_SetItemState(list, 0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
}

void Take(HWND dialog, Choice* c) {
  c->chosen = ListView_GetNextItem(GetDlgItem(dialog, res::kCallHistoryList), -1, LVNI_SELECTED);
  EndDialog(dialog, c->chosen >= 0 ? IDOK : IDCANCEL);
}

INT_PTR CallHistoryProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* c = reinterpret_cast<Choice*>(GetWindowLongPtrW(dialog, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      c = reinterpret_cast<Choice*>(lparam);
      HWND list = GetDlgItem(dialog, res::kCallHistoryList);
      Fill(list, *c->calls);
      const std::wstring left = res::Text(res::kCallHistoryBar.left.text_id);
      const std::wstring right = res::Text(res::kCallHistoryBar.right.text_id);
      SOFTKEY l{left.c_str(), res::kCallHistoryBar.left.command, nullptr};
      SOFTKEY r{right.c_str(), res::kCallHistoryBar.right.command, nullptr};
      CreateSoftKeyBar(dialog, &l, &r);
      SetFocus(list);
      return FALSE;
    }
    case WM_NOTIFY:
      if (c && reinterpret_cast<const NMHDR*>(lparam)->code == LVN_ITEMACTIVATE) Take(dialog, c);
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK && c) {
        Take(dialog, c);
        return TRUE;
      }
      if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
        return TRUE;
      }
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace

std::wstring CallRowText(const CallEntry& call) {
  const std::wstring& who = call.name.empty() ? call.record.number : call.name;
  return who + L"  " + CallTimeText(call.record) + L"  " + CallKindText(call.record.kind);
}

int ChooseCall(HWND owner, const std::vector<CallEntry>& calls) {
  if (calls.empty()) return -1;
  Choice choice{&calls};
  const res::LoadedDialog dialog(res::kCallHistoryDialog);
  if (DialogBoxIndirectParamW(nullptr, dialog.get(), owner, CallHistoryProc,
                              reinterpret_cast<LPARAM>(&choice)) != IDOK)
    return -1;
  return choice.chosen;
}

std::wstring PickCallText(HWND owner) {
  const std::vector<CallRecord> records = ReadCallLog();
  if (records.empty()) return {};
  const std::vector<CallEntry> calls = NameCalls(records, ReadContacts());
  const int chosen = ChooseCall(owner, calls);
  if (chosen < 0) return {};
  return CallInsertText(calls[static_cast<size_t>(chosen)], CurrentSettings().call_insert_mode);
}

}  // namespace velmo
