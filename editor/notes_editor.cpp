// The notes editor's dialog procedure. "Done" and the back key keep what was
// typed; only the menu's "Cancel" leaves the notes as they were.
#include "editor/notes_editor.h"

#include "app/menus.h"
#include "editor/find_text_dialog.h"
#include "editor/notes_find.h"
#include "platform/beep.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/menus_notes.h"
#include "res/strings.h"

namespace velmo {
namespace {

struct NotesState {
  std::wstring* notes;
  HMENU menu = nullptr;
  bool wrap = true;
  std::wstring find_text;  // what "Find..." last looked for
};

NotesState* StateOf(HWND dialog) {
  return reinterpret_cast<NotesState*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

HWND Field(HWND dialog) { return GetDlgItem(dialog, res::kNotesFieldId); }

std::wstring FieldText(HWND field) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
  text.resize(static_cast<size_t>(
      GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::pair<DWORD, DWORD> Selection(HWND field) {
  DWORD from = 0, to = 0;
  SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  return {from, to};
}

// Selects the next match at or after `from` (the search goes round to the
// start); the warning beep when the text has none.
void FindFrom(HWND field, const std::wstring& what, size_t from) {
  const std::wstring text = FieldText(field);
  const size_t at = FindNoCase(text, what, from);
  if (at == std::wstring::npos) {
    MessageBeep(MB_ICONEXCLAMATION);
    return;
  }
  SendMessageW(field, EM_SETSEL, at, static_cast<LPARAM>(at + what.size()));
}

void InitDialog(HWND dialog, NotesState* state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(state));
  HWND field = Field(dialog);
  SendMessageW(field, EM_LIMITTEXT, 0, 0);
  SetWindowTextW(field, state->notes->c_str());
  state->menu = app::BuildMenu(res::kNotesMenu);
  CheckMenuItem(state->menu, res::kNotesWordWrap, MF_BYCOMMAND | MF_CHECKED);
  const std::wstring done = res::Text(res::kNotesBar.left.text_id);
  const std::wstring menu = res::Text(res::kNotesBar.right.text_id);
  SOFTKEY left{done.c_str(), res::kNotesBar.left.command, nullptr};
  SOFTKEY right{menu.c_str(), 0, state->menu};
  CreateSoftKeyBar(dialog, &left, &right);
  SetFocus(field);
}

// Cut and copy need a selection, paste a clipboard, "Find Next" a text found before.
void PrepareMenu(HWND dialog, const NotesState* state) {
  const auto [from, to] = Selection(Field(dialog));
  const auto enable = [&](UINT id, bool on) {
    EnableMenuItem(state->menu, id, MF_BYCOMMAND | (on ? MF_ENABLED : MF_GRAYED));
  };
  enable(res::kNotesCut, from != to);
  enable(res::kNotesCopy, from != to);
  enable(res::kNotesPaste, !ui::ClipboardText().empty());
  enable(res::kNotesFindNext, !state->find_text.empty());
}

bool OnCommand(HWND dialog, NotesState* state, UINT command) {
  HWND field = Field(dialog);
  switch (command) {
    case IDOK:
    case IDCANCEL:  // the back key
      *state->notes = FieldText(field);
      EndDialog(dialog, IDOK);
      return true;
    case res::kNotesCancel:
      EndDialog(dialog, IDCANCEL);
      return true;
    case res::kNotesWordWrap:
      state->wrap = !state->wrap;
      SendMessageW(field, EM_FMTLINES, state->wrap, 0);
      CheckMenuItem(state->menu, res::kNotesWordWrap,
                    MF_BYCOMMAND | (state->wrap ? MF_CHECKED : MF_UNCHECKED));
      return true;
    case res::kNotesFind:
      if (AskFindText(dialog, &state->find_text) && !state->find_text.empty())
        FindFrom(field, state->find_text, Selection(field).first);
      return true;
    case res::kNotesFindNext:
      if (!state->find_text.empty()) FindFrom(field, state->find_text, Selection(field).first + 1);
      return true;
    case res::kNotesSelectAll: SendMessageW(field, EM_SETSEL, 0, -1); return true;
    case res::kNotesCut: SendMessageW(field, WM_CUT, 0, 0); return true;
    case res::kNotesCopy: SendMessageW(field, WM_COPY, 0, 0); return true;
    case res::kNotesPaste: SendMessageW(field, WM_PASTE, 0, 0); return true;
    default: return false;
  }
}

INT_PTR NotesProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  NotesState* state = StateOf(dialog);
  switch (msg) {
    case WM_INITDIALOG:
      InitDialog(dialog, reinterpret_cast<NotesState*>(lparam));
      return FALSE;
    case WM_SIZE:
      MoveWindow(Field(dialog), 0, 0, LOWORD(lparam), HIWORD(lparam), TRUE);
      return TRUE;
    case WM_INITMENUPOPUP:
      if (state) PrepareMenu(dialog, state);
      return TRUE;
    case WM_COMMAND:
      return state && OnCommand(dialog, state, LOWORD(wparam)) ? TRUE : FALSE;
    default:
      return FALSE;
  }
}

}  // namespace

bool EditNotesFullScreen(HWND owner, LPCWSTR title, std::wstring* notes) {
  if (!notes) return false;
  NotesState state{notes};
  const DLGTEMPLATEW dialog{title ? title : L"", 0, 0, 0, res::kNotesItems,
                            static_cast<int>(std::size(res::kNotesItems))};
  const INT_PTR result = DialogBoxIndirectParamW(nullptr, &dialog, owner, NotesProc,
                                                 reinterpret_cast<LPARAM>(&state));
  if (state.menu) DestroyMenu(state.menu);
  return result == IDOK;
}

}  // namespace velmo
