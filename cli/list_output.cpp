#include "cli/list_output.h"

#include <charconv>
#include <iterator>

#include "list/view_rows.h"
#include "list/view_title.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

constexpr const char* kPriorityNames[] = {"low", "normal", "high"};

// Appends value as exactly `width` decimal digits (the dates' fields fit).
void AppendDigits(unsigned value, int width, std::string* out) {
  char digits[4];
  for (int i = width - 1; i >= 0; --i) {
    digits[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  out->append(digits, static_cast<size_t>(width));
}

// "YYYY-MM-DD", with "THH:MM" when with_time; nothing for no date or one out of range.
void AppendDate(DATE date, bool with_time, std::string* out) {
  SYSTEMTIME st{};
  if (date == kNoDate || !VariantTimeToSystemTime(date, &st)) return;
  AppendDigits(st.wYear, 4, out);
  out->push_back('-');
  AppendDigits(st.wMonth, 2, out);
  out->push_back('-');
  AppendDigits(st.wDay, 2, out);
  if (!with_time) return;
  out->push_back('T');
  AppendDigits(st.wHour, 2, out);
  out->push_back(':');
  AppendDigits(st.wMinute, 2, out);
}

// The text in UTF-8 with its tabs and line breaks made spaces, and every other
// control character shown in caret form ("^[" for escape; C1 controls as the
// replacement character), so that a subject cannot steer the terminal.
void AppendOneLine(const std::wstring& text, std::string* out) {
  std::wstring shown;
  shown.reserve(text.size());
  for (const wchar_t c : text) {
    if (c == L'\t' || c == L'\n' || c == L'\r') {
      shown.push_back(L' ');
    } else if (c < 0x20 || c == 0x7F) {
      shown.push_back(L'^');
      shown.push_back(static_cast<wchar_t>(c ^ 0x40));
    } else if (c >= 0x80 && c < 0xA0) {
      shown.push_back(L'\uFFFD');
    } else {
      shown.push_back(c);
    }
  }
  AppendUtf8(shown, out);
}

template <typename Number>
void AppendNumber(Number value, std::string* out) {
  char text[24];
  const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
  out->append(text, end);
}

void AppendPriority(LONG importance, std::string* out) {
  if (importance >= 0 && importance < static_cast<LONG>(std::size(kPriorityNames)))
    out->append(kPriorityNames[importance]);
  else
    AppendNumber(importance, out);
}

// TaskLine's fields, appended to out: one buffer for a whole listing.
void AppendTaskLine(const Task& task, std::string* out) {
  AppendNumber(task.oid, out);
  out->push_back('\t');
  AppendOneLine(task.subject, out);
  out->push_back('\t');
  AppendDate(task.start_date, false, out);
  out->push_back('\t');
  AppendDate(task.due_date, false, out);
  out->push_back('\t');
  if (task.reminder_set != 0) AppendDate(task.reminder_time, true, out);
  out->push_back('\t');
  AppendDate(task.date_completed, false, out);
  out->push_back('\t');
  AppendPriority(task.importance, out);
  out->push_back('\t');
  AppendOneLine(task.categories, out);
}

}  // namespace

std::string TaskLine(const Task& task) {
  std::string line;
  AppendTaskLine(task, &line);
  return line;
}

std::string ViewListing(const TaskTable& table, DATE ref) {
  const std::vector<const Task*> rows = SortedViewRows(table, ref);
  std::string out;
  AppendOneLine(ListTitle(static_cast<int>(rows.size())), &out);
  out.push_back('\n');
  for (const Task* task : rows) {
    AppendTaskLine(*task, &out);
    out.push_back('\n');
  }
  return out;
}

}  // namespace velmo::cli
