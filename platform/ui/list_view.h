// The list view (class WC_LISTVIEWW): one column of rows, each bound to an
// lParam (the program's record), with selected and focused states.
//
// With LVS_OWNERDRAWFIXED the parent paints each visible row on WM_DRAWITEM
// (DRAWITEMSTRUCT: hDC, rcItem, itemID, itemState ODS_SELECTED/ODS_FOCUS,
// itemData = the row's lParam); the row has been filled beforehand with the
// selection colour or the window colour, and the context's text colour set to
// match. Rows are WM_MEASUREITEM's itemHeight lines tall (1 by default;
// LVM_SETROWHEIGHT changes it later). Without rows the list shows its window
// text ("No matches ..."), centred on its first line.
//
// Keys: every key-down is first reported to the parent as LVN_KEYDOWN; then
// Up/Down move the selection by one row, VK_PRIOR/VK_NEXT by a page (first to
// the edge of the page, then a page further), VK_HOME/VK_END to the first/last
// row; Enter reports LVN_ITEMACTIVATE. Selection changes are reported as
// LVN_ITEMCHANGED. The list never wraps around.
#pragma once

#include "platform/ui/messages.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/types.h"

constexpr wchar_t WC_LISTVIEWW[] = L"SysListView32";

constexpr DWORD LVS_REPORT = 0x0001;
constexpr DWORD LVS_SINGLESEL = 0x0004;
constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
constexpr DWORD LVS_OWNERDRAWFIXED = 0x0400;
constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;

constexpr UINT LVIF_TEXT = 0x0001;
constexpr UINT LVIF_IMAGE = 0x0002;
constexpr UINT LVIF_PARAM = 0x0004;
constexpr UINT LVIF_STATE = 0x0008;

constexpr UINT LVIS_FOCUSED = 0x0001;
constexpr UINT LVIS_SELECTED = 0x0002;

constexpr UINT LVNI_ALL = 0x0000;
constexpr UINT LVNI_FOCUSED = 0x0001;
constexpr UINT LVNI_SELECTED = 0x0002;

constexpr UINT LVFI_PARAM = 0x0001;
constexpr int LVIR_BOUNDS = 0;

struct LVITEMW {
  UINT mask;
  int iItem;
  int iSubItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  LPARAM lParam;
};

struct LVFINDINFOW {
  UINT flags;
  LPCWSTR psz;
  LPARAM lParam;
};

struct NMLISTVIEW {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
};

struct NMITEMACTIVATE {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
  UINT uKeyFlags;
};

struct NMLVKEYDOWN {
  NMHDR hdr;
  WORD wVKey;
  UINT flags;
};

constexpr UINT LVM_FIRST = 0x1000;
constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;
constexpr UINT LVM_DELETEITEM = LVM_FIRST + 8;
constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;
constexpr UINT LVM_GETNEXTITEM = LVM_FIRST + 12;
constexpr UINT LVM_GETITEMRECT = LVM_FIRST + 14;
constexpr UINT LVM_ENSUREVISIBLE = LVM_FIRST + 19;
constexpr UINT LVM_REDRAWITEMS = LVM_FIRST + 21;
constexpr UINT LVM_GETTOPINDEX = LVM_FIRST + 39;
constexpr UINT LVM_GETCOUNTPERPAGE = LVM_FIRST + 40;
constexpr UINT LVM_SETITEMSTATE = LVM_FIRST + 43;
constexpr UINT LVM_GETITEMSTATE = LVM_FIRST + 44;
constexpr UINT LVM_SORTITEMS = LVM_FIRST + 48;
constexpr UINT LVM_GETSELECTEDCOUNT = LVM_FIRST + 50;
constexpr UINT LVM_GETITEMW = LVM_FIRST + 75;
constexpr UINT LVM_SETITEMW = LVM_FIRST + 76;
constexpr UINT LVM_INSERTITEMW = LVM_FIRST + 77;
constexpr UINT LVM_FINDITEMW = LVM_FIRST + 83;
// This platform's: wParam = lines per row (1 or more).
constexpr UINT LVM_SETROWHEIGHT = LVM_FIRST + 240;

constexpr UINT LVN_FIRST = 0u - 100u;
constexpr UINT LVN_ITEMCHANGED = LVN_FIRST - 1;
constexpr UINT LVN_ITEMACTIVATE = LVN_FIRST - 14;
constexpr UINT LVN_KEYDOWN = LVN_FIRST - 55;

inline int ListView_InsertItem(HWND lv, const LVITEMW* item) {
  return static_cast<int>(SendMessageW(lv, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(item)));
}
inline BOOL ListView_DeleteItem(HWND lv, int i) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_DELETEITEM, static_cast<WPARAM>(i), 0));
}
inline BOOL ListView_DeleteAllItems(HWND lv) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_DELETEALLITEMS, 0, 0));
}
inline int ListView_GetItemCount(HWND lv) {
  return static_cast<int>(SendMessageW(lv, LVM_GETITEMCOUNT, 0, 0));
}
inline BOOL ListView_GetItem(HWND lv, LVITEMW* item) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}
inline BOOL ListView_SetItem(HWND lv, const LVITEMW* item) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}
// i -1: every row.
inline BOOL ListView_SetItemState(HWND lv, int i, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  return static_cast<BOOL>(
      SendMessageW(lv, LVM_SETITEMSTATE, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item)));
}
inline UINT ListView_GetItemState(HWND lv, int i, UINT mask) {
  return static_cast<UINT>(SendMessageW(lv, LVM_GETITEMSTATE, static_cast<WPARAM>(i), mask));
}
// The next row after `start` (-1: from the first) having the flags, or -1.
inline int ListView_GetNextItem(HWND lv, int start, UINT flags) {
  return static_cast<int>(SendMessageW(lv, LVM_GETNEXTITEM, static_cast<WPARAM>(start), flags));
}
inline BOOL ListView_EnsureVisible(HWND lv, int i, BOOL partial) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_ENSUREVISIBLE, static_cast<WPARAM>(i), partial));
}
inline BOOL ListView_SortItems(HWND lv, PFNLVCOMPARE compare, LPARAM sort_param) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_SORTITEMS, static_cast<WPARAM>(sort_param),
                                        reinterpret_cast<LPARAM>(compare)));
}
inline int ListView_FindItem(HWND lv, int start, const LVFINDINFOW* find) {
  return static_cast<int>(SendMessageW(lv, LVM_FINDITEMW, static_cast<WPARAM>(start),
                                       reinterpret_cast<LPARAM>(find)));
}
inline int ListView_GetTopIndex(HWND lv) {
  return static_cast<int>(SendMessageW(lv, LVM_GETTOPINDEX, 0, 0));
}
inline int ListView_GetCountPerPage(HWND lv) {
  return static_cast<int>(SendMessageW(lv, LVM_GETCOUNTPERPAGE, 0, 0));
}
inline UINT ListView_GetSelectedCount(HWND lv) {
  return static_cast<UINT>(SendMessageW(lv, LVM_GETSELECTEDCOUNT, 0, 0));
}
inline BOOL ListView_RedrawItems(HWND lv, int first, int last) {
  return static_cast<BOOL>(
      SendMessageW(lv, LVM_REDRAWITEMS, static_cast<WPARAM>(first), static_cast<LPARAM>(last)));
}
inline BOOL ListView_GetItemRect(HWND lv, int i, RECT* rect, int code) {
  if (rect) rect->left = code;
  return static_cast<BOOL>(
      SendMessageW(lv, LVM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(rect)));
}
inline BOOL ListView_SetRowHeight(HWND lv, int lines) {
  return static_cast<BOOL>(SendMessageW(lv, LVM_SETROWHEIGHT, static_cast<WPARAM>(lines), 0));
}
