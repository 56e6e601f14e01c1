// The recurrence dialog: the controls of res' table filled from the pattern,
// enabled by the type chosen, described in words after every change, and
// written back into the pattern on "Done".
#include "editor/recurrence_dialog.h"

#include <cwchar>
#include <string>

#include "editor/day_names.h"
#include "editor/recurrence_choices.h"
#include "editor/recurrence_form.h"
#include "editor/recurrence_words.h"
#include "format/current_pictures.h"
#include "format/date_text.h"
#include "platform/beep.h"
#include "platform/clock.h"
#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/dialog.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/spinner.h"
#include "platform/ui/window.h"
#include "res/dialogs_views.h"
#include "res/menus_app.h"
#include "res/strings.h"

namespace velmo {
namespace {

using namespace velmo::res;

// Posted after each change, so that the controls hold their new values when read.
constexpr UINT kMsgRefresh = WM_APP + 40;

struct DialogState {
  DATE base;
  RecurrencePattern* pattern;
};

// The control of each field of a type; its up-down is the control after it.
struct FieldControl {
  unsigned field;
  int id;
};
constexpr FieldControl kFieldControls[] = {
    {kFieldInterval, kRecurInterval},
    {kFieldDayOfMonth, kRecurDayOfMonth},
    {kFieldInstance, kRecurInstance},
    {kFieldMonth, kRecurMonth},
};

// The unit after the interval, by type: day(s), week(s), month(s), year(s).
constexpr int kUnitOfType[kFormTypeCount] = {0, 1, 2, 2, 3, 3};

void AddEntry(HWND dialog, int id, const std::wstring& text) {
  SendDlgItemMessageW(dialog, id, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}
void Select(HWND dialog, int id, int index) {
  SendDlgItemMessageW(dialog, id, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}
int Selected(HWND dialog, int id) {
  return static_cast<int>(SendDlgItemMessageW(dialog, id, LB_GETCURSEL, 0, 0));
}

void SetNumber(HWND dialog, int id, LONG value, LONG low, LONG high) {
  SendDlgItemMessageW(dialog, id + 1, UDM_SETRANGE, 0, MAKELPARAM(high, low));
  SendDlgItemMessageW(dialog, id + 1, UDM_SETPOS, 0, MAKELPARAM(value, 0));
  SetDlgItemTextW(dialog, id, std::to_wstring(value).c_str());
}
LONG Number(HWND dialog, int id) {
  wchar_t text[16] = {};
  GetDlgItemTextW(dialog, id, text, 16);
  return std::wcstol(text, nullptr, 10);
}

void SetDate(HWND dialog, int id, DATE date) {
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(date, &st)) return;
  SendDlgItemMessageW(dialog, id, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&st));
}
DATE GetDate(HWND dialog, int id) {
  SYSTEMTIME st{};
  DATE date = kNoDate;
  if (SendDlgItemMessageW(dialog, id, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&st)) != GDT_VALID ||
      !SystemTimeToVariantTime(&st, &date))
    return kNoDate;
  return date;
}

// The lists' entries, the weekdays' short names and the date picture.
void FillControls(HWND dialog, DATE base) {
  for (int i = 0; i < kFormTypeCount; ++i) AddEntry(dialog, kRecurType, Text(kTextRecurTypeFirst + i));
  for (LONG i = 1; i <= kLastInstance; ++i) AddEntry(dialog, kRecurInstance, InstanceWord(i));
  for (int m = 1; m <= 12; ++m) AddEntry(dialog, kRecurMonth, LongMonthName(m));
  for (int i = 0; i < 3; ++i) AddEntry(dialog, kRecurEnd, Text(kTextRecurEndFirst + i));
  // Weekday names: the days of the week of the base date, from its Sunday on.
  const DATE sunday = static_cast<DATE>(WholeDay(base) - BaseDayOf(base).weekday);
  for (int d = 0; d < 7; ++d)
    SetDlgItemTextW(dialog, kRecurFirstDay + d, format::DateText(sunday + d, L"ddd").c_str());
  const std::wstring picture = format::Pictures().short_date_long_year;
  SendDlgItemMessageW(dialog, kRecurEndDate, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(picture.c_str()));
}

void ShowForm(HWND dialog, const RecurrenceForm& f) {
  Select(dialog, kRecurType, f.type);
  SetNumber(dialog, kRecurInterval, f.interval, 1, kMaxFormInterval);
  for (int d = 0; d < 7; ++d)
    SendDlgItemMessageW(dialog, kRecurFirstDay + d, BM_SETCHECK,
                        (f.day_mask & WeekdayBit(d)) ? BST_CHECKED : BST_UNCHECKED, 0);
  SetNumber(dialog, kRecurDayOfMonth, f.day_of_month, 1, 31);
  Select(dialog, kRecurInstance, static_cast<int>(f.instance) - 1);
  Select(dialog, kRecurMonth, static_cast<int>(f.month) - 1);
  Select(dialog, kRecurEnd, static_cast<int>(f.end));
  SetDate(dialog, kRecurEndDate, f.end_date);
  SetNumber(dialog, kRecurCount, f.occurrences, 1, kMaxFormOccurrences);
}

RecurrenceForm ReadForm(HWND dialog) {
  RecurrenceForm f;
  f.type = Selected(dialog, kRecurType);
  f.interval = Number(dialog, kRecurInterval);
  f.day_mask = 0;
  for (int d = 0; d < 7; ++d)
    if (SendDlgItemMessageW(dialog, kRecurFirstDay + d, BM_GETCHECK, 0, 0) == BST_CHECKED)
      f.day_mask |= WeekdayBit(d);
  f.day_of_month = Number(dialog, kRecurDayOfMonth);
  f.instance = Selected(dialog, kRecurInstance) + 1;
  f.month = Selected(dialog, kRecurMonth) + 1;
  f.end = static_cast<FormEnd>(Selected(dialog, kRecurEnd));
  f.end_date = GetDate(dialog, kRecurEndDate);
  f.occurrences = Number(dialog, kRecurCount);
  return f;
}

void Enable(HWND dialog, int id, bool on) {
  if (HWND control = GetDlgItem(dialog, id)) EnableWindow(control, on ? TRUE : FALSE);
}

// Only the fields of the type and of the end chosen can be changed; the words
// below say what the form makes.
void Refresh(HWND dialog, const DialogState& state) {
  const RecurrenceForm f = ReadForm(dialog);
  const unsigned fields = FieldsOfType(f.type);
  for (const FieldControl& c : kFieldControls) {
    Enable(dialog, c.id, fields & c.field);
    Enable(dialog, c.id + 1, fields & c.field);
  }
  for (int d = 0; d < 7; ++d) Enable(dialog, kRecurFirstDay + d, fields & kFieldDays);
  Enable(dialog, kRecurEndDate, f.end == FormEnd::kDate);
  Enable(dialog, kRecurCount, f.end == FormEnd::kCount);
  Enable(dialog, kRecurCount + 1, f.end == FormEnd::kCount);
  if (f.type >= 0 && f.type < kFormTypeCount)
    SetDlgItemTextW(dialog, kRecurUnit, Text(kTextRecurUnitFirst + kUnitOfType[f.type]).c_str());
  const FormDescription words = DescribeForm(f, state.base, NowAsDate());
  SetDlgItemTextW(dialog, kRecurDescription, words.pattern.c_str());
  SetDlgItemTextW(dialog, kRecurNext, words.next.c_str());
}

void Init(HWND dialog, const DialogState& state) {
  FillControls(dialog, state.base);
  ShowForm(dialog, FormFromPattern(*state.pattern, state.base));
  const std::wstring done = Text(kTextDone), cancel = Text(kTextCancel);
  SOFTKEY left{done.c_str(), IDOK, nullptr};
  SOFTKEY right{cancel.c_str(), IDCANCEL, nullptr};
  CreateSoftKeyBar(dialog, &left, &right);
  Refresh(dialog, state);
  SetFocus(GetDlgItem(dialog, kRecurType));
}

// "Done": the pattern is written only when the form makes one.
void Done(HWND dialog, const DialogState& state) {
  RecurrencePattern written;
  if (!PatternFromForm(ReadForm(dialog), state.base, &written)) {
    MessageBeep(MB_ICONEXCLAMATION);
    return;
  }
  *state.pattern = written;
  EndDialog(dialog, IDOK);
}

INT_PTR RecurrenceProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* state = reinterpret_cast<DialogState*>(GetWindowLongPtrW(dialog, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG:
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      Init(dialog, *reinterpret_cast<DialogState*>(lparam));
      return FALSE;
    case WM_COMMAND:
      if (!state) return FALSE;
      if (LOWORD(wparam) == IDOK) {
        Done(dialog, *state);
      } else if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
      } else {
        PostMessageW(dialog, kMsgRefresh, 0, 0);
      }
      return TRUE;
    case WM_NOTIFY:
      if (state) PostMessageW(dialog, kMsgRefresh, 0, 0);
      return FALSE;
    case kMsgRefresh:
      if (state) Refresh(dialog, *state);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

bool EditRecurrencePattern(HWND owner, DATE base, RecurrencePattern* pattern) {
  if (!pattern) return false;
  DialogState state{base == kNoDate ? static_cast<DATE>(WholeDay(NowAsDate())) : base, pattern};
  const LoadedDialog dialog(kRecurrenceDialog);
  return DialogBoxIndirectParamW(nullptr, dialog.get(), owner, RecurrenceProc,
                                 reinterpret_cast<LPARAM>(&state)) == IDOK;
}

}  // namespace velmo
