// A task file's text as content lines, for changing some properties of its
// VTODO while every other line stays exactly as it was (folding and line ends
// included).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::sync {

class IcalLines {
 public:
  explicit IcalLines(std::string_view text);

  // Whether the text has a VTODO to change.
  bool HasTodo() const;
  // Removes the VTODO's own properties (not those of its alarms) of a name.
  void RemoveTodoProperty(std::string_view name);
  // Removes the VTODO's first VALARM that has a TRIGGER.
  void RemoveReminderAlarm();
  // Adds property lines (CRLF-ended) after the VTODO's own properties.
  void AddTodoProperties(std::string_view lines);
  // Adds a component (BEGIN..END lines) at the end of the VTODO.
  void AddTodoComponent(std::string_view lines);
  std::string Text() const;

 private:
  // The VTODO's BEGIN and END line indexes; false when there is none.
  bool TodoBounds(std::size_t* begin, std::size_t* end) const;
  void Insert(std::size_t at, std::string_view lines);

  std::vector<std::string> lines_;  // each with its continuation lines and line end
};

// The property name of a content line, upper-cased ("DTSTART" of "DTSTART;VALUE=DATE:...").
std::string PropertyName(std::string_view line);

}  // namespace velmo::sync
