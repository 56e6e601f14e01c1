// The settings pages' common procedure: fields shown, read back and committed.
#include "app/settings_page.h"

#include <algorithm>
#include <cwchar>

#include "app/settings_apply.h"
#include "format/current_pictures.h"
#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/dialog.h"
#include "platform/registry.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_box.h"
#include "platform/wstr.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/spinner.h"
#include "platform/ui/window.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

constexpr UINT kDoneText = 40689;    // "Done"
constexpr UINT kCancelText = 40690;  // "Cancel"
constexpr UINT kCaptionText = 121;   // "Velmo ToDo List"
constexpr UINT kNotSavedText = 44798;  // "The settings could not be saved: %1 ..."
constexpr LONG kLastMinuteOfDay = 24 * 60 - 1;
// The "Done" soft key's command: unlike the action key (IDOK), never taken by a field.
constexpr UINT kCmdDone = 0x7F00;

LONG Stored(const PageField& f, const Settings& s) {
  if (f.signed_dword) return s.*f.signed_dword;
  return f.dword ? static_cast<LONG>(s.*f.dword) : 0;
}

void Store(const PageField& f, Settings& s, LONG value) {
  if (f.signed_dword) {
    s.*f.signed_dword = value;
  } else if (f.dword) {
    s.*f.dword = static_cast<DWORD>(value);
  }
}

// The value the control shows for a stored one: the nearest it can show.
LONG Showable(const PageField& f, LONG stored) {
  switch (f.kind) {
    case FieldKind::kCheck: return stored != 0;
    case FieldKind::kCheckInverted: return stored != 1;  // "MultiSort": only 1 is a sort per view
    case FieldKind::kBit: return (static_cast<DWORD>(stored) & f.bit) != 0;
    case FieldKind::kChoice: return std::clamp<LONG>(stored, 0, static_cast<LONG>(f.choices.size()) - 1);
    case FieldKind::kNumber: return std::clamp(stored, f.low, f.high);
    case FieldKind::kTime: return std::clamp<LONG>(stored, 0, kLastMinuteOfDay);
    case FieldKind::kText: return 0;
  }
  return stored;
}

void ShowField(HWND page, const PageField& f, LONG value, const std::wstring& text) {
  switch (f.kind) {
    case FieldKind::kCheck:
    case FieldKind::kCheckInverted:
    case FieldKind::kBit:
      SendDlgItemMessageW(page, f.id, BM_SETCHECK, value ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    case FieldKind::kChoice:
      AddChoices(page, f.id, f.choices);
      SelectChoice(page, f.id, value);
      break;
    case FieldKind::kNumber:
      SendDlgItemMessageW(page, f.id + 1, UDM_SETRANGE, 0, MAKELPARAM(f.high, f.low));
      SendDlgItemMessageW(page, f.id + 1, UDM_SETPOS, 0, MAKELPARAM(value, 0));
      SetDlgItemTextW(page, f.id, std::to_wstring(value).c_str());
      break;
    case FieldKind::kTime: {
      SYSTEMTIME st{};
      st.wYear = 2000;
      st.wMonth = 1;
      st.wDay = 1;
      st.wHour = static_cast<WORD>(value / 60);
      st.wMinute = static_cast<WORD>(value % 60);
      // Hours and minutes only: the settings keep whole minutes.
      const std::wstring& picture = format::Pictures().time;
      SendDlgItemMessageW(page, f.id, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(picture.c_str()));
      SendDlgItemMessageW(page, f.id, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&st));
      break;
    }
    case FieldKind::kText:
      SendDlgItemMessageW(page, f.id, EM_LIMITTEXT, static_cast<WPARAM>(f.high), 0);
      SetDlgItemTextW(page, f.id, text.c_str());
      break;
  }
}

LONG ReadField(HWND page, const PageField& f) {
  switch (f.kind) {
    case FieldKind::kCheck:
    case FieldKind::kCheckInverted:
    case FieldKind::kBit:
      return SendDlgItemMessageW(page, f.id, BM_GETCHECK, 0, 0) == BST_CHECKED;
    case FieldKind::kChoice:
      return SelectedChoice(page, f.id);
    case FieldKind::kNumber: {
      wchar_t text[16] = {};
      GetDlgItemTextW(page, f.id, text, 16);
      return std::clamp<LONG>(std::wcstol(text, nullptr, 10), f.low, f.high);
    }
    case FieldKind::kTime: {
      SYSTEMTIME st{};
      if (SendDlgItemMessageW(page, f.id, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&st)) !=
          GDT_VALID)
        return -1;
      return st.wHour * 60 + st.wMinute;
    }
    case FieldKind::kText:
      return 0;
  }
  return 0;
}

std::wstring ReadText(HWND page, int id) {
  std::vector<wchar_t> text(static_cast<size_t>(GetWindowTextLengthW(GetDlgItem(page, id))) + 1);
  GetDlgItemTextW(page, id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// The value to store for a changed control.
LONG ToStored(const PageField& f, LONG stored, LONG shown) {
  switch (f.kind) {
    case FieldKind::kCheckInverted: return shown ? 0 : 1;
    case FieldKind::kBit: {
      const DWORD packed = static_cast<DWORD>(stored);
      return static_cast<LONG>(shown ? packed | f.bit : packed & ~f.bit);
    }
    default: return shown;
  }
}

void InitPage(HWND page, PageState& state) {
  const auto& fields = state.def->fields;
  state.shown.assign(fields.size(), 0);
  state.shown_text.assign(fields.size(), std::wstring());
  for (size_t i = 0; i < fields.size(); ++i) {
    const PageField& f = fields[i];
    if (f.kind == FieldKind::kText) state.shown_text[i] = (state.before.*f.text).substr(0, static_cast<size_t>(f.high));
    state.shown[i] = Showable(f, Stored(f, state.before));
    ShowField(page, f, state.shown[i], state.shown_text[i]);
  }
  if (state.def->hooks.init) state.def->hooks.init(page, state);
  const std::wstring done = res::Text(kDoneText), cancel = res::Text(kCancelText);
  SOFTKEY left{done.c_str(), kCmdDone, nullptr};
  SOFTKEY right{cancel.c_str(), IDCANCEL, nullptr};
  CreateSoftKeyBar(page, &left, &right);
  if (HWND first = GetNextDlgTabItem(page, nullptr, FALSE)) SetFocus(first);
}

// Only what the user changed is written; the rest keeps its stored value.
void ReadPage(HWND page, PageState& state) {
  const auto& fields = state.def->fields;
  for (size_t i = 0; i < fields.size(); ++i) {
    const PageField& f = fields[i];
    if (f.kind == FieldKind::kText) {
      std::wstring text = ReadText(page, f.id);
      if (text != state.shown_text[i]) state.edited.*f.text = std::move(text);
      continue;
    }
    const LONG shown = ReadField(page, f);
    if (shown < 0 && f.kind == FieldKind::kTime) continue;
    if (shown != state.shown[i]) Store(f, state.edited, ToStored(f, Stored(f, state.edited), shown));
  }
  if (state.def->hooks.done) state.def->hooks.done(page, state);
}

INT_PTR PageProc(HWND page, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* state = reinterpret_cast<PageState*>(GetWindowLongPtrW(page, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG:
      SetWindowLongPtrW(page, DWLP_USER, lparam);
      InitPage(page, *reinterpret_cast<PageState*>(lparam));
      return FALSE;
    case WM_COMMAND:
      if (!state) return FALSE;
      if (LOWORD(wparam) == IDOK && state->def->hooks.action &&
          state->def->hooks.action(page, *state, GetDlgCtrlID(GetFocus()))) {
        return TRUE;
      }
      if (LOWORD(wparam) == IDOK || LOWORD(wparam) == kCmdDone) {
        ReadPage(page, *state);
        EndDialog(page, IDOK);
      } else if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(page, IDCANCEL);
      } else if (state->def->hooks.changed) {
        return state->def->hooks.changed(page, *state, LOWORD(wparam));
      }
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

void AddChoice(HWND page, int id, const std::wstring& text) {
  SendDlgItemMessageW(page, id, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void AddChoices(HWND page, int id, std::span<const UINT> text_ids) {
  for (UINT text : text_ids) AddChoice(page, id, res::Text(text));
}

void SelectChoice(HWND page, int id, int index) {
  SendDlgItemMessageW(page, id, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int SelectedChoice(HWND page, int id) {
  return static_cast<int>(SendDlgItemMessageW(page, id, LB_GETCURSEL, 0, 0));
}

void EnableControl(HWND page, int id, bool enabled) {
  EnableWindow(GetDlgItem(page, id), enabled ? TRUE : FALSE);
}

void CommitSettings(const Settings& before, const Settings& after) {
  CurrentSettings() = after;
  const LONG saved = SaveSettings(CurrentSettings(), true);
  ApplySettingsChange(before);
  if (saved == ERROR_SUCCESS) return;
  // They stay in force for this run; the user learns why they will not last.
  std::wstring why = FromUtf8(registry::LastFailure());
  if (why.empty()) why = L"error " + std::to_wstring(saved);
  const std::wstring text = res::FormatId(kNotSavedText, {why});
  const std::wstring caption = res::Text(kCaptionText);
  MessageBoxW(GetActiveWindow(), text.c_str(), caption.c_str(), MB_OK | MB_ICONHAND);
}

INT_PTR RunSettingsPage(HWND owner, const PageDef& def, void* own) {
  PageState state;
  state.def = &def;
  state.own = own;
  state.before = CurrentSettings();
  state.edited = state.before;
  const res::LoadedDialog dialog(def.dialog);
  const INT_PTR result = DialogBoxIndirectParamW(nullptr, dialog.get(), owner, PageProc,
                                                 reinterpret_cast<LPARAM>(&state));
  if (result == IDOK) CommitSettings(state.before, state.edited);
  return result;
}

}  // namespace velmo::app
