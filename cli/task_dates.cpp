#include "cli/task_dates.h"

#include <cstdio>

namespace velmo::cli {
namespace {

// Whether text has the shape of the form: '9' stands for a digit.
bool HasShape(std::string_view text, std::string_view form) {
  if (text.size() != form.size()) return false;
  for (size_t i = 0; i < form.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (form[i] == '9' ? !digit : text[i] != form[i]) return false;
  }
  return true;
}

}  // namespace

std::optional<DATE> ParseDate(std::string_view text, bool with_time) {
  std::string copy(text);
  // A space between the day and the time, as `date` and most people write it.
  if (with_time && copy.size() == 16 && copy[10] == ' ') copy[10] = 'T';
  if (!HasShape(copy, with_time ? "9999-99-99T99:99" : "9999-99-99")) return std::nullopt;
  unsigned year = 0, month = 0, day = 0, hour = 0, minute = 0;
  std::sscanf(copy.c_str(), "%4u-%2u-%2uT%2u:%2u", &year, &month, &day, &hour, &minute);
  SYSTEMTIME st{static_cast<WORD>(year), static_cast<WORD>(month), 0, static_cast<WORD>(day),
                static_cast<WORD>(hour), static_cast<WORD>(minute), 0, 0};
  DATE date = kNoDate;
  if (!SystemTimeToVariantTime(&st, &date)) return std::nullopt;
  return date;
}

}  // namespace velmo::cli
