#include "sync/ical_lines.h"

#include <cctype>

namespace velmo::sync {
namespace {

std::string Upper(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

// The value of a BEGIN or END line, upper-cased without its line end.
std::string ValueOf(std::string_view line) {
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) return {};
  std::string_view value = line.substr(colon + 1);
  while (!value.empty() && (value.back() == '\n' || value.back() == '\r' || value.back() == ' '))
    value.remove_suffix(1);
  return Upper(value);
}

bool Is(const std::string& line, std::string_view name, std::string_view value) {
  return PropertyName(line) == name && ValueOf(line) == value;
}

}  // namespace

std::string PropertyName(std::string_view line) {
  const auto end = line.find_first_of(";:\r\n");
  return Upper(line.substr(0, end));
}

IcalLines::IcalLines(std::string_view text) {
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = start;
    // A line runs on while the next physical line starts with a space or tab.
    for (;;) {
      const auto newline = text.find('\n', end);
      end = newline == std::string_view::npos ? text.size() : newline + 1;
      if (end >= text.size() || (text[end] != ' ' && text[end] != '\t')) break;
    }
    lines_.emplace_back(text.substr(start, end - start));
    start = end;
  }
}

bool IcalLines::TodoBounds(std::size_t* begin, std::size_t* end) const {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (!Is(lines_[i], "BEGIN", "VTODO")) continue;
    int depth = 0;
    for (std::size_t j = i + 1; j < lines_.size(); ++j) {
      const std::string name = PropertyName(lines_[j]);
      if (name == "BEGIN") ++depth;
      if (name != "END") continue;
      if (depth-- > 0) continue;
      *begin = i;
      *end = j;
      return true;
    }
    return false;
  }
  return false;
}

bool IcalLines::HasTodo() const {
  std::size_t b, e;
  return TodoBounds(&b, &e);
}

void IcalLines::RemoveTodoProperty(std::string_view name) {
  std::size_t begin, end;
  if (!TodoBounds(&begin, &end)) return;
  int depth = 0;
  for (std::size_t i = begin + 1; i < end;) {
    const std::string n = PropertyName(lines_[i]);
    if (n == "BEGIN") ++depth;
    if (n == "END") --depth;
    if (depth == 0 && n != "END" && n == name) {
      lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(i));
      --end;
    } else {
      ++i;
    }
  }
}

void IcalLines::RemoveReminderAlarm() {
  std::size_t begin, end;
  if (!TodoBounds(&begin, &end)) return;
  for (std::size_t i = begin + 1; i < end; ++i) {
    if (!Is(lines_[i], "BEGIN", "VALARM")) continue;
    bool trigger = false;
    std::size_t j = i + 1;
    int depth = 0;
    for (; j < end; ++j) {
      const std::string n = PropertyName(lines_[j]);
      if (n == "BEGIN") ++depth;
      if (n == "END" && depth-- == 0) break;
      if (depth == 0 && n == "TRIGGER") trigger = true;
    }
    if (trigger) {
      lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(i),
                   lines_.begin() + static_cast<std::ptrdiff_t>(j + 1));
      return;
    }
    i = j;
  }
}

void IcalLines::Insert(std::size_t at, std::string_view lines) {
  IcalLines added(lines);
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), added.lines_.begin(),
                added.lines_.end());
}

void IcalLines::AddTodoProperties(std::string_view lines) {
  std::size_t begin, end;
  if (!TodoBounds(&begin, &end)) return;
  std::size_t at = begin + 1;
  while (at < end && PropertyName(lines_[at]) != "BEGIN") ++at;
  Insert(at, lines);
}

void IcalLines::AddTodoComponent(std::string_view lines) {
  std::size_t begin, end;
  if (TodoBounds(&begin, &end)) Insert(end, lines);
}

std::string IcalLines::Text() const {
  std::string out;
  for (const std::string& line : lines_) out += line;
  return out;
}

}  // namespace velmo::sync
