// PickDateInCalendar: the month calendar as a full-screen modal dialog.
#include <string>

#include "platform/ui/dialog.h"
#include "platform/ui/messages.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/resource_strings.h"
#include "platform/ui/month_calendar.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr int kCalendarId = 100;
constexpr UINT kOkText = 61000, kCancelText = 61003;
// The soft keys' commands, told apart from Enter's IDOK.
constexpr UINT kChooseKey = 0x7F11, kCancelKey = 0x7F12;

const DLGITEMTEMPLATEW kItems[] = {
    {MONTHCAL_CLASSW, L"", kCalendarId, WS_TABSTOP, 0, 0, 0, 0},
};

void Choose(HWND dialog) {
  auto* date = reinterpret_cast<SYSTEMTIME*>(GetWindowLongPtrW(dialog, DWLP_USER));
  SYSTEMTIME day{};
  if (date && SendDlgItemMessageW(dialog, kCalendarId, MCM_GETCURSEL, 0,
                                  reinterpret_cast<LPARAM>(&day))) {
    date->wYear = day.wYear;
    date->wMonth = day.wMonth;
    date->wDay = day.wDay;
    date->wDayOfWeek = day.wDayOfWeek;
  }
  EndDialog(dialog, IDOK);
}

INT_PTR CalendarProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      SendDlgItemMessageW(dialog, kCalendarId, MCM_SETCURSEL, 0, lparam);
      std::wstring ok = velmo::ui::ResourceText(kOkText);
      std::wstring cancel = velmo::ui::ResourceText(kCancelText);
      SOFTKEY left{ok.c_str(), kChooseKey, nullptr};
      SOFTKEY right{cancel.c_str(), kCancelKey, nullptr};
      CreateSoftKeyBar(dialog, &left, &right);
      return TRUE;
    }
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lparam)->code == MCN_SELECT) Choose(dialog);
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK || LOWORD(wparam) == kChooseKey) Choose(dialog);
      if (LOWORD(wparam) == IDCANCEL || LOWORD(wparam) == kCancelKey) EndDialog(dialog, IDCANCEL);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace
}  // namespace velmo::ui::internal

bool PickDateInCalendar(HWND owner, LPCWSTR title, SYSTEMTIME* date) {
  using namespace velmo::ui::internal;
  if (!date) return false;
  const DLGTEMPLATEW tmpl{title ? title : L"", 0, 0, 0, kItems, 1};
  return DialogBoxIndirectParamW(nullptr, &tmpl, owner, CalendarProc,
                                 reinterpret_cast<LPARAM>(date)) == IDOK;
}
