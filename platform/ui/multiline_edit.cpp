// The multi-line edit's procedure: typing, deleting, line breaks, the edit
// messages, and cut, copy, paste and clear through the program's clipboard.
#include "platform/ui/multiline_edit.h"

#include <algorithm>

#include "platform/beep.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr size_t kDefaultLimit = 30000;
constexpr size_t kLargestLimit = 0x7FFFFFFE;  // EM_LIMITTEXT 0
constexpr WPARAM kLineUp = 0, kLineDown = 1;  // EM_SCROLL's SB_LINEUP, SB_LINEDOWN

std::wstring& TextRef(HWND hwnd) { return Find(hwnd)->text; }

bool ReadOnly(HWND hwnd) { return GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY; }

void NotifyParent(HWND hwnd, WORD code) {
  if (HWND parent = GetParent(hwnd)) {
    SendMessageW(parent, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(hwnd)), code),
                 reinterpret_cast<LPARAM>(hwnd));
  }
}

// Replaces the selection with `insert` (cut to the limit); true when the text changed.
bool Replace(HWND hwnd, MultiLineData* d, std::wstring_view insert) {
  const size_t from = std::min(d->anchor, d->caret), to = std::max(d->anchor, d->caret);
  const size_t size = TextRef(hwnd).size();
  const size_t room = d->limit - std::min(d->limit, size - (to - from));
  if (insert.size() > room) {
    insert = insert.substr(0, room);
    NotifyParent(hwnd, EN_MAXTEXT);
    if (!(d = MultiLineOf(hwnd))) return false;
  }
  if (from == to && insert.empty()) return false;
  const size_t lines_before = d->layout.LineCount();
  const bool above_view = from < d->layout.LineStart(d->top.line);
  std::wstring& text = TextRef(hwnd);
  text.replace(from, to - from, insert);
  d->layout.Replaced(text, from, to - from, insert.size());
  // A change above the view keeps the same lines in view.
  if (above_view) d->top.line = d->top.line + d->layout.LineCount() - lines_before;
  d->caret = d->anchor = from + insert.size();
  d->goal = -1;
  d->modified = true;
  ScrollToCaret(hwnd, d);
  return true;
}

// Typing and Backspace; a change is reported with EN_CHANGE.
void OnChar(HWND hwnd, MultiLineData* d, wchar_t ch) {
  if (ReadOnly(hwnd)) {
    if (ch == 0x08 || ch == L'\r' || ch >= 0x20) MessageBeep(0);
    return;
  }
  bool changed = false;
  if (ch == 0x08) {
    if (d->anchor == d->caret && d->caret > 0) {
      std::wstring_view text = TextRef(hwnd);
      d->anchor = d->caret - 1;
      if (text[d->anchor] == L'\n' && d->anchor > 0 && text[d->anchor - 1] == L'\r') --d->anchor;
    }
    changed = Replace(hwnd, d, L"");
  } else if (ch == L'\r') {
    changed = Replace(hwnd, d, L"\r\n");
  } else if (ch >= 0x20 && ch != 0x7F) {
    changed = Replace(hwnd, d, std::wstring_view(&ch, 1));
  }
  if (changed) NotifyParent(hwnd, EN_CHANGE);
}

void DeleteForward(HWND hwnd, MultiLineData* d) {
  if (ReadOnly(hwnd)) return;
  std::wstring_view text = TextRef(hwnd);
  if (d->anchor == d->caret && d->caret < text.size()) {
    d->anchor = d->caret + 1;
    if (text[d->caret] == L'\r' && d->anchor < text.size() && text[d->anchor] == L'\n') ++d->anchor;
  }
  if (Replace(hwnd, d, L"")) NotifyParent(hwnd, EN_CHANGE);
}

std::wstring_view Selection(HWND hwnd, const MultiLineData* d) {
  const size_t from = std::min(d->anchor, d->caret), to = std::max(d->anchor, d->caret);
  return std::wstring_view(TextRef(hwnd)).substr(from, to - from);
}

// WM_CUT, WM_COPY, WM_PASTE, WM_CLEAR.
void OnClipboard(HWND hwnd, MultiLineData* d, UINT msg) {
  if (msg == WM_COPY || msg == WM_CUT) {
    if (d->anchor == d->caret) return;
    SetClipboardText(Selection(hwnd, d));
    if (msg == WM_COPY) return;
  }
  if (ReadOnly(hwnd)) return;
  const std::wstring paste = msg == WM_PASTE ? ClipboardText() : std::wstring();
  if (msg == WM_PASTE && paste.empty()) return;
  if (Replace(hwnd, d, paste)) NotifyParent(hwnd, EN_CHANGE);
}

LRESULT DialogCode(HWND hwnd, MultiLineData* d, const MSG* msg) {
  LRESULT code = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
  if (!msg || msg->message != WM_KEYDOWN) return code;
  switch (msg->wParam) {
    case VK_UP:
    case VK_DOWN:
      if (CaretOnEdgeRow(hwnd, d, msg->wParam == VK_UP)) code &= ~DLGC_WANTARROWS;
      break;
    case VK_RETURN:
      if (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_WANTRETURN) code |= DLGC_WANTALLKEYS;
      break;
    default:
      break;
  }
  return code;
}

// The visible-row number of a position, and a position from one (-1: the caret's).
LRESULT LineFromChar(HWND hwnd, MultiLineData* d, WPARAM pos) {
  FitLayout(hwnd, d);
  std::wstring_view text = MultiLineText(hwnd);
  const size_t at = static_cast<LONG_PTR>(pos) < 0 ? d->caret : std::min<size_t>(pos, text.size());
  return static_cast<LRESULT>(d->layout.RowsBefore(text, d->layout.RowOf(text, at)));
}

LRESULT LineIndex(HWND hwnd, MultiLineData* d, WPARAM line) {
  FitLayout(hwnd, d);
  std::wstring_view text = MultiLineText(hwnd);
  if (static_cast<LONG_PTR>(line) < 0) {
    return static_cast<LRESULT>(d->layout.RowStart(text, d->layout.RowOf(text, d->caret)));
  }
  if (line >= d->layout.RowCount(text)) return -1;
  return static_cast<LRESULT>(d->layout.RowStart(text, d->layout.RowAt(text, line)));
}

void SetSelection(HWND hwnd, MultiLineData* d, WPARAM wparam, LPARAM lparam) {
  // (0, -1) selects everything; a start of -1 removes the selection.
  const size_t size = TextRef(hwnd).size();
  const auto start = static_cast<LONG_PTR>(wparam);
  if (start < 0) {
    d->anchor = d->caret;
  } else {
    d->anchor = std::min(static_cast<size_t>(start), size);
    d->caret = lparam < 0 ? size : std::min(static_cast<size_t>(lparam), size);
  }
  d->goal = -1;
  ScrollToCaret(hwnd, d);
}

LRESULT OnEditMessage(HWND hwnd, MultiLineData* d, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case EM_GETSEL: {
      auto from = static_cast<DWORD>(std::min(d->anchor, d->caret));
      auto to = static_cast<DWORD>(std::max(d->anchor, d->caret));
      if (wparam) *reinterpret_cast<DWORD*>(wparam) = from;
      if (lparam) *reinterpret_cast<DWORD*>(lparam) = to;
      return static_cast<LRESULT>(MAKELONG(static_cast<WORD>(from), static_cast<WORD>(to)));
    }
    case EM_SETSEL: SetSelection(hwnd, d, wparam, lparam); return TRUE;
    case EM_REPLACESEL:
      if (lparam) Replace(hwnd, d, reinterpret_cast<LPCWSTR>(lparam));
      return 0;
    case EM_LIMITTEXT: d->limit = wparam ? static_cast<size_t>(wparam) : kLargestLimit; return 0;
    case EM_GETLIMITTEXT: return static_cast<LRESULT>(d->limit);
    case EM_GETLINECOUNT: FitLayout(hwnd, d); return static_cast<LRESULT>(d->layout.RowCount(MultiLineText(hwnd)));
    case EM_LINEINDEX: return LineIndex(hwnd, d, wparam);
    case EM_LINEFROMCHAR: return LineFromChar(hwnd, d, wparam);
    case EM_GETFIRSTVISIBLELINE:
      FitLayout(hwnd, d);
      return static_cast<LRESULT>(d->layout.RowsBefore(MultiLineText(hwnd), d->top));
    case EM_LINESCROLL:
      if (lparam) ScrollRows(hwnd, d, static_cast<long>(lparam));
      if (wparam && !d->wrap) {
        d->hscroll = std::max(0, d->hscroll + static_cast<int>(static_cast<LONG_PTR>(wparam)));
        MarkScreenDirty();
      }
      return TRUE;
    case EM_SCROLL: {
      const long page = std::max(1, d->rows_shown - 1);
      const long rows = wparam == kLineUp ? -1 : wparam == kLineDown ? 1
                        : wparam == SB_PAGEUP ? -page : wparam == SB_PAGEDOWN ? page : 0;
      if (rows) ScrollRows(hwnd, d, rows);
      return rows ? MAKELONG(static_cast<WORD>(rows), 1) : 0;
    }
    case EM_SCROLLCARET: ScrollToCaret(hwnd, d); return TRUE;
    case EM_SETREADONLY: {
      const LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
      SetWindowLongPtrW(hwnd, GWL_STYLE, wparam ? style | ES_READONLY : style & ~static_cast<LONG_PTR>(ES_READONLY));
      MarkScreenDirty();
      return TRUE;
    }
    case EM_GETMODIFY: return d->modified ? TRUE : FALSE;
    case EM_SETMODIFY: d->modified = wparam != 0; return 0;
    case EM_FMTLINES:
      d->wrap = wparam != 0;
      d->hscroll = 0;
      ScrollToCaret(hwnd, d);
      return d->wrap ? TRUE : FALSE;
    default: return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace

MultiLineData* MultiLineOf(HWND hwnd) { return ControlOf<MultiLineData>(hwnd); }

std::wstring_view MultiLineText(HWND hwnd) { return TextRef(hwnd); }

LRESULT MultiLineEditProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) {
      auto data = std::make_unique<MultiLineData>();
      data->wrap = !(w->style & WS_HSCROLL);
      data->limit = std::max(kDefaultLimit, w->text.size());
      data->layout.Reset(w->text);
      w->control = std::move(data);
    }
    return TRUE;
  }
  MultiLineData* d = MultiLineOf(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  switch (msg) {
    case WM_PAINT: PaintMultiLine(hwnd); return 0;
    case WM_GETDLGCODE: return DialogCode(hwnd, d, reinterpret_cast<const MSG*>(lparam));
    case WM_CHAR: OnChar(hwnd, d, static_cast<wchar_t>(wparam)); return 0;
    case WM_KEYDOWN:
      if (wparam == VK_DELETE) {
        DeleteForward(hwnd, d);
      } else {
        MoveCaretByKey(hwnd, d, static_cast<UINT>(wparam));
      }
      return 0;
    case WM_SETTEXT: {
      const LRESULT result = DefWindowProcW(hwnd, msg, wparam, lparam);
      if ((d = MultiLineOf(hwnd))) {
        d->layout.Reset(TextRef(hwnd));
        d->limit = std::max(d->limit, TextRef(hwnd).size());
        d->caret = d->anchor = 0;
        d->top = RowPos{};
        d->hscroll = 0;
        d->goal = -1;
        d->modified = false;
      }
      return result;
    }
    case WM_SIZE: ScrollToCaret(hwnd, d); return DefWindowProcW(hwnd, msg, wparam, lparam);
    case WM_SETFOCUS:
      CreateCaret(hwnd, nullptr, 1, 1);
      ShowCaret(hwnd);
      MarkScreenDirty();
      NotifyParent(hwnd, EN_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      DestroyCaret();
      NotifyParent(hwnd, EN_KILLFOCUS);
      return 0;
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR: OnClipboard(hwnd, d, msg); return 0;
    default: return OnEditMessage(hwnd, d, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
