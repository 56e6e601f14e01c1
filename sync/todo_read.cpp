// A VTODO file read into a task's values.
#include <libical/ical.h>

#include <memory>

#include "platform/ansi_codepage.h"
#include "platform/wstr.h"
#include "sync/ical_alarm.h"
#include "sync/ical_dates.h"
#include "sync/ical_recurrence.h"
#include "sync/todo.h"
#include "sync/todo_props.h"

namespace velmo::sync {
namespace {

struct FreeComponent {
  void operator()(icalcomponent* c) const { icalcomponent_free(c); }
};

std::wstring Text(const char* utf8) { return utf8 ? FromUtf8(utf8) : std::wstring(); }

// Notes keep their line breaks as CR LF and only what the notes' code page holds.
std::wstring NotesOf(const char* utf8) {
  std::wstring lf = Text(utf8);
  std::wstring crlf;
  crlf.reserve(lf.size());
  for (std::size_t i = 0; i < lf.size(); ++i) {
    if (lf[i] == L'\n' && (i == 0 || lf[i - 1] != L'\r')) crlf += L'\r';
    crlf += lf[i];
  }
  return FromWindows1252(ToWindows1252(crlf));
}

const char* XValue(icalcomponent* c, const char* name) {
  for (icalproperty* p = icalcomponent_get_first_property(c, ICAL_X_PROPERTY); p;
       p = icalcomponent_get_next_property(c, ICAL_X_PROPERTY))
    if (const char* n = icalproperty_get_x_name(p); n && std::string_view(n) == name)
      return icalproperty_get_x(p);
  return nullptr;
}

// PRIORITY 1-4 high, 5 (and none) normal, 6-9 low.
LONG ImportanceOf(int priority) {
  if (priority >= 1 && priority <= 4) return olImportanceHigh;
  if (priority >= 6) return olImportanceLow;
  return olImportanceNormal;
}

void ReadCompletion(icalcomponent* todo, poom::TaskValues* v) {
  icalproperty* status = icalcomponent_get_first_property(todo, ICAL_STATUS_PROPERTY);
  icalproperty* percent = icalcomponent_get_first_property(todo, ICAL_PERCENTCOMPLETE_PROPERTY);
  icalproperty* completed = icalcomponent_get_first_property(todo, ICAL_COMPLETED_PROPERTY);
  v->complete = (status && icalproperty_get_status(status) == ICAL_STATUS_COMPLETED) ||
                (percent && icalproperty_get_percentcomplete(percent) >= 100) || completed;
  if (completed && v->complete) v->completed = DateOfIcal(icalproperty_get_completed(completed));
}

void ReadRecurrence(icalcomponent* todo, poom::TaskValues* v, bool* custom) {
  icalproperty* rrule = icalcomponent_get_first_property(todo, ICAL_RRULE_PROPERTY);
  if (!rrule) return;
  const char* rule = icalproperty_get_value_as_string(rrule);
  const char* exact = XValue(todo, kXPattern);
  v->recurring = true;
  const DATE base = v->start != kNoDate ? v->start : v->due;
  *custom = !PatternOfRule(rule ? rule : "", exact ? exact : "", base, &v->pattern);
}

void ReadValues(icalcomponent* todo, Todo* out) {
  poom::TaskValues& v = out->values;
  v.subject = Text(icalcomponent_get_summary(todo));
  if (icalproperty* d = icalcomponent_get_first_property(todo, ICAL_DESCRIPTION_PROPERTY))
    v.body = NotesOf(icalproperty_get_description(d));
  for (icalproperty* p = icalcomponent_get_first_property(todo, ICAL_CATEGORIES_PROPERTY); p;
       p = icalcomponent_get_next_property(todo, ICAL_CATEGORIES_PROPERTY)) {
    if (!v.categories.empty()) v.categories += L',';
    v.categories += Text(icalproperty_get_categories(p));
  }
  if (icalcomponent_get_first_property(todo, ICAL_DTSTART_PROPERTY))
    v.start = DateOfIcal(icalcomponent_get_dtstart(todo));
  if (icalcomponent_get_first_property(todo, ICAL_DUE_PROPERTY))
    v.due = DateOfIcal(icalcomponent_get_due(todo));
  ReadCompletion(todo, &v);
  if (icalproperty* p = icalcomponent_get_first_property(todo, ICAL_PRIORITY_PROPERTY))
    v.importance = ImportanceOf(icalproperty_get_priority(p));
  if (icalproperty* p = icalcomponent_get_first_property(todo, ICAL_CLASS_PROPERTY)) {
    const icalproperty_class c = icalproperty_get_class(p);
    v.sensitivity = c == ICAL_CLASS_PRIVATE || c == ICAL_CLASS_CONFIDENTIAL ? olPrivate : olNormal;
  }
  if (icalcomponent* alarm = ReminderAlarm(todo)) ReadReminder(alarm, &v);
  if (const char* x = XValue(todo, kXReminderOptions)) v.options = std::atol(x);
  if (const char* x = XValue(todo, kXReminderSound)) v.sound = Text(x);
  if (const char* x = XValue(todo, kXTeamTask)) v.team = std::atoi(x) != 0;
  ReadRecurrence(todo, &v, &out->custom_rule);
  icalproperty* stamp = icalcomponent_get_first_property(todo, ICAL_LASTMODIFIED_PROPERTY);
  if (stamp)
    out->changed = icaltime_as_timet_with_zone(icalproperty_get_lastmodified(stamp),
                                               icaltimezone_get_utc_timezone());
  else if ((stamp = icalcomponent_get_first_property(todo, ICAL_DTSTAMP_PROPERTY)))
    out->changed = icaltime_as_timet_with_zone(icalproperty_get_dtstamp(stamp),
                                               icaltimezone_get_utc_timezone());
}

int CountKind(icalcomponent* calendar, icalcomponent_kind kind) {
  int n = 0;
  for (icalcomponent* c = icalcomponent_get_first_component(calendar, kind); c;
       c = icalcomponent_get_next_component(calendar, kind))
    ++n;
  return n;
}

}  // namespace

bool ReadTodo(std::string_view text, Todo* out, std::string* error) {
  *out = Todo{};
  if (text.size() > kMaxTodoFileBytes) {
    *error = "it is " + std::to_string(text.size() >> 20) + " MB, more than a task can hold (" +
             std::to_string(kMaxTodoFileBytes >> 20) + " MB)";
    return false;
  }
  const std::string owned(text);
  icalerror_clear_errno();
  std::unique_ptr<icalcomponent, FreeComponent> calendar(icalparser_parse_string(owned.c_str()));
  icalerror_clear_errno();
  if (!calendar || icalcomponent_isa(calendar.get()) != ICAL_VCALENDAR_COMPONENT) {
    *error = "it is not an iCalendar file (one VCALENDAR expected)";
    return false;
  }
  const int todos = CountKind(calendar.get(), ICAL_VTODO_COMPONENT);
  if (todos == 0) {
    *error = CountKind(calendar.get(), ICAL_VEVENT_COMPONENT) > 0
                 ? "it holds an event (VEVENT), not a task"
                 : "it holds no task (VTODO)";
    return false;
  }
  if (todos > 1) {
    *error = "it holds " + std::to_string(todos) + " tasks; a task file holds one";
    return false;
  }
  icalcomponent* todo = icalcomponent_get_first_component(calendar.get(), ICAL_VTODO_COMPONENT);
  const char* uid = icalcomponent_get_uid(todo);
  if (!uid || !*uid) {
    *error = "its task has no UID";
    return false;
  }
  out->uid = uid;
  ReadValues(todo, out);
  return true;
}

}  // namespace velmo::sync
