// The edit control: the single-line edit here; with ES_MULTILINE, multiline_edit.cpp.
#include "platform/ui/edit.h"

#include <algorithm>
#include <string>

#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/multiline_edit.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct EditData : ControlData {
  size_t anchor = 0;  // the selection runs from the anchor to the caret
  size_t caret = 0;
  size_t scroll = 0;  // first character shown
  size_t limit = 30000;
};

EditData* Data(HWND hwnd) { return ControlOf<EditData>(hwnd); }
std::wstring& Text(HWND hwnd) { return Find(hwnd)->text; }

void NotifyParent(HWND hwnd, WORD code) {
  if (HWND parent = GetParent(hwnd)) {
    SendMessageW(parent, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(hwnd)), code),
                 reinterpret_cast<LPARAM>(hwnd));
  }
}

// Replaces the selection with `insert`; true when the text changed.
bool Replace(HWND hwnd, EditData* d, std::wstring_view insert) {
  std::wstring& text = Text(hwnd);
  size_t from = std::min(d->anchor, d->caret), to = std::max(d->anchor, d->caret);
  size_t room = d->limit - std::min(d->limit, text.size() - (to - from));
  if (insert.size() > room) {
    insert = insert.substr(0, room);
    NotifyParent(hwnd, EN_MAXTEXT);
    if (!(d = Data(hwnd))) return false;
  }
  if (from == to && insert.empty()) return false;
  std::wstring& current = Text(hwnd);
  current.replace(from, to - from, insert);
  d->caret = d->anchor = from + insert.size();
  MarkScreenDirty();
  return true;
}

void MoveCaret(EditData* d, size_t to, size_t size) {
  d->caret = d->anchor = std::min(to, size);
  MarkScreenDirty();
}

void OnChar(HWND hwnd, wchar_t ch) {
  EditData* d = Data(hwnd);
  if (!d) return;
  bool changed = false;
  if (ch == 0x08) {
    if (d->anchor == d->caret && d->caret > 0) d->anchor = d->caret - 1;
    changed = Replace(hwnd, d, L"");
  } else if (ch >= 0x20 && ch != 0x7F) {
    if ((GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_NUMBER) && (ch < L'0' || ch > L'9')) return;
    changed = Replace(hwnd, d, std::wstring_view(&ch, 1));
  }
  if (changed) NotifyParent(hwnd, EN_CHANGE);
}

void OnKeyDown(HWND hwnd, UINT vk) {
  EditData* d = Data(hwnd);
  if (!d) return;
  size_t size = Text(hwnd).size();
  switch (vk) {
    case VK_LEFT: MoveCaret(d, d->caret > 0 ? d->caret - 1 : 0, size); break;
    case VK_RIGHT: MoveCaret(d, d->caret + 1, size); break;
    case VK_HOME: MoveCaret(d, 0, size); break;
    case VK_END: MoveCaret(d, size, size); break;
    case VK_DELETE:
      if (d->anchor == d->caret && d->caret < size) d->anchor = d->caret + 1;
      if (Replace(hwnd, d, L"")) NotifyParent(hwnd, EN_CHANGE);
      break;
    default: break;
  }
}

void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  EditData* d = Data(hwnd);
  RECT rc;
  GetClientRect(hwnd, &rc);
  bool focused = GetFocus() == hwnd;
  FillRect(hdc, &rc, GetSysColorBrush(COLOR_WINDOW));
  if (d && rc.right > 0) {
    const std::wstring& text = Text(hwnd);
    // Scroll so that the caret stays inside the field.
    if (d->caret < d->scroll) d->scroll = d->caret;
    while (TextWidth(std::wstring_view(text).substr(d->scroll, d->caret - d->scroll)) >= rc.right &&
           d->scroll < d->caret) {
      ++d->scroll;
    }
    size_t from = std::min(d->anchor, d->caret), to = std::max(d->anchor, d->caret);
    SetBkMode(hdc, OPAQUE);
    int x = 0;
    for (size_t i = d->scroll; i < text.size() && x < rc.right; ++i) {
      bool selected = focused && i >= from && i < to;
      SetTextColor(hdc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
      SetBkColor(hdc, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
      x += DrawCells(hdc, x, 0, std::wstring_view(&text[i], 1));
    }
    if (focused) {
      SetCaretPos(TextWidth(std::wstring_view(text).substr(d->scroll, d->caret - d->scroll)), 0);
    }
  }
  EndPaint(hwnd, &ps);
}

}  // namespace

LRESULT EditProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (WindowData* w = Find(hwnd); w && (w->style & ES_MULTILINE)) {
    return MultiLineEditProc(hwnd, msg, wparam, lparam);
  }
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) {
      auto data = std::make_unique<EditData>();
      data->caret = data->anchor = w->text.size();
      w->control = std::move(data);
    }
    return TRUE;
  }
  EditData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  switch (msg) {
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTCHARS | DLGC_HASSETSEL;
    case WM_CHAR:
      OnChar(hwnd, static_cast<wchar_t>(wparam));
      return 0;
    case WM_KEYDOWN:
      OnKeyDown(hwnd, static_cast<UINT>(wparam));
      return 0;
    case WM_SETTEXT: {
      LRESULT result = DefWindowProcW(hwnd, msg, wparam, lparam);
      if ((d = Data(hwnd))) {
        d->caret = d->anchor = Text(hwnd).size();
        d->scroll = 0;
      }
      return result;
    }
    case WM_SETFOCUS:
      CreateCaret(hwnd, nullptr, 1, 1);
      ShowCaret(hwnd);
      NotifyParent(hwnd, EN_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      DestroyCaret();
      NotifyParent(hwnd, EN_KILLFOCUS);
      return 0;
    case EM_GETSEL: {
      auto from = static_cast<DWORD>(std::min(d->anchor, d->caret));
      auto to = static_cast<DWORD>(std::max(d->anchor, d->caret));
      if (wparam) *reinterpret_cast<DWORD*>(wparam) = from;
      if (lparam) *reinterpret_cast<DWORD*>(lparam) = to;
      return static_cast<LRESULT>(MAKELONG(static_cast<WORD>(from), static_cast<WORD>(to)));
    }
    case EM_SETSEL: {
      // (0, -1) selects everything; a start of -1 removes the selection.
      size_t size = Text(hwnd).size();
      auto start = static_cast<LONG_PTR>(wparam), end = lparam;
      if (start < 0) {
        d->anchor = d->caret;
      } else {
        d->anchor = std::min(static_cast<size_t>(start), size);
        d->caret = end < 0 ? size : std::min(static_cast<size_t>(end), size);
      }
      MarkScreenDirty();
      return TRUE;
    }
    case EM_REPLACESEL:
      if (lparam) Replace(hwnd, d, reinterpret_cast<LPCWSTR>(lparam));
      return 0;
    case EM_LIMITTEXT:
      d->limit = wparam ? static_cast<size_t>(wparam) : 30000;
      return 0;
    case EM_GETLIMITTEXT:
      return static_cast<LRESULT>(d->limit);
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
