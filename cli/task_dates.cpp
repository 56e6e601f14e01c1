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
  if (!HasShape(text, with_time ? "9999-99-99T99:99" : "9999-99-99")) return std::nullopt;
  const std::string copy(text);
  unsigned year = 0, month = 0, day = 0, hour = 0, minute = 0;
  std::sscanf(copy.c_str(), "%4u-%2u-%2uT%2u:%2u", &year, &month, &day, &hour, &minute);
  SYSTEMTIME st{static_cast<WORD>(year), static_cast<WORD>(month), 0, static_cast<WORD>(day),
                static_cast<WORD>(hour), static_cast<WORD>(minute), 0, 0};
  DATE date = kNoDate;
  if (!SystemTimeToVariantTime(&st, &date)) return std::nullopt;
  return date;
}

}  // namespace velmo::cli
