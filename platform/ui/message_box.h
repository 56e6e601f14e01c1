// The message box: a framed box centred over the screen with its caption, a
// sign for its kind (MB_ICONHAND a red "✖", MB_ICONQUESTION a blue "?",
// MB_ICONEXCLAMATION an amber "!", MB_ICONINFORMATION a blue "i") and the text,
// wrapped. The answers are on the soft keys ("OK"; "Yes" and "No"; "OK" and
// "Cancel"). Enter gives the default answer, Esc (and WM_COMMAND IDCANCEL from
// outside) the cancelling one: IDCANCEL when there is a Cancel, IDNO for Yes/No,
// IDOK for OK alone. Modal: the owner stays disabled until the answer.
#pragma once

#include "platform/ui/types.h"

constexpr UINT MB_OK = 0x00000000;
constexpr UINT MB_OKCANCEL = 0x00000001;
constexpr UINT MB_YESNOCANCEL = 0x00000003;
constexpr UINT MB_YESNO = 0x00000004;
constexpr UINT MB_RETRYCANCEL = 0x00000005;
constexpr UINT MB_ICONHAND = 0x00000010;
constexpr UINT MB_ICONERROR = MB_ICONHAND;
constexpr UINT MB_ICONSTOP = MB_ICONHAND;
constexpr UINT MB_ICONQUESTION = 0x00000020;
constexpr UINT MB_ICONEXCLAMATION = 0x00000030;
constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
constexpr UINT MB_ICONASTERISK = 0x00000040;
constexpr UINT MB_ICONINFORMATION = MB_ICONASTERISK;
constexpr UINT MB_DEFBUTTON1 = 0x00000000;
constexpr UINT MB_DEFBUTTON2 = 0x00000100;
constexpr UINT MB_APPLMODAL = 0x00000000;
constexpr UINT MB_SETFOREGROUND = 0x00010000;
constexpr UINT MB_TOPMOST = 0x00040000;

// Returns IDOK, IDCANCEL, IDYES, IDNO or IDRETRY; 0 when the box cannot be shown.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
