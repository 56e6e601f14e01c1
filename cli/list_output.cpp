#include "cli/list_output.h"

#include <cstdio>
#include <iterator>

#include "list/view_rows.h"
#include "list/view_title.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

constexpr const char* kPriorityNames[] = {"low", "normal", "high"};

// "YYYY-MM-DD", with "THH:MM" when with_time; empty for no date or one out of range.
std::string DateText(DATE date, bool with_time) {
  SYSTEMTIME st{};
  if (date == kNoDate || !VariantTimeToSystemTime(date, &st)) return {};
  char text[48];
  if (with_time) {
    std::snprintf(text, sizeof text, "%04u-%02u-%02uT%02u:%02u", st.wYear, st.wMonth, st.wDay,
                  st.wHour, st.wMinute);
  } else {
    std::snprintf(text, sizeof text, "%04u-%02u-%02u", st.wYear, st.wMonth, st.wDay);
  }
  return text;
}

std::string OneLine(const std::wstring& text) {
  std::string utf8 = ToUtf8(text);
  for (char& c : utf8)
    if (c == '\t' || c == '\n' || c == '\r') c = ' ';
  return utf8;
}

std::string PriorityName(LONG importance) {
  if (importance >= 0 && importance < static_cast<LONG>(std::size(kPriorityNames)))
    return kPriorityNames[importance];
  return std::to_string(importance);
}

}  // namespace

std::string TaskLine(const Task& task) {
  const std::string fields[] = {
      std::to_string(task.oid),
      OneLine(task.subject),
      DateText(task.start_date, false),
      DateText(task.due_date, false),
      task.reminder_set != 0 ? DateText(task.reminder_time, true) : std::string(),
      DateText(task.date_completed, false),
      PriorityName(task.importance),
      OneLine(task.categories),
  };
  std::string line;
  for (const std::string& field : fields) {
    if (&field != fields) line += '\t';
    line += field;
  }
  return line;
}

std::string ViewListing(const TaskTable& table, DATE ref) {
  const std::vector<const Task*> rows = SortedViewRows(table, ref);
  std::string out = OneLine(ListTitle(static_cast<int>(rows.size()))) + "\n";
  for (const Task* task : rows) out += TaskLine(*task) + "\n";
  return out;
}

}  // namespace velmo::cli
