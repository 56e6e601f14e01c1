// The names come from ICU for the locale named by LC_ALL, LC_TIME or LANG (the
// first that is set and not empty; "C" and "POSIX" are en_US). The symbols of
// the last locale asked for are kept.
#include "editor/day_names.h"

#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/wstr.h"

namespace velmo {
namespace {

std::string LocaleName() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (!value || !*value) continue;
    std::string name(value);
    name = name.substr(0, name.find_first_of(".@"));  // "de_DE.UTF-8@euro" is de_DE
    if (name == "C" || name == "POSIX") return "en_US";
    return name;
  }
  return "en_US";
}

const icu::DateFormatSymbols* Symbols() {
  static std::string cached_name;
  static std::unique_ptr<icu::DateFormatSymbols> cached;
  const std::string name = LocaleName();
  if (!cached || name != cached_name) {
    UErrorCode status = U_ZERO_ERROR;
    auto symbols = std::make_unique<icu::DateFormatSymbols>(icu::Locale(name.c_str()), status);
    if (U_FAILURE(status)) return nullptr;
    cached = std::move(symbols);
    cached_name = name;
  }
  return cached.get();
}

std::wstring ToWide(const icu::UnicodeString& s) {
  return FromUtf16(std::u16string_view(s.getBuffer(), static_cast<size_t>(s.length())));
}

}  // namespace

std::wstring LongWeekdayName(int weekday) {
  const icu::DateFormatSymbols* symbols = Symbols();
  if (!symbols || weekday < 0 || weekday > 6) return {};
  int32_t count = 0;
  // ICU counts from 1 (UCAL_SUNDAY) with an empty entry 0.
  const icu::UnicodeString* names =
      symbols->getWeekdays(count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
  return weekday + 1 < count ? ToWide(names[weekday + 1]) : std::wstring();
}

std::wstring LongMonthName(int month) {
  const icu::DateFormatSymbols* symbols = Symbols();
  if (!symbols || month < 1 || month > 12) return {};
  int32_t count = 0;
  // A month standing alone takes its standalone form ("MMMM" without a day).
  const icu::UnicodeString* names =
      symbols->getMonths(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
  return month - 1 < count ? ToWide(names[month - 1]) : std::wstring();
}

}  // namespace velmo
