// The check box (class WC_BUTTONW with BS_AUTOCHECKBOX): a box and its text on
// one line. Space, Enter or the action key toggle an auto check box; the
// parent hears WM_COMMAND MAKEWPARAM(id, BN_CLICKED) with the box as lParam.
// BS_CHECKBOX only tells the parent; BM_SETCHECK does not notify. Drawn "☐"/"☑"
// and the text, the whole line highlighted while focused, grey when disabled.
#pragma once

#include "platform/ui/types.h"

constexpr wchar_t WC_BUTTONW[] = L"Button";

constexpr DWORD BS_CHECKBOX = 0x0002;
constexpr DWORD BS_AUTOCHECKBOX = 0x0003;

constexpr UINT BM_GETCHECK = 0x00F0;
constexpr UINT BM_SETCHECK = 0x00F1;

constexpr WPARAM BST_UNCHECKED = 0x0000;
constexpr WPARAM BST_CHECKED = 0x0001;

constexpr WORD BN_CLICKED = 0;
