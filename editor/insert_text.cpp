#include "editor/insert_text.h"

#include "format/current_pictures.h"
#include "format/date_text.h"
#include "platform/locale.h"

namespace velmo {
namespace {

// Which date a short- or long-date entry names, in menu order.
enum class NamedDate { kToday, kStart, kDue, kReminder, kRecurrenceStart, kRecurrenceEnd };
constexpr NamedDate kNamedDates[] = {NamedDate::kToday,    NamedDate::kStart,
                                     NamedDate::kDue,      NamedDate::kReminder,
                                     NamedDate::kRecurrenceStart, NamedDate::kRecurrenceEnd};

DATE DateOf(NamedDate which, const EditorFields& f, DATE now) {
  switch (which) {
    case NamedDate::kToday: return now;
    case NamedDate::kStart: return f.start.value;
    case NamedDate::kDue: return f.due.value;
    case NamedDate::kReminder: return f.reminder.value;
    case NamedDate::kRecurrenceStart:
      return f.occurs_choice == 0 ? kNoDate : OccursBaseDate(f, now);
    case NamedDate::kRecurrenceEnd: return f.no_end ? kNoDate : f.recurrence_end.value;
  }
  return kNoDate;
}

std::wstring LongDateText(DATE date) {
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(date, &st)) return {};
  wchar_t out[128] = {};
  const int n = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &st, nullptr, out, 128);
  return n > 0 ? std::wstring(out) : std::wstring();
}

}  // namespace

bool IsInsertCommand(UINT command) {
  return command == kCmdInsertTime || command == kCmdInsertDateTime || command == kCmdTab ||
         (command >= kCmdShortDateFirst && command <= kCmdLongDateLast);
}

std::wstring InsertText(UINT command, const EditorFields& f, DATE now) {
  const format::DatePictures& p = format::Pictures();
  if (command == kCmdTab) return L"\t";
  if (command == kCmdInsertTime) return format::TimeText(now, p.time);
  if (command == kCmdInsertDateTime)
    return format::DateText(now, p.short_date) + L" " + format::TimeText(now, p.time);
  if (command < kCmdShortDateFirst || command > kCmdLongDateLast) return {};
  const bool is_long = command >= kCmdLongDateFirst;
  const UINT index = command - (is_long ? kCmdLongDateFirst : kCmdShortDateFirst);
  const DATE date = DateOf(kNamedDates[index], f, now);
  if (date == kNoDate) return {};
  return is_long ? LongDateText(date) : format::DateText(date, p.short_date);
}

std::vector<std::wstring> MyTexts(const Settings& settings) {
  std::vector<std::wstring> texts;
  for (const std::wstring& t : settings.txt)
    if (!t.empty()) texts.push_back(t);
  for (const std::wstring& t : settings.long_txt)
    if (!t.empty()) texts.push_back(t);
  return texts;
}

}  // namespace velmo
