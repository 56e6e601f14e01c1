// The date picker: a picture's fields on one line, typed into field by field,
// with a none state behind a box.
#include "platform/ui/date_picker.h"

#include <string>
#include <vector>

#include "platform/beep.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/ui/calendar_days.h"
#include "platform/ui/control_look.h"
#include "platform/ui/date_picture.h"
#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr wchar_t kBoxGlyph[] = {L'☐', L'☑'};
constexpr wchar_t kBlank = L'-';  // a field's cells while the picker is empty

struct DatePickerData : ControlData {
  std::vector<PictureField> fields;
  SYSTEMTIME value{};
  bool none = false;
  SYSTEMTIME fallback{};  // the date a switch from none takes
  bool has_fallback = false;
  int focus = -1;       // the field with the focus
  std::wstring typed;   // digits typed into it, not yet taken
};

DatePickerData* Data(HWND hwnd) { return ControlOf<DatePickerData>(hwnd); }
bool ShowsNone(HWND hwnd) { return GetWindowLongPtrW(hwnd, GWL_STYLE) & DTS_SHOWNONE; }

std::wstring LocalePicture(LCTYPE type) {
  wchar_t buffer[200] = {};
  return GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer, 200) > 0 ? buffer : L"";
}

std::wstring DefaultPicture(DWORD style) {
  if ((style & DTS_TIMEFORMAT) == DTS_TIMEFORMAT) return LocalePicture(LOCALE_STIMEFORMAT);
  if (style & DTS_LONGDATEFORMAT) return LocalePicture(LOCALE_SLONGDATE);
  return LocalePicture(LOCALE_SSHORTDATE);
}

// The next field the focus stops at from `from` in direction `step`, or `from`.
int NextEditable(const DatePickerData* d, int from, int step) {
  for (int i = from + step; i >= 0 && i < static_cast<int>(d->fields.size()); i += step) {
    if (IsEditable(d->fields[static_cast<size_t>(i)].kind)) return i;
  }
  return from;
}

void SetPicture(DatePickerData* d, std::wstring_view picture) {
  d->fields = ParsePicture(picture);
  d->typed.clear();
  d->focus = NextEditable(d, -1, 1);
  MarkScreenDirty();
}

void NotifyChange(HWND hwnd, const DatePickerData* d) {
  NMDATETIMECHANGE nm{};
  nm.dwFlags = d->none ? GDT_NONE : GDT_VALID;
  nm.st = d->value;
  NotifyParent(hwnd, &nm.nmhdr, DTN_DATETIMECHANGE);
}

// Takes the digits typed into the focused field: in range they become the
// field's value, out of range they are refused with the warning beep.
// True when a value was taken.
bool TakeTyped(HWND hwnd, DatePickerData* d) {
  if (d->typed.empty() || d->focus < 0) return false;
  int value = std::stoi(d->typed);
  d->typed.clear();
  MarkScreenDirty();
  if (!PutTyped(d->fields[static_cast<size_t>(d->focus)], value, &d->value)) {
    MessageBeep(MB_ICONEXCLAMATION);
    return false;
  }
  NotifyChange(hwnd, d);
  return true;
}

void SwitchNone(HWND hwnd, DatePickerData* d, bool none) {
  if (d->none == none) return;
  d->none = none;
  d->typed.clear();
  if (!none) d->value = d->has_fallback ? d->fallback : Today();
  MarkScreenDirty();
  NotifyChange(hwnd, d);
}

void MoveFocus(HWND hwnd, int step) {
  DatePickerData* d = Data(hwnd);
  if (!d || d->none) return;
  TakeTyped(hwnd, d);
  if (!(d = Data(hwnd))) return;
  d->focus = NextEditable(d, d->focus, step);
  MarkScreenDirty();
}

void TypeDigit(HWND hwnd, DatePickerData* d, wchar_t digit) {
  if (d->none) {
    SwitchNone(hwnd, d, false);
    if (!(d = Data(hwnd))) return;
  }
  if (d->focus < 0) return;
  const PictureField& field = d->fields[static_cast<size_t>(d->focus)];
  if (!TakesDigits(field.kind)) return;
  d->typed += digit;
  MarkScreenDirty();
  if (!CouldTakeMore(field, d->value, d->typed) && TakeTyped(hwnd, d) && (d = Data(hwnd))) {
    d->focus = NextEditable(d, d->focus, 1);
  }
}

// 'a' and 'p' choose the half of the day in the AM/PM field.
void TypeMarker(HWND hwnd, DatePickerData* d, wchar_t ch) {
  if (d->none || d->focus < 0 || d->fields[static_cast<size_t>(d->focus)].kind != FieldKind::kMarker) {
    return;
  }
  bool pm = ch == L'p' || ch == L'P';
  if (!pm && ch != L'a' && ch != L'A') return;
  if ((d->value.wHour >= 12) == pm) return;
  d->value.wHour = static_cast<WORD>((d->value.wHour + 12) % 24);
  MarkScreenDirty();
  NotifyChange(hwnd, d);
}

void OnChar(HWND hwnd, wchar_t ch) {
  DatePickerData* d = Data(hwnd);
  if (!d) return;
  if (ch >= L'0' && ch <= L'9') {
    TypeDigit(hwnd, d, ch);
  } else if (ch == L' ' || ch == L'*') {
    if (ShowsNone(hwnd)) SwitchNone(hwnd, d, !d->none);
  } else if (ch == 0x08 && !d->typed.empty()) {
    d->typed.pop_back();
    MarkScreenDirty();
  } else {
    TypeMarker(hwnd, d, ch);
  }
}

std::wstring FieldText(const DatePickerData* d, size_t i) {
  const PictureField& field = d->fields[i];
  std::wstring text = FormatField(field, d->value);
  if (field.kind == FieldKind::kText) return text;
  if (d->none) return std::wstring(static_cast<size_t>(TextWidth(text)), kBlank);
  if (static_cast<int>(i) == d->focus && !d->typed.empty()) {
    int pad = static_cast<int>(text.size()) - static_cast<int>(d->typed.size());
    return std::wstring(static_cast<size_t>(pad > 0 ? pad : 0), L' ') + d->typed;
  }
  return text;
}

void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  DatePickerData* d = Data(hwnd);
  RECT rc;
  GetClientRect(hwnd, &rc);
  if (d && rc.right > 0 && rc.bottom > 0) {
    bool focused = GetFocus() == hwnd;
    RECT line{0, 0, rc.right, 1};
    FillWith(hdc, line, ColoursFor(hwnd, false));
    int x = 0;
    if (ShowsNone(hwnd)) {
      UseColours(hdc, ColoursFor(hwnd, focused && d->none));
      x += DrawCells(hdc, x, 0, std::wstring_view(&kBoxGlyph[d->none ? 0 : 1], 1));
      UseColours(hdc, ColoursFor(hwnd, false));
      x += DrawCells(hdc, x, 0, L" ");
    }
    for (size_t i = 0; i < d->fields.size() && x < rc.right; ++i) {
      bool marked = focused && !d->none && static_cast<int>(i) == d->focus;
      UseColours(hdc, ColoursFor(hwnd, marked));
      x += DrawCells(hdc, x, 0, FieldText(d, i));
    }
  }
  EndPaint(hwnd, &ps);
}

LRESULT SetTime(HWND hwnd, DatePickerData* d, WPARAM kind, const SYSTEMTIME* st) {
  if (kind == GDT_NONE) {
    if (!ShowsNone(hwnd)) return FALSE;
    d->none = true;
  } else {
    if (kind != GDT_VALID || !st || !IsValidDay(*st)) return FALSE;
    d->value = WithWeekday(*st);
    d->value.wMilliseconds = 0;
    d->fallback = d->value;
    d->has_fallback = true;
    d->none = false;
  }
  d->typed.clear();
  MarkScreenDirty();
  return TRUE;
}

}  // namespace

LRESULT DatePickerProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) {
      auto data = std::make_unique<DatePickerData>();
      GetLocalTime(&data->value);
      data->value.wSecond = data->value.wMilliseconds = 0;
      data->value = WithWeekday(data->value);
      SetPicture(data.get(), DefaultPicture(w->style));
      w->control = std::move(data);
    }
    return TRUE;
  }
  DatePickerData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  switch (msg) {
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTCHARS;  // digits, Space and "*"; the arrows Up/Down stay the dialog's
    case WM_KEYDOWN:
      if (wparam == VK_LEFT || wparam == VK_RIGHT) MoveFocus(hwnd, wparam == VK_LEFT ? -1 : 1);
      return 0;
    case WM_CHAR:
      OnChar(hwnd, static_cast<wchar_t>(wparam));
      return 0;
    case WM_KILLFOCUS:
      TakeTyped(hwnd, d);
      MarkScreenDirty();
      return 0;
    case WM_SETFOCUS:
    case WM_ENABLE:
      MarkScreenDirty();
      return 0;
    case DTM_GETSYSTEMTIME: {
      TakeTyped(hwnd, d);
      if (!(d = Data(hwnd))) return static_cast<LRESULT>(GDT_ERROR);
      auto* st = reinterpret_cast<SYSTEMTIME*>(lparam);
      if (!st) return static_cast<LRESULT>(GDT_ERROR);
      if (d->none) return static_cast<LRESULT>(GDT_NONE);
      *st = d->value;
      return static_cast<LRESULT>(GDT_VALID);
    }
    case DTM_SETSYSTEMTIME:
      return SetTime(hwnd, d, wparam, reinterpret_cast<const SYSTEMTIME*>(lparam));
    case DTM_SETFORMATW: {
      auto* picture = reinterpret_cast<LPCWSTR>(lparam);
      SetPicture(d, picture ? std::wstring(picture) : DefaultPicture(static_cast<DWORD>(
                                                          GetWindowLongPtrW(hwnd, GWL_STYLE))));
      return TRUE;
    }
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
