// Dialogs: creation from a template, the dialog window procedure, the dialog
// keys and the modal loop.
#include "platform/ui/dialog.h"

#include <algorithm>
#include <vector>

#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

// A control whose width or height the template counted back from the dialog's
// right or bottom edge keeps that distance when the dialog is resized.
struct Anchored {
  HWND control;
  int cx;  // <= 0: distance from the right edge
  int cy;  // <= 0: distance from the bottom edge
};

struct DialogData : ControlData {
  bool ended = false;
  INT_PTR result = IDCANCEL;
  std::vector<Anchored> anchored;
};

void LayOutAnchored(HWND dialog) {
  auto* data = ControlOf<DialogData>(dialog);
  if (!data) return;
  RECT client;
  GetClientRect(dialog, &client);
  std::vector<Anchored> anchored = data->anchored;
  for (const Anchored& a : anchored) {
    WindowData* w = Find(a.control);
    if (!w) continue;
    RECT r = w->rect;
    int width = a.cx > 0 ? a.cx : client.right - r.left + a.cx;
    int height = a.cy > 0 ? a.cy : client.bottom - r.top + a.cy;
    MoveWindow(a.control, r.left, r.top, width, height, TRUE);
  }
}

struct CreateParams {
  DLGPROC proc;
};

// Messages whose result a dialog procedure returns itself instead of through
// DWLP_MSGRESULT.
bool ReturnsDirectly(UINT msg) {
  return msg == WM_INITDIALOG || msg == WM_DRAWITEM || msg == WM_MEASUREITEM;
}

// By the control's own style: a dialog still hidden has its stops too.
bool IsTabStop(HWND hwnd) {
  LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
  return (style & WS_TABSTOP) && (style & WS_VISIBLE) && !(style & WS_DISABLED);
}

HWND MakeDialog(const DLGTEMPLATEW* tmpl, HWND owner, DLGPROC proc, LPARAM init_param) {
  if (!tmpl || !proc || (tmpl->item_count && !tmpl->items)) return nullptr;
  CreateParams params{proc};
  int x = CW_USEDEFAULT, y = CW_USEDEFAULT, cx = CW_USEDEFAULT, cy = CW_USEDEFAULT;
  bool sized = tmpl->cx > 0 && tmpl->cy > 0;
  if (sized) {
    RECT work = WorkArea();
    cx = std::min<int>(tmpl->cx, work.right - work.left);
    cy = std::min<int>(tmpl->cy, work.bottom - work.top);
    x = work.left + (work.right - work.left - cx) / 2;
    y = work.top + (work.bottom - work.top - cy) / 2;
  }
  HWND dialog = CreateWindowExW(0, WC_DIALOG, tmpl->title ? tmpl->title : L"",
                                (tmpl->style & ~WS_VISIBLE) | WS_POPUP, x, y, cx, cy, owner,
                                nullptr, nullptr, &params);
  if (!dialog) return nullptr;
  if (WindowData* w = Find(dialog)) w->centred = sized;
  RECT client;
  GetClientRect(dialog, &client);
  for (int i = 0; i < tmpl->item_count; ++i) {
    const DLGITEMTEMPLATEW& item = tmpl->items[i];
    int width = item.cx > 0 ? item.cx : client.right - item.x + item.cx;
    int height = item.cy > 0 ? item.cy : client.bottom - item.y + item.cy;
    HWND control = CreateWindowExW(0, item.class_name, item.text ? item.text : L"",
                                   item.style | WS_CHILD | WS_VISIBLE, item.x, item.y, width,
                                   height, dialog,
                                   reinterpret_cast<HMENU>(static_cast<std::intptr_t>(item.id)),
                                   nullptr, nullptr);
    if (!control) {
      DestroyWindow(dialog);
      return nullptr;
    }
    auto* data = ControlOf<DialogData>(dialog);
    if (data && (item.cx <= 0 || item.cy <= 0)) {
      data->anchored.push_back(Anchored{control, item.cx, item.cy});
    }
  }
  HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
  if (SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), init_param)) {
    SetFocus(first ? first : dialog);
  }
  if (!IsWindow(dialog)) return nullptr;
  ShowWindow(dialog, SW_SHOW);
  return dialog;
}

}  // namespace

LRESULT DialogWindowProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  WindowData* w = Find(hwnd);
  if (!w) return 0;
  if (msg == WM_NCCREATE) {
    w->is_dialog = true;
    w->control = std::make_unique<DialogData>();
    auto* cs = reinterpret_cast<CREATESTRUCTW*>(lparam);
    if (cs && cs->lpCreateParams) {
      w->dlg_proc = static_cast<CreateParams*>(cs->lpCreateParams)->proc;
    }
    return TRUE;
  }
  if (DLGPROC proc = w->dlg_proc) {
    w->dlg_msg_result = 0;
    INT_PTR handled = proc(hwnd, msg, wparam, lparam);
    if (handled) {
      if (ReturnsDirectly(msg)) return handled;
      WindowData* now = Find(hwnd);
      return now ? now->dlg_msg_result : 0;
    }
  }
  return DefDlgProcW(hwnd, msg, wparam, lparam);
}

INT_PTR RunModalDialog(HWND dialog, HWND owner) {
  bool disabled_owner = owner && IsWindowEnabled(owner);
  if (disabled_owner) EnableWindow(owner, FALSE);
  MSG msg;
  for (;;) {
    auto* data = ControlOf<DialogData>(dialog);
    if (!data || data->ended) break;
    if (!GetMessageW(&msg, nullptr, 0, 0)) {
      PostQuitMessage(static_cast<int>(msg.wParam));
      break;
    }
    if (!IsDialogMessageW(dialog, &msg)) {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
    }
  }
  auto* data = ControlOf<DialogData>(dialog);
  INT_PTR result = data && data->ended ? data->result : IDCANCEL;
  if (disabled_owner && IsWindow(owner)) EnableWindow(owner, TRUE);
  if (IsWindow(dialog)) DestroyWindow(dialog);
  if (owner && IsWindow(owner)) SetForegroundWindow(owner);
  return result;
}

}  // namespace velmo::ui::internal

INT_PTR DialogBoxIndirectParamW(HINSTANCE, const DLGTEMPLATEW* dialog, HWND owner, DLGPROC proc,
                                LPARAM init_param) {
  HWND top_owner = velmo::ui::internal::TopLevelOf(owner);
  HWND hwnd = velmo::ui::internal::MakeDialog(dialog, top_owner, proc, init_param);
  if (!hwnd) return -1;
  return velmo::ui::internal::RunModalDialog(hwnd, top_owner);
}

HWND CreateDialogIndirectParamW(HINSTANCE, const DLGTEMPLATEW* dialog, HWND owner, DLGPROC proc,
                                LPARAM init_param) {
  return velmo::ui::internal::MakeDialog(dialog, velmo::ui::internal::TopLevelOf(owner), proc,
                                         init_param);
}

BOOL EndDialog(HWND dialog, INT_PTR result) {
  auto* data = velmo::ui::internal::ControlOf<velmo::ui::internal::DialogData>(dialog);
  if (!data) return FALSE;
  data->ended = true;
  data->result = result;
  // The modal loop may be waiting for input that never comes (a dialog ended
  // from a socket or a timer): a message of no meaning wakes it to see the end.
  PostMessageW(dialog, WM_NULL, 0, 0);
  return TRUE;
}

BOOL IsDialogMessageW(HWND dialog, MSG* msg) {
  if (!msg || !IsWindow(dialog) || !(msg->hwnd == dialog || IsChild(dialog, msg->hwnd))) {
    return FALSE;
  }
  if (msg->message == WM_KEYDOWN) {
    UINT vk = static_cast<UINT>(msg->wParam);
    LRESULT code = msg->hwnd == dialog ? 0
                                       : SendMessageW(msg->hwnd, WM_GETDLGCODE, vk,
                                                      reinterpret_cast<LPARAM>(msg));
    if (!(code & DLGC_WANTALLKEYS)) {
      switch (vk) {
        case VK_RETURN:
          SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, 0), 0);
          return TRUE;
        case VK_ESCAPE:
          SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, 0), 0);
          return TRUE;
        case VK_UP:
        case VK_DOWN:
        case VK_TAB:
          if (vk == VK_TAB || !(code & DLGC_WANTARROWS)) {
            HWND focus = GetFocus();
            HWND next = GetNextDlgTabItem(dialog, IsChild(dialog, focus) ? focus : nullptr,
                                          vk == VK_UP);
            if (next) SetFocus(next);
            return TRUE;
          }
          break;
        default:
          break;
      }
    }
  }
  TranslateMessage(msg);
  DispatchMessageW(msg);
  return TRUE;
}

LRESULT DefDlgProcW(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_CLOSE:
      SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, 0), 0);
      return 0;
    case WM_SIZE:
      velmo::ui::internal::LayOutAnchored(dialog);
      return 0;
    case WM_ERASEBKGND: {
      RECT rc;
      GetClientRect(dialog, &rc);
      FillRect(reinterpret_cast<HDC>(wparam), &rc, GetSysColorBrush(COLOR_WINDOW));
      return 1;
    }
    case WM_ACTIVATE: {
      velmo::ui::internal::WindowData* w = velmo::ui::internal::Find(dialog);
      if (LOWORD(wparam) != WA_INACTIVE && w &&
          !(w->last_focus && IsWindow(w->last_focus) && IsWindowVisible(w->last_focus))) {
        HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
        SetFocus(first ? first : dialog);
        return 0;
      }
      return DefWindowProcW(dialog, msg, wparam, lparam);
    }
    default:
      return DefWindowProcW(dialog, msg, wparam, lparam);
  }
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT msg, WPARAM wparam, LPARAM lparam) {
  HWND item = GetDlgItem(dialog, id);
  return item ? SendMessageW(item, msg, wparam, lparam) : 0;
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text) {
  return SetWindowTextW(GetDlgItem(dialog, id), text);
}

UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int max) {
  return static_cast<UINT>(GetWindowTextW(GetDlgItem(dialog, id), buffer, max));
}

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
  std::vector<HWND> stops;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (velmo::ui::internal::IsTabStop(child)) stops.push_back(child);
  }
  if (stops.empty()) return nullptr;
  auto it = std::find(stops.begin(), stops.end(), control);
  if (it == stops.end()) return previous ? stops.back() : stops.front();
  long n = static_cast<long>(stops.size());
  long at = (it - stops.begin() + (previous ? n - 1 : 1)) % n;
  return stops[static_cast<size_t>(at)];
}
