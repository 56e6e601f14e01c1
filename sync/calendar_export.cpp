#include "sync/calendar_export.h"

#include <libical/ical.h>

#include <memory>

#include "sync/bridge_plan.h"
#include "sync/todo.h"

namespace velmo::sync {
namespace {

struct FreeComponent {
  void operator()(icalcomponent* c) const { icalcomponent_free(c); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

// The task's VTODO as its file would hold it, added to the calendar.
void AddTask(const SyncRecord& r, icalcomponent* calendar) {
  const std::string uid = r.uid.empty() ? NewUid() : r.uid;
  Todo kept;
  std::string error;
  const bool has_kept = !r.kept.empty() && ReadTodo(r.kept, &kept, &error);
  const std::string text = WriteTodo(has_kept ? r.kept : "", kept.values, r.values, uid);
  Component file(icalparser_parse_string(text.c_str()));
  if (!file) return;
  for (icalcomponent* c = icalcomponent_get_first_component(file.get(), ICAL_ANY_COMPONENT); c;
       c = icalcomponent_get_next_component(file.get(), ICAL_ANY_COMPONENT))
    icalcomponent_add_component(calendar, icalcomponent_new_clone(c));
}

}  // namespace

std::string CalendarOfRecords(const std::vector<SyncRecord>& records) {
  Component calendar(icalcomponent_new_vcalendar());
  icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
  icalcomponent_add_property(calendar.get(), icalproperty_new_prodid("-//Velmo//Velmo ToDo List//EN"));
  for (const SyncRecord& r : records) AddTask(r, calendar.get());
  return icalcomponent_as_ical_string(calendar.get());
}

}  // namespace velmo::sync
