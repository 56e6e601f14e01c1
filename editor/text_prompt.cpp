#include "editor/text_prompt.h"

#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/strings.h"

namespace velmo {
namespace {

struct PromptState {
  const TextPrompt* prompt;
  std::wstring* text;
};

void ShowSoftKeys(HWND dialog, const res::SoftKeyBarDef& bar) {
  const std::wstring left = res::Text(bar.left.text_id), right = res::Text(bar.right.text_id);
  SOFTKEY l{left.c_str(), bar.left.command, nullptr};
  SOFTKEY r{right.c_str(), bar.right.command, nullptr};
  CreateSoftKeyBar(dialog, &l, &r);
}

std::wstring FieldText(HWND dialog, const TextPrompt& prompt) {
  std::wstring typed(prompt.max_chars + 1, L'\0');
  typed.resize(GetDlgItemTextW(dialog, prompt.field_id, typed.data(), static_cast<int>(typed.size())));
  return typed;
}

INT_PTR PromptProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* state = reinterpret_cast<PromptState*>(GetWindowLongPtrW(dialog, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      state = reinterpret_cast<PromptState*>(lparam);
      const TextPrompt& p = *state->prompt;
      SendDlgItemMessageW(dialog, p.field_id, EM_LIMITTEXT, p.max_chars, 0);
      SetDlgItemTextW(dialog, p.field_id, state->text->c_str());
      if (p.select_all) SendDlgItemMessageW(dialog, p.field_id, EM_SETSEL, 0, -1);
      ShowSoftKeys(dialog, p.bar);
      SetFocus(GetDlgItem(dialog, p.field_id));
      return FALSE;
    }
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK && state) {
        std::wstring typed = FieldText(dialog, *state->prompt);
        if (typed.empty() && state->prompt->refuse_empty) return TRUE;  // nothing to take yet
        *state->text = std::move(typed);
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

bool AskText(HWND owner, const TextPrompt& prompt, std::wstring* text) {
  const res::LoadedDialog dialog(prompt.dialog);
  PromptState state{&prompt, text};
  return DialogBoxIndirectParamW(nullptr, dialog.get(), owner, PromptProc,
                                 reinterpret_cast<LPARAM>(&state)) == IDOK;
}

}  // namespace velmo
