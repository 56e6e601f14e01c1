// A task's values written into its file's text, property group by property
// group: a group whose values did not change keeps its lines untouched.
#include <libical/ical.h>

#include <cmath>

#include "platform/wstr.h"
#include "sync/ical_alarm.h"
#include "sync/ical_dates.h"
#include "sync/ical_lines.h"
#include "sync/ical_recurrence.h"
#include "sync/todo.h"
#include "sync/todo_props.h"

namespace velmo::sync {
namespace {

using poom::TaskValues;

constexpr char kTemplate[] =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Velmo//Velmo ToDo List//EN\r\n"
    "BEGIN:VTODO\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";

long long Seconds(DATE d) { return d == kNoDate ? -1 : std::llround(d * 86400.0); }

// One property's content line(s), folded and escaped by libical; nothing for null.
std::string LineOf(icalproperty* p) {
  if (!p) return {};
  std::string text = icalproperty_as_ical_string(p);
  icalproperty_free(p);
  return text;
}

std::string XLine(const char* name, const std::string& value) {
  icalproperty* p = icalproperty_new_x(value.c_str());
  icalproperty_set_x_name(p, name);
  return LineOf(p);
}

std::string Utf8(const std::wstring& s) { return ToUtf8(s); }

std::string NotesUtf8(const std::wstring& body) {
  std::wstring lf;
  lf.reserve(body.size());
  for (std::size_t i = 0; i < body.size(); ++i)
    if (!(body[i] == L'\r' && i + 1 < body.size() && body[i + 1] == L'\n')) lf += body[i];
  return ToUtf8(lf);
}

icalproperty* DateProperty(icalproperty* (*make)(icaltimetype), DATE date) {
  return date == kNoDate ? nullptr : make(IcalTimeOf(date));
}

int PriorityOf(LONG importance) {
  if (importance == olImportanceHigh) return 1;
  if (importance == olImportanceLow) return 9;
  return 5;
}

bool SameReminder(const TaskValues& a, const TaskValues& b) {
  if (a.options != b.options || a.sound != b.sound || a.reminder_set != b.reminder_set) return false;
  return !a.reminder_set ||
         (a.reminder_minutes == b.reminder_minutes && a.reminder_from_due == b.reminder_from_due);
}

bool SameRecurrence(const TaskValues& a, const TaskValues& b) {
  if (a.recurring != b.recurring) return false;
  if (!a.recurring) return true;
  TaskValues x, y;
  x.recurring = y.recurring = true;
  x.pattern = a.pattern;
  y.pattern = b.pattern;
  return SameValues(x, y);
}

// A group of properties written together from some of the values.
struct Group {
  const char* names[4];
  bool (*same)(const TaskValues&, const TaskValues&);
  std::string (*lines)(const TaskValues&);
};

const Group kGroups[] = {
    {{"SUMMARY"}, [](const TaskValues& a, const TaskValues& b) { return a.subject == b.subject; },
     [](const TaskValues& v) {
       return v.subject.empty() ? std::string() : LineOf(icalproperty_new_summary(Utf8(v.subject).c_str()));
     }},
    {{"DESCRIPTION"}, [](const TaskValues& a, const TaskValues& b) { return a.body == b.body; },
     [](const TaskValues& v) {
       return v.body.empty() ? std::string() : LineOf(icalproperty_new_description(NotesUtf8(v.body).c_str()));
     }},
    {{"CATEGORIES"}, [](const TaskValues& a, const TaskValues& b) { return a.categories == b.categories; },
     [](const TaskValues& v) {
       return v.categories.empty() ? std::string()
                                   : LineOf(icalproperty_new_categories(Utf8(v.categories).c_str()));
     }},
    {{"DTSTART"}, [](const TaskValues& a, const TaskValues& b) { return Seconds(a.start) == Seconds(b.start); },
     [](const TaskValues& v) { return LineOf(DateProperty(icalproperty_new_dtstart, v.start)); }},
    {{"DUE"}, [](const TaskValues& a, const TaskValues& b) { return Seconds(a.due) == Seconds(b.due); },
     [](const TaskValues& v) { return LineOf(DateProperty(icalproperty_new_due, v.due)); }},
    {{"STATUS", "PERCENT-COMPLETE", "COMPLETED"},
     [](const TaskValues& a, const TaskValues& b) {
       return a.complete == b.complete && (!a.complete || Seconds(a.completed) == Seconds(b.completed));
     },
     [](const TaskValues& v) {
       if (!v.complete) return LineOf(icalproperty_new_status(ICAL_STATUS_NEEDSACTION));
       std::string lines = LineOf(icalproperty_new_status(ICAL_STATUS_COMPLETED)) +
                           LineOf(icalproperty_new_percentcomplete(100));
       if (v.completed != kNoDate) lines += LineOf(icalproperty_new_completed(IcalUtcOf(v.completed)));
       return lines;
     }},
    {{"PRIORITY"}, [](const TaskValues& a, const TaskValues& b) { return a.importance == b.importance; },
     [](const TaskValues& v) { return LineOf(icalproperty_new_priority(PriorityOf(v.importance))); }},
    {{"CLASS"}, [](const TaskValues& a, const TaskValues& b) { return a.sensitivity == b.sensitivity; },
     [](const TaskValues& v) {
       return LineOf(icalproperty_new_class(v.sensitivity == olPrivate ? ICAL_CLASS_PRIVATE : ICAL_CLASS_PUBLIC));
     }},
    {{kXReminderOptions, kXReminderSound}, SameReminder,
     [](const TaskValues& v) {
       std::string lines;
       if (v.options != -1) lines += XLine(kXReminderOptions, std::to_string(v.options));
       if (!v.sound.empty()) lines += XLine(kXReminderSound, Utf8(v.sound));
       return lines;
     }},
    {{kXTeamTask}, [](const TaskValues& a, const TaskValues& b) { return a.team == b.team; },
     [](const TaskValues& v) { return v.team ? XLine(kXTeamTask, "1") : std::string(); }},
    {{"RRULE", kXPattern}, SameRecurrence,
     [](const TaskValues& v) {
       const std::string rule = v.recurring ? RuleOfPattern(v.pattern) : std::string();
       if (rule.empty()) return std::string();
       return "RRULE:" + rule + "\r\n" + XLine(kXPattern, ExactPatternText(v.pattern));
     }},
};

void Renew(IcalLines* lines, const char* name, icalproperty* (*make)(icaltimetype)) {
  lines->RemoveTodoProperty(name);
  lines->AddTodoProperties(LineOf(make(IcalUtcNow())));
}

}  // namespace

std::string WriteTodo(std::string_view kept, const TaskValues& kept_values, const TaskValues& values,
                      const std::string& uid) {
  const bool fresh = kept.empty() || !IcalLines(kept).HasTodo();
  IcalLines lines(fresh ? std::string_view(kTemplate) : kept);
  TaskValues blank;
  const TaskValues& before = fresh ? blank : kept_values;
  bool changed = fresh;
  if (fresh) lines.AddTodoProperties(LineOf(icalproperty_new_uid(uid.c_str())));
  for (const Group& g : kGroups) {
    if (!fresh && g.same(before, values)) continue;
    changed = true;
    for (const char* name : g.names)
      if (name) lines.RemoveTodoProperty(name);
    lines.AddTodoProperties(g.lines(values));
    if (g.same == SameReminder) {
      lines.RemoveReminderAlarm();
      if (values.reminder_set) lines.AddTodoComponent(ReminderAlarmText(values));
    }
  }
  if (changed) {
    Renew(&lines, "DTSTAMP", icalproperty_new_dtstamp);
    Renew(&lines, "LAST-MODIFIED", icalproperty_new_lastmodified);
  }
  return lines.Text();
}

std::string WithUid(std::string_view kept, const std::string& uid) {
  IcalLines lines(kept);
  lines.RemoveTodoProperty("UID");
  lines.AddTodoProperties(LineOf(icalproperty_new_uid(uid.c_str())));
  return lines.Text();
}

}  // namespace velmo::sync
