// What the task store tells the user and the main window: a message box, and
// the announcement of a direct write (WM_APP + 3, wParam 1030, lParam the task's
// object identifier) after which the main window re-reads that task.
#pragma once

#include <string_view>

#include "platform/wintypes.h"

namespace velmo {

constexpr UINT kMsgTaskWritten = WM_APP + 3;
constexpr WPARAM kTaskWrittenCode = 1030;
constexpr UINT kStyleInformation = 64;  // MB_ICONINFORMATION
constexpr UINT kStyleError = 16;        // MB_ICONHAND

// A message box owned by `owner`; without a screen, a line on standard error.
void ShowStoreMessage(HWND owner, std::wstring_view text, std::wstring_view caption, UINT style);

// Posts kMsgTaskWritten for `oid` to `window` (nothing without a window).
void PostTaskWritten(HWND window, CEOID oid);

// The message of a failed object-model save: string 345 for an item whose
// record is gone (0x80070057), else "Error %1" with the result.
std::wstring ObjectModelFailureText(HRESULT result);

}  // namespace velmo
