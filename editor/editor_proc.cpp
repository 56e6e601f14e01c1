// The task editor's dialog procedure: set-up, then each message handed to the
// piece that answers it.
#include "app/menus.h"
#include "editor/date_commands.h"
#include "editor/editor_dialog.h"
#include "editor/editor_title.h"
#include "platform/call_log.h"
#include "platform/clock.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/dialog.h"
#include "platform/ui/menu.h"
#include "platform/ui/messages.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/dialogs_editor.h"
#include "res/strings.h"

namespace velmo::editor {
namespace {

using namespace res::editor_id;

void MakeSoftKeys(EditorDialog* d) {
  d->menu = app::BuildMenu(*res::kEditorBar.right.menu);
  const DATE today = NowAsDate();
  for (UINT command = res::kSelectDayFirst; command <= res::kSelectDayLast; ++command) {
    const std::wstring name = SelectDayText(command, today);
    ModifyMenuW(d->menu, command, MF_BYCOMMAND | MF_STRING, command, name.c_str());
  }
  const std::wstring done = res::Text(res::kEditorBar.left.text_id);
  const std::wstring menu = res::Text(res::kEditorBar.right.text_id);
  SOFTKEY left{done.c_str(), res::kEditorBar.left.command, nullptr};
  SOFTKEY right{menu.c_str(), 0, d->menu};
  CreateSoftKeyBar(d->dialog, &left, &right);
}

void OnInit(HWND dialog, EditorDialog* d) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(d));
  d->dialog = dialog;
  MakeSoftKeys(d);
  SetUpControls(d);
  ShowAllFields(d);
  LayOut(d);
  ShowTitle(d, OpeningTitle(d->fields.is_new(), d->compact));
  SetFocus(GetDlgItem(dialog, kSubject));
  d->focus_id = kSubject;
  SubclassControls(d);
  d->has_calls = CallLogHasEntries();
  UpdateMenuState(d);
}

void OnNotify(EditorDialog* d, const NMHDR* nm) {
  if (!nm || d->showing || nm->code != DTN_DATETIMECHANGE) return;
  const auto* change = reinterpret_cast<const NMDATETIMECHANGE*>(nm);
  DATE date = kNoDate;
  if (change->dwFlags == GDT_VALID && !SystemTimeToVariantTime(&change->st, &date)) return;
  OnDateChanged(d, static_cast<int>(nm->idFrom), date);
}

INT_PTR EditorProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_INITDIALOG) {
    OnInit(dialog, reinterpret_cast<EditorDialog*>(lparam));
    return FALSE;  // the focus is set
  }
  EditorDialog* d = DialogState(dialog);
  if (!d) return FALSE;
  switch (msg) {
    case WM_COMMAND:
      if (lparam) {
        OnControlNotified(d, LOWORD(wparam), HIWORD(wparam));
      } else {
        RunEditorCommand(d, LOWORD(wparam));
      }
      return TRUE;
    case WM_NOTIFY:
      OnNotify(d, reinterpret_cast<const NMHDR*>(lparam));
      return TRUE;
    case WM_INITMENUPOPUP:
      UpdateMenuState(d);
      return TRUE;
    case WM_SIZE:
      LayOut(d);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

EditorDialog* DialogState(HWND dialog) {
  return dialog ? reinterpret_cast<EditorDialog*>(GetWindowLongPtrW(dialog, DWLP_USER)) : nullptr;
}

INT_PTR RunEditorDialog(HWND owner, EditorDialog* d) {
  res::LoadedDialog tmpl(d->compact ? res::kEditCompactDialog : res::kEditFullDialog);
  const INT_PTR result = DialogBoxIndirectParamW(nullptr, tmpl.get(), owner, EditorProc,
                                                 reinterpret_cast<LPARAM>(d));
  if (d->menu) DestroyMenu(d->menu);
  d->menu = nullptr;
  return result < 0 ? 0 : result;
}

}  // namespace velmo::editor
