// The notes preview pane: its own window, painted from the selected task.
#include "app/notes_pane.h"

#include <string>

#include "app/list_rows.h"
#include "app/task_changes.h"
#include "list/draw_appearance.h"
#include "list/draw_notes.h"
#include "platform/poom.h"
#include "platform/ui/gdi.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"
#include "settings/settings.h"
#include "store/task.h"

namespace velmo::app {
namespace {

constexpr wchar_t kPaneClass[] = L"velmo_NotesPane";
HWND g_pane = nullptr;

// Read when painted: the pane shows the notes as they are stored now.
std::wstring SelectedNotes() {
  const Task* task = SelectedTask();
  if (!task || task->notes_state == kNoNotes) return {};
  ITask* item = nullptr;
  if (FAILED(OpenTaskItem(task->oid, &item)) || !item) return {};
  BSTR body = nullptr;
  std::wstring notes;
  if (SUCCEEDED(item->get_Body(&body)) && body) notes = body;
  SysFreeString(body);
  item->Release();
  return notes;
}

LRESULT PaneProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_PAINT: {
      PAINTSTRUCT ps{};
      HDC hdc = BeginPaint(hwnd, &ps);
      RECT client{};
      GetClientRect(hwnd, &client);
      DrawNotesPreview(hdc, client, SelectedNotes(), MakeListAppearance());
      EndPaint(hwnd, &ps);
      return 0;
    }
    case WM_DESTROY:
      if (hwnd == g_pane) g_pane = nullptr;
      return 0;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace

HWND CreateNotesPane(HWND parent) {
  WNDCLASSW wc{};
  wc.lpfnWndProc = PaneProc;
  wc.lpszClassName = kPaneClass;
  RegisterClassW(&wc);
  g_pane = CreateWindowExW(0, kPaneClass, L"", WS_CHILD, 0, 0, 0, 0, parent, nullptr, nullptr,
                           nullptr);
  return g_pane;
}

int NotesPaneLines(int lines) { return NotesPreviewLines(CurrentSettings().notes_preview, lines); }

void RefreshNotesPane() {
  if (g_pane) InvalidateRect(g_pane, nullptr, TRUE);
}

}  // namespace velmo::app
