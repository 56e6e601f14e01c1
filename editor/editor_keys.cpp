// The keys the task editor takes before its controls: the volume keys step the
// focused date (or page the notes), the talk key is "Call History", the record
// key "Today"; and in an empty text field the first letter may become a capital.
// Each control is subclassed so that its keys and its focus reach the editor.
#include "editor/date_commands.h"
#include "editor/editor_dialog.h"
#include "editor/input_mode.h"
#include "editor/insert_text.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/dialogs_editor.h"

namespace velmo::editor {
namespace {

using namespace res::editor_id;

struct EditorKey {
  UINT vk;
  UINT command;       // elsewhere
  WPARAM notes_page;  // in the notes: a page up or down; 0: the command there too
};
constexpr EditorKey kKeys[] = {
    {VK_TVOLUMEUP, kCmdNextDay, SB_PAGEUP},
    {VK_TVOLUMEDOWN, kCmdPreviousDay, SB_PAGEDOWN},
    {VK_TTALK, kCmdCallHistory, 0},
    {VK_TRECORD, kCmdToday, 0},
};

const EditorKey* KeyOf(UINT vk) {
  for (const EditorKey& k : kKeys)
    if (k.vk == vk) return &k;
  return nullptr;
}

bool IsTextField(int id) { return id == kSubject || id == kNotes; }

LRESULT ControlProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  EditorDialog* d = DialogState(GetParent(hwnd));
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  const auto found = d->control_procs.find(hwnd);
  if (found == d->control_procs.end()) return DefWindowProcW(hwnd, msg, wparam, lparam);
  const WNDPROC own = found->second;
  const int id = GetDlgCtrlID(hwnd);
  switch (msg) {
    case WM_KEYDOWN:
      if (const EditorKey* key = KeyOf(static_cast<UINT>(wparam))) {
        if (id == kNotes && key->notes_page) {
          CallWindowProcW(own, hwnd, EM_SCROLL, key->notes_page, 0);
        } else {
          RunEditorCommand(d, key->command);
        }
        return 0;
      }
      break;
    case WM_KEYUP:
      if (KeyOf(static_cast<UINT>(wparam))) return 0;  // the keys act on key-down only
      break;
    case WM_CHAR:
      if (IsTextField(id))
        wparam = CharacterForField(static_cast<wchar_t>(wparam), GetWindowTextLengthW(hwnd) == 0, d->input_mode);
      break;
    case WM_SETFOCUS: {
      const LRESULT result = CallWindowProcW(own, hwnd, msg, wparam, lparam);
      OnFocusChanged(d, id);
      return result;
    }
    default:
      break;
  }
  return CallWindowProcW(own, hwnd, msg, wparam, lparam);
}

}  // namespace

void SubclassControls(EditorDialog* d) {
  for (HWND child = GetWindow(d->dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(child) == 0) continue;
    const auto own = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlProc)));
    d->control_procs[child] = own;
  }
}

}  // namespace velmo::editor
