#include "app/save_as_dialog.h"

#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/dialogs_links.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

constexpr int kMaxPathChars = 4096;

INT_PTR SaveAsProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      const auto* name = reinterpret_cast<std::wstring*>(lparam);
      SendDlgItemMessageW(dialog, res::kSaveAsFileName, EM_LIMITTEXT, kMaxPathChars, 0);
      SetDlgItemTextW(dialog, res::kSaveAsFileName, name->c_str());
      const std::wstring left = res::Text(res::kSaveAsBar.left.text_id);
      const std::wstring right = res::Text(res::kSaveAsBar.right.text_id);
      SOFTKEY l{left.c_str(), res::kSaveAsBar.left.command, nullptr};
      SOFTKEY r{right.c_str(), res::kSaveAsBar.right.command, nullptr};
      CreateSoftKeyBar(dialog, &l, &r);
      SetFocus(GetDlgItem(dialog, res::kSaveAsFileName));
      return FALSE;
    }
    case WM_COMMAND: {
      auto* name = reinterpret_cast<std::wstring*>(GetWindowLongPtrW(dialog, DWLP_USER));
      if (LOWORD(wparam) == IDOK && name) {
        std::wstring text(kMaxPathChars + 1, L'\0');
        text.resize(GetDlgItemTextW(dialog, res::kSaveAsFileName, text.data(),
                                    static_cast<int>(text.size())));
        if (text.empty()) return TRUE;  // nothing to save to yet
        *name = text;
        EndDialog(dialog, IDOK);
        return TRUE;
      }
      if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
        return TRUE;
      }
      return FALSE;
    }
    default:
      return FALSE;
  }
}

}  // namespace

bool AskSaveAsFileName(HWND owner, std::wstring* name) {
  const res::LoadedDialog dialog(res::kSaveAsDialog);
  return DialogBoxIndirectParamW(nullptr, dialog.get(), owner, SaveAsProc,
                                 reinterpret_cast<LPARAM>(name)) == IDOK;
}

}  // namespace velmo::app
