// The spinner list: a one-line list box (class WC_LISTBOXW) whose current entry
// is shown, with an up-down buddy (class UPDOWN_CLASSW) that steps through the
// entries. Left/Right (and the buddy's arrows) select the previous or next entry,
// wrapping around with UDS_WRAP; the parent hears WM_COMMAND
// MAKEWPARAM(id, LBN_SELCHANGE). Up/Down are left to the dialog.
//
// The up-down control is also a control of its own: given a buddy (UDM_SETBUDDY
// or UDS_AUTOBUDDY, the control made just before it) it draws "<" ">" marks
// beside the buddy and sends the parent WM_NOTIFY UDN_DELTAPOS (NMUPDOWN) when
// stepped; a non-zero result from the parent cancels the step.
//
// Layout: the marks take the cell just before and the cell just after the
// buddy, wherever the buddy is moved; a dialog table leaves those two cells
// free ("◂Normal    ▸"), and the up-down's own cells may be anything (1 x 1).
// The marks are greyed with a disabled buddy or up-down, and highlighted with
// a focused buddy. With UDS_ARROWKEYS an up-down whose buddy is not a spinner
// list (a number field) takes the buddy's Left/Right keys; a spinner list
// always passes its Left/Right to its up-down. UDM_SETRANGE takes
// MAKELPARAM(upper, lower); for a spinner list the range is its entries.
#pragma once

#include "platform/ui/types.h"

constexpr wchar_t WC_LISTBOXW[] = L"ListBox";
constexpr wchar_t UPDOWN_CLASSW[] = L"msctls_updown32";

// List box.
constexpr DWORD LBS_NOTIFY = 0x0001;
constexpr UINT LB_ADDSTRING = 0x0180;
constexpr UINT LB_INSERTSTRING = 0x0181;
constexpr UINT LB_DELETESTRING = 0x0182;
constexpr UINT LB_RESETCONTENT = 0x0184;
constexpr UINT LB_SETCURSEL = 0x0186;
constexpr UINT LB_GETCURSEL = 0x0188;
constexpr UINT LB_GETTEXT = 0x0189;
constexpr UINT LB_GETTEXTLEN = 0x018A;
constexpr UINT LB_GETCOUNT = 0x018B;
constexpr UINT LB_GETITEMDATA = 0x0199;
constexpr UINT LB_SETITEMDATA = 0x019A;
constexpr LRESULT LB_ERR = -1;
constexpr WORD LBN_SELCHANGE = 1;

// Up-down.
constexpr DWORD UDS_WRAP = 0x0001;
constexpr DWORD UDS_SETBUDDYINT = 0x0002;
constexpr DWORD UDS_ALIGNRIGHT = 0x0004;
constexpr DWORD UDS_AUTOBUDDY = 0x0010;
constexpr DWORD UDS_ARROWKEYS = 0x0020;
constexpr DWORD UDS_HORZ = 0x0040;
constexpr DWORD UDS_EXPANDABLE = 0x0200;  // the buddy is a spinner list
constexpr UINT WM_USER_UD = 0x0400;
constexpr UINT UDM_SETRANGE = WM_USER_UD + 101;
constexpr UINT UDM_GETRANGE = WM_USER_UD + 102;
constexpr UINT UDM_SETPOS = WM_USER_UD + 103;
constexpr UINT UDM_GETPOS = WM_USER_UD + 104;
constexpr UINT UDM_SETBUDDY = WM_USER_UD + 105;
constexpr UINT UDM_GETBUDDY = WM_USER_UD + 106;
constexpr UINT UDN_FIRST = static_cast<UINT>(-721);
constexpr UINT UDN_DELTAPOS = UDN_FIRST - 1;

struct NMUPDOWN {
  NMHDR hdr;
  int iPos;
  int iDelta;
};
