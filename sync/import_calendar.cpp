// iCalendar files for import: a calendar of several tasks is split into one
// calendar per task, each read as a task file is.
#include <libical/ical.h>

#include <memory>
#include <vector>

#include "sync/folder_files.h"
#include "sync/import_sources.h"
#include "sync/todo.h"

namespace velmo::sync {
namespace {

struct FreeComponent {
  void operator()(icalcomponent* c) const { icalcomponent_free(c); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

void Take(const std::string& text, const std::string& source, ImportResult* out) {
  Todo todo;
  std::string error;
  if (!ReadTodo(text, &todo, &error)) {
    out->problems.push_back(source + ": " + error + "; left out");
    return;
  }
  out->tasks.push_back({todo.values, todo.uid, text});
}

}  // namespace

void ReadCalendarTasks(std::string_view text, const std::string& source, ImportResult* out) {
  const std::string owned(text);
  Component calendar(icalparser_parse_string(owned.c_str()));
  icalerror_clear_errno();
  if (!calendar || icalcomponent_isa(calendar.get()) != ICAL_VCALENDAR_COMPONENT ||
      icalcomponent_count_components(calendar.get(), ICAL_VTODO_COMPONENT) <= 1)
    return Take(owned, source, out);  // one task, or what is wrong with it
  // The component iterators are the calendar's own: gather first, then copy.
  std::vector<icalcomponent*> todos, zones;
  for (icalcomponent* c = icalcomponent_get_first_component(calendar.get(), ICAL_VTODO_COMPONENT); c;
       c = icalcomponent_get_next_component(calendar.get(), ICAL_VTODO_COMPONENT))
    todos.push_back(c);
  for (icalcomponent* c = icalcomponent_get_first_component(calendar.get(), ICAL_VTIMEZONE_COMPONENT); c;
       c = icalcomponent_get_next_component(calendar.get(), ICAL_VTIMEZONE_COMPONENT))
    zones.push_back(c);
  for (icalcomponent* todo : todos) {
    Component single(icalcomponent_new_vcalendar());
    icalcomponent_add_property(single.get(), icalproperty_new_version("2.0"));
    icalcomponent_add_property(single.get(), icalproperty_new_prodid("-//Velmo//Velmo ToDo List//EN"));
    for (icalcomponent* zone : zones) icalcomponent_add_component(single.get(), icalcomponent_new_clone(zone));
    icalcomponent_add_component(single.get(), icalcomponent_new_clone(todo));
    Take(icalcomponent_as_ical_string(single.get()), source, out);
  }
}

ImportResult ReadImportSource(const std::filesystem::path& source) {
  ImportResult out;
  std::error_code ec;
  if (std::filesystem::is_directory(source, ec)) {
    std::vector<FolderFile> files;
    std::string error;
    if (!ListTaskFiles(source, &files, &error)) out.problems.push_back(error);
    for (const FolderFile& f : files) {
      std::string text;
      FileStamp stamp;
      const std::filesystem::path path = source / f.name;
      if (!ReadTaskFile(path, kMaxTodoFileBytes, &text, &stamp) || stamp.size > kMaxTodoFileBytes)
        out.problems.push_back(path.string() + ": cannot be read or is too large; left out");
      else
        ReadCalendarTasks(text, path.string(), &out);
    }
    return out;
  }
  std::string text;
  FileStamp stamp;
  if (!ReadTaskFile(source, std::size_t{256} << 20, &text, &stamp)) {
    out.problems.push_back(source.string() + ": cannot be read");
    return out;
  }
  const auto first = text.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  if (first != std::string::npos && (text[first] == '[' || text[first] == '{')) {
    if (!ReadTaskwarriorTasks(text, &out))
      out.problems.push_back(source.string() + ": not a Taskwarrior export (a JSON array of tasks)");
  } else if (text.compare(first == std::string::npos ? 0 : first, 15, "BEGIN:VCALENDAR") == 0) {
    ReadCalendarTasks(text, source.string(), &out);
  } else {
    ReadTodoTxtTasks(text, &out);
  }
  return out;
}

}  // namespace velmo::sync
