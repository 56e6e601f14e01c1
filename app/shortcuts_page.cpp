// The "Shortcuts" page as a dialog around a list of the 21 keys.
#include "app/shortcuts_page.h"

#include <string>

#include "app/shortcut_store.h"
#include "platform/ui/dialog.h"
#include "platform/ui/list_view.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "platform/ui/virtual_keys.h"
#include "res/strings.h"

namespace velmo {
namespace {

constexpr int kListId = 100;
constexpr UINT kTitleText = 40688;   // "Shortcuts"
constexpr UINT kDoneText = 40689;    // "Done"
constexpr UINT kCancelText = 40690;  // "Cancel"
constexpr UINT kRowText = 40691;     // "%1: %2"

std::wstring RowText(const ShortcutPageRow& row) {
  return res::FormatId(kRowText, {res::Text(row.name_id),
                                  res::Text(row.choices[static_cast<size_t>(row.selected)])});
}

void ShowRow(HWND list, const ShortcutPage& page, int i) {
  std::wstring text = RowText(page[static_cast<size_t>(i)]);
  LVITEMW item{};
  item.mask = LVIF_TEXT;
  item.iItem = i;
  item.pszText = text.data();
  ListView_SetItem(list, &item);
}

// Steps the focused row one choice on (or back), around the end of its list.
void StepRow(HWND list, ShortcutPage& page, int step) {
  int i = ListView_GetNextItem(list, -1, LVNI_FOCUSED);
  if (i < 0 || i >= kShortcutCount) return;
  ShortcutPageRow& row = page[static_cast<size_t>(i)];
  int n = static_cast<int>(row.choices.size());
  row.selected = (row.selected + step + n) % n;
  ShowRow(list, page, i);
}

INT_PTR PageProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* page = reinterpret_cast<ShortcutPage*>(GetWindowLongPtrW(dialog, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      page = reinterpret_cast<ShortcutPage*>(lparam);
      HWND list = GetDlgItem(dialog, kListId);
      for (int i = 0; i < kShortcutCount; ++i) {
        std::wstring text = RowText((*page)[static_cast<size_t>(i)]);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = i;
        item.pszText = text.data();
        ListView_InsertItem(list, &item);
      }
      ListView_SetItemState(list, 0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
      std::wstring done = res::Text(kDoneText), cancel = res::Text(kCancelText);
      SOFTKEY left{done.c_str(), IDOK, nullptr};
      SOFTKEY right{cancel.c_str(), IDCANCEL, nullptr};
      CreateSoftKeyBar(dialog, &left, &right);
      SetFocus(list);
      return FALSE;
    }
    case WM_NOTIFY: {
      auto* hdr = reinterpret_cast<NMHDR*>(lparam);
      if (page && hdr->idFrom == kListId && hdr->code == LVN_KEYDOWN) {
        WORD vk = reinterpret_cast<NMLVKEYDOWN*>(lparam)->wVKey;
        if (vk == VK_LEFT || vk == VK_RIGHT) StepRow(hdr->hwndFrom, *page, vk == VK_RIGHT ? 1 : -1);
      }
      return TRUE;
    }
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK && page) {
        SaveShortcutBindings(ShortcutsFromPage(*page));
        EndDialog(dialog, IDOK);
      } else if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
      }
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

INT_PTR ShowShortcutsPage(HWND owner) {
  ShortcutPage page = MakeShortcutPage(CurrentSettings().shortcuts);
  std::wstring title = res::Text(kTitleText);
  const DLGITEMTEMPLATEW items[] = {
      {WC_LISTVIEWW, L"", kListId,
       WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER, 0, 0, 0, 0},
  };
  const DLGTEMPLATEW dialog{title.c_str(), 0, 0, 0, items, 1};
  return DialogBoxIndirectParamW(nullptr, &dialog, owner, PageProc,
                                 reinterpret_cast<LPARAM>(&page));
}

}  // namespace velmo
