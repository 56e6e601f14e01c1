#include "app/rename_dialog.h"

#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/menus_app.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

constexpr int kSubjectField = 101;
constexpr int kSubjectMaxChars = 1024;

struct RenameState {
  std::wstring* subject;
};

INT_PTR RenameProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      auto* state = reinterpret_cast<RenameState*>(lparam);
      SendDlgItemMessageW(dialog, kSubjectField, EM_LIMITTEXT, kSubjectMaxChars, 0);
      SetDlgItemTextW(dialog, kSubjectField, state->subject->c_str());
      const std::wstring done = res::Text(res::kTextDone), cancel = res::Text(res::kTextCancel);
      SOFTKEY left{done.c_str(), IDOK, nullptr};
      SOFTKEY right{cancel.c_str(), IDCANCEL, nullptr};
      CreateSoftKeyBar(dialog, &left, &right);
      SetFocus(GetDlgItem(dialog, kSubjectField));
      return FALSE;
    }
    case WM_COMMAND: {
      auto* state = reinterpret_cast<RenameState*>(GetWindowLongPtrW(dialog, DWLP_USER));
      if (LOWORD(wparam) == IDOK && state) {
        std::wstring text(kSubjectMaxChars + 1, L'\0');
        const UINT length =
            GetDlgItemTextW(dialog, kSubjectField, text.data(), static_cast<int>(text.size()));
        text.resize(length);
        *state->subject = text;
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

bool AskNewSubject(HWND owner, std::wstring* subject) {
  const std::wstring title = res::Text(res::kTextRenameTitle);
  const std::wstring label = res::Text(res::kTextSubjectLabel);
  const DLGITEMTEMPLATEW items[] = {
      {WC_STATICW, label.c_str(), 0, 0, 1, 0, -1, 1},
      {WC_EDITW, L"", kSubjectField, WS_TABSTOP | ES_AUTOHSCROLL, 1, 1, -1, 1},
  };
  const DLGTEMPLATEW dialog{title.c_str(), 0, 0, 0, items, 2};
  RenameState state{subject};
  return DialogBoxIndirectParamW(nullptr, &dialog, owner, RenameProc,
                                 reinterpret_cast<LPARAM>(&state)) == IDOK;
}

}  // namespace velmo::app
