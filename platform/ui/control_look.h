// What the small built-in controls (check box, spinner list, up-down, date
// picker, month calendar) share: their colours by state and their ways of
// telling the parent. Internal to the window system.
#pragma once

#include "platform/ui/types.h"

namespace velmo::ui::internal {

struct ControlColours {
  int fg;  // system colour indexes
  int bg;
};

// Greyed when disabled, highlighted when `marked` (the control or its part
// that has the focus), the window's colours otherwise.
ControlColours ColoursFor(HWND hwnd, bool marked);
// Sets the context's colours (opaque) for the state.
void UseColours(HDC hdc, const ControlColours& colours);
// Fills the rectangle with the state's background.
void FillWith(HDC hdc, const RECT& rect, const ControlColours& colours);

// WM_COMMAND MAKEWPARAM(id, code) to the parent, the control as lParam.
void CommandToParent(HWND hwnd, WORD code);
// WM_NOTIFY with the header filled in; the parent's answer.
LRESULT NotifyParent(HWND hwnd, NMHDR* hdr, UINT code);

}  // namespace velmo::ui::internal

namespace velmo::ui::internal {

// Between a spinner list and its up-down: the list learns which up-down steps
// it (wParam: the up-down, or 0), and asks it to step by wParam (an int).
constexpr UINT kListBoxSetUpDown = 0x04F0;
constexpr UINT kUpDownStep = 0x04F1;

}  // namespace velmo::ui::internal
