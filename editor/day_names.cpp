// The names are the locale's date pictures "dddd" and "MMMM" applied to a day
// of a reference week that starts on a Sunday (1 January 2006).
#include "editor/day_names.h"

#include "platform/locale.h"

namespace velmo {
namespace {

std::wstring FormatDay(int month, int day, const wchar_t* picture) {
  const SYSTEMTIME st{2006, static_cast<WORD>(month), 0, static_cast<WORD>(day), 0, 0, 0, 0};
  wchar_t buffer[80];
  const int n = GetDateFormatW(LOCALE_USER_DEFAULT, 0, &st, picture, buffer, 80);
  return n > 0 ? std::wstring(buffer, static_cast<size_t>(n - 1)) : std::wstring();
}

}  // namespace

std::wstring LongWeekdayName(int weekday) {
  if (weekday < 0 || weekday > 6) return {};
  return FormatDay(1, 1 + weekday, L"dddd");
}

std::wstring LongMonthName(int month) {
  if (month < 1 || month > 12) return {};
  return FormatDay(month, 1, L"MMMM");
}

}  // namespace velmo
