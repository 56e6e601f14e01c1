// Dialogs: a window of the dialog class with its controls made from a template,
// a dialog procedure (TRUE: handled; results of WM_NOTIFY and the like go in
// DWLP_MSGRESULT), and, for DialogBox, a modal loop that keeps the owner
// disabled until EndDialog.
//
// A dialog fills the work area (its title in the title line) unless its template
// gives a size, when it is centred. The dialog's own keys (IsDialogMessageW):
// Enter sends WM_COMMAND IDOK and Esc IDCANCEL to the dialog, Up/Down move the
// focus between WS_TABSTOP controls unless the focused control wants the arrows
// (DLGC_WANTARROWS). A dialog may make its own soft-key bar.
#pragma once

#include "platform/ui/types.h"

constexpr wchar_t WC_DIALOG[] = L"#32770";

// One control: class (WC_EDITW, WC_LISTVIEWW, WC_STATICW, ...), text, identifier,
// style (WS_CHILD and WS_VISIBLE are added) and cells in the dialog. A width or
// height of 0 or less is counted back from the dialog's right or bottom edge,
// and again whenever the dialog is resized (DefDlgProcW's WM_SIZE, so a dialog
// procedure that handles WM_SIZE itself lays its controls out itself).
struct DLGITEMTEMPLATEW {
  LPCWSTR class_name;
  LPCWSTR text;
  int id;
  DWORD style;
  int x;
  int y;
  int cx;
  int cy;
};

// This platform's dialog template: title, size (0 x 0: the work area) and items.
struct DLGTEMPLATEW {
  LPCWSTR title;
  DWORD style;
  int cx;
  int cy;
  const DLGITEMTEMPLATEW* items;
  int item_count;
};

// Runs the dialog modally; returns EndDialog's result, -1 when it could not be made.
INT_PTR DialogBoxIndirectParamW(HINSTANCE instance, const DLGTEMPLATEW* dialog, HWND owner,
                                DLGPROC proc, LPARAM init_param);
// Makes a dialog that is not modal; the caller's loop passes its messages
// through IsDialogMessageW.
HWND CreateDialogIndirectParamW(HINSTANCE instance, const DLGTEMPLATEW* dialog, HWND owner,
                                DLGPROC proc, LPARAM init_param);
BOOL EndDialog(HWND dialog, INT_PTR result);
BOOL IsDialogMessageW(HWND dialog, MSG* msg);
LRESULT DefDlgProcW(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam);

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT msg, WPARAM wparam, LPARAM lparam);
BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int max);
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);

// A line of text (class WC_STATICW): SS_LEFT, SS_CENTER or SS_RIGHT.
constexpr wchar_t WC_STATICW[] = L"Static";
constexpr DWORD SS_LEFT = 0x0000;
constexpr DWORD SS_CENTER = 0x0001;
constexpr DWORD SS_RIGHT = 0x0002;
