// What the window system's own files share among themselves. The program uses
// the public headers (window.h, message_queue.h, ...), never this one.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/screen.h"
#include "platform/ui/types.h"

namespace velmo::ui::internal {

// State a built-in control keeps with its window; freed with the window.
struct ControlData {
  virtual ~ControlData() = default;
};

struct WindowData {
  HWND handle = nullptr;
  std::wstring class_name;
  WNDPROC proc = nullptr;
  HBRUSH background = nullptr;
  HINSTANCE instance = nullptr;
  std::wstring text;
  DWORD style = 0;
  DWORD ex_style = 0;
  HWND parent = nullptr;  // child windows only
  HWND owner = nullptr;   // top-level windows only
  std::vector<HWND> children;  // in creation order
  RECT rect{};  // in the parent's client coordinates; top-level: screen
  LONG_PTR user_data = 0;
  LONG_PTR id = 0;
  bool is_dialog = false;
  LONG_PTR dlg_msg_result = 0;
  LONG_PTR dlg_user = 0;
  DLGPROC dlg_proc = nullptr;
  bool fills_work_area = false;  // top-level windows made with CW_USEDEFAULT
  bool centred = false;          // kept centred in the work area on resize
  bool destroying = false;
  HWND last_focus = nullptr;  // top-level: the focus to give back on activation
  std::unique_ptr<ControlData> control;
};

// The live window of a handle, or nullptr (destroyed or never made).
WindowData* Find(HWND hwnd);
template <typename T>
T* ControlOf(HWND hwnd) {
  WindowData* w = Find(hwnd);
  return w ? dynamic_cast<T*>(w->control.get()) : nullptr;
}
HWND TopLevelOf(HWND hwnd);
// Top-level windows, bottom of the z-order first.
const std::vector<HWND>& TopLevelWindows();
// The topmost visible top-level window.
HWND ActiveWindow();
// Sends WM_ACTIVATE when the topmost visible top-level window changed.
void UpdateActivation();
RECT ScreenRectOf(HWND hwnd);
// Calls the window procedure; windows destroyed meanwhile are freed only when
// no procedure is running any more.
LRESULT CallWindow(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
void DestroyAllWindows();
void ResetClasses();
void RegisterBuiltInClasses();

// The screen (desktop.cpp).
Screen* CurrentScreen();
void MarkScreenDirty();
bool ScreenDirty();
void PaintScreen();
RECT WorkArea();
void HandleResize();
// Something drawn above every window (an open menu).
int AddOverlay(std::function<void(Screen&)> paint);
void RemoveOverlay(int id);
void ResetDesktop();

// Drawing contexts (gdi.cpp).
HDC CreateWindowDC(HWND hwnd);
void FreeDC(HDC hdc);
void ResetGdi();
// Draws a text at client (x, y) in the DC's colours; returns the columns used.
int DrawCells(HDC hdc, int x, int y, std::wstring_view text);
// A frame of line characters around the rectangle's edge.
void DrawFrame(HDC hdc, const RECT& rect, COLORREF fg, COLORREF bg);

// The message queue (message_queue.cpp).
void PostFront(const MSG& msg);
void PostBack(const MSG& msg);
void ResetQueue();

// Timers (timers.cpp).
bool TakeDueTimer(MSG* msg, HWND filter, bool remove);
// Milliseconds until the next timer is due, 0 when one is due, -1 without timers.
long MillisUntilNextTimer();
void RemoveTimersOf(HWND hwnd);
void ResetTimers();

// Keys (input.cpp).
void RouteInput(const InputEvent& event);
bool FindHotKey(UINT vk, HWND* hwnd, int* id, UINT* modifiers);
void RemoveHotKeysOf(HWND hwnd);
void ResetHotKeys();

// Menus (menu_track.cpp).
bool MenuTracking();

// The soft-key bar (softkey_bar.cpp).
HWND SoftKeyBarFor(HWND top_level);
void PaintSoftKeyBar(Screen& screen, HWND bar, int row);

// The built-in controls' window procedures.
constexpr wchar_t kSoftKeyBarClass[] = L"velmo_SoftKeyBar";
LRESULT ListViewProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT EditProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT DialogWindowProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT StaticProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT SoftKeyBarProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT CheckBoxProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT ListBoxProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT UpDownProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT DatePickerProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT MonthCalProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);

// Dialogs (dialog.cpp): runs the modal loop of a dialog until EndDialog.
INT_PTR RunModalDialog(HWND dialog, HWND owner);

// Wraps a text into lines of at most `width` columns, breaking at spaces and
// at line breaks.
std::vector<std::wstring> WrapText(std::wstring_view text, int width);

}  // namespace velmo::ui::internal
