// The prompt of "Find...".
#include "editor/find_text_dialog.h"

#include <iterator>

#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/menus_notes.h"
#include "res/strings.h"

namespace velmo {
namespace {

INT_PTR FindTextProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* text = reinterpret_cast<std::wstring*>(GetWindowLongPtrW(dialog, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      text = reinterpret_cast<std::wstring*>(lparam);
      SendDlgItemMessageW(dialog, res::kFindTextId, EM_LIMITTEXT, res::kFindTextMaxChars, 0);
      SetDlgItemTextW(dialog, res::kFindTextId, text->c_str());
      SendDlgItemMessageW(dialog, res::kFindTextId, EM_SETSEL, 0, -1);
      const std::wstring done = res::Text(res::kFindBar.left.text_id);
      const std::wstring cancel = res::Text(res::kFindBar.right.text_id);
      SOFTKEY left{done.c_str(), res::kFindBar.left.command, nullptr};
      SOFTKEY right{cancel.c_str(), res::kFindBar.right.command, nullptr};
      CreateSoftKeyBar(dialog, &left, &right);
      SetFocus(GetDlgItem(dialog, res::kFindTextId));
      return FALSE;
    }
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK && text) {
        std::wstring typed(res::kFindTextMaxChars + 1, L'\0');
        typed.resize(GetDlgItemTextW(dialog, res::kFindTextId, typed.data(),
                                     static_cast<int>(typed.size())));
        *text = typed;
        EndDialog(dialog, IDOK);
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

bool AskFindText(HWND owner, std::wstring* text) {
  const std::wstring title = res::Text(res::kTextFindTitle);
  const std::wstring label = res::Text(res::kTextFindWhat);
  DLGITEMTEMPLATEW items[std::size(res::kFindItems)];
  std::copy(std::begin(res::kFindItems), std::end(res::kFindItems), items);
  items[0].text = label.c_str();
  const DLGTEMPLATEW dialog{title.c_str(), 0, 0, 0, items, static_cast<int>(std::size(items))};
  return DialogBoxIndirectParamW(nullptr, &dialog, owner, FindTextProc,
                                 reinterpret_cast<LPARAM>(text)) == IDOK;
}

}  // namespace velmo
