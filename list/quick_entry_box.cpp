// The entry box: the edit control with its keys taken over for quick entry.
#include "list/quick_entry_box.h"

#include <string>

#include "categories/category_state.h"
#include "list/quick_entry.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_messages.h"

namespace velmo {
namespace {

constexpr UINT kIdleText = 805;         // "Enter new task here"
constexpr UINT kProgramCaption = 121;   // "Velmo ToDo List"
constexpr UINT kCmdCallHistory = 40092;

struct BoxData {
  WNDPROC original = nullptr;
  HWND list = nullptr;
};

BoxData* Data(HWND box) { return reinterpret_cast<BoxData*>(GetWindowLongPtrW(box, GWLP_USERDATA)); }

std::wstring BoxText(HWND box) {
  int length = GetWindowTextLengthW(box);
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  GetWindowTextW(box, text.data(), length + 1);
  text.resize(static_cast<size_t>(length));
  return text;
}

void Command(HWND box, UINT command) {
  SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(static_cast<WORD>(command), 0), 0);
}

void EnterMode(HWND box, BoxData* d) {
  CurrentQuickEntry() = StartQuickEntryMode(CurrentSettings(), CurrentFilterText());
  SetWindowTextW(box, L"");
  if (d->list) EnableWindow(d->list, FALSE);
  SendMessageW(GetParent(box), kMsgQuickEntryMode, 1, 0);
}

// Up or Down: with text the task is made; on an empty box Down leaves for the
// first task and Up, with wrap-around scrolling, for the last.
void VerticalKey(HWND box, UINT vk) {
  if (!BoxText(box).empty()) {
    CommitQuickEntry(box);
    return;
  }
  if (vk == VK_DOWN) {
    LeaveQuickEntryMode(box);
    Command(box, kCmdFirstTask);
  } else if (CurrentSettings().no_end_scroll == 1) {
    LeaveQuickEntryMode(box);
    Command(box, kCmdLastTask);
  }
}

LRESULT BoxProc(HWND box, UINT msg, WPARAM wparam, LPARAM lparam) {
  BoxData* d = Data(box);
  if (!d) return DefWindowProcW(box, msg, wparam, lparam);
  WNDPROC original = d->original;
  switch (msg) {
    case WM_SETFOCUS:
      if (!CurrentQuickEntry().active) EnterMode(box, d);
      break;
    case WM_KEYDOWN:
      switch (wparam) {
        case VK_RETURN:
          Command(box, kCmdQuickEntryEnter);
          return 0;
        case VK_UP:
        case VK_DOWN:
          VerticalKey(box, static_cast<UINT>(wparam));
          return 0;
        case VK_TTALK:
          Command(box, kCmdCallHistory);
          return 0;
        default:
          break;
      }
      break;
    case WM_NCDESTROY:
      SetWindowLongPtrW(box, GWLP_USERDATA, 0);
      delete d;
      break;
    default:
      break;
  }
  return CallWindowProcW(original, box, msg, wparam, lparam);
}

}  // namespace

HWND CreateQuickEntryBox(HWND parent, int id, HWND list, const RECT& where) {
  HWND box = CreateWindowExW(0, WC_EDITW, res::Text(kIdleText).c_str(),
                             WS_CHILD | WS_VISIBLE | ES_LEFT | ES_AUTOHSCROLL, where.left,
                             where.top, where.right - where.left, where.bottom - where.top,
                             parent, reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id)),
                             nullptr, nullptr);
  if (!box) return nullptr;
  auto* d = new BoxData;
  d->list = list;
  d->original = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(box, GWLP_WNDPROC));
  SetWindowLongPtrW(box, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(d));
  SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(BoxProc));
  return box;
}

void LeaveQuickEntryMode(HWND box) {
  CurrentQuickEntry() = QuickEntryMode{};
  SetWindowTextW(box, res::Text(kIdleText).c_str());
  SendMessageW(GetParent(box), kMsgQuickEntryMode, 0, 0);
  BoxData* d = Data(box);
  if (d && d->list) {
    EnableWindow(d->list, TRUE);
    SetFocus(d->list);
  }
}

void QuickEntryBackKey(HWND box) {
  if (BoxText(box).empty()) {
    LeaveQuickEntryMode(box);
    return;
  }
  // The edit's own Backspace: the character before the caret goes.
  BoxData* d = Data(box);
  if (d) CallWindowProcW(d->original, box, WM_CHAR, 0x08, 0);
}

HRESULT CommitQuickEntry(HWND box) {
  std::wstring text = BoxText(box);
  if (text.empty()) return S_FALSE;
  CEOID oid = 0;
  bool save_failed = false;
  HRESULT hr = CreateQuickTask(Store().app, text, CurrentQuickEntry(), CurrentSettings(), &oid,
                               &save_failed);
  if (FAILED(hr)) {
    // A task that could not be made is not reported; a failed save is.
    if (save_failed)
      ShowStoreMessage(GetParent(box), ObjectModelFailureText(hr), res::Text(kProgramCaption),
                     kStyleError);
    return hr;
  }
  LeaveQuickEntryMode(box);
  return S_OK;
}

}  // namespace velmo
