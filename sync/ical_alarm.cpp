#include "sync/ical_alarm.h"

#include <cmath>

#include "sync/ical_dates.h"

namespace velmo::sync {

icalcomponent* ReminderAlarm(icalcomponent* vtodo) {
  for (icalcomponent* a = icalcomponent_get_first_component(vtodo, ICAL_VALARM_COMPONENT); a;
       a = icalcomponent_get_next_component(vtodo, ICAL_VALARM_COMPONENT))
    if (icalcomponent_get_first_property(a, ICAL_TRIGGER_PROPERTY)) return a;
  return nullptr;
}

void ReadReminder(icalcomponent* alarm, poom::TaskValues* v) {
  icalproperty* trigger_prop = icalcomponent_get_first_property(alarm, ICAL_TRIGGER_PROPERTY);
  const icaltriggertype trigger = icalproperty_get_trigger(trigger_prop);
  icalparameter* related = icalproperty_get_first_parameter(trigger_prop, ICAL_RELATED_PARAMETER);
  if (!icaltime_is_null_time(trigger.time)) {
    // An instant: counted back from the due date, else the start date.
    v->reminder_from_due = v->due != kNoDate || v->start == kNoDate;
    const DATE base = v->reminder_from_due ? v->due : v->start;
    const DATE at = DateOfIcal(trigger.time);
    if (base == kNoDate || at == kNoDate) return;
    v->reminder_set = true;
    v->reminder_minutes = static_cast<LONG>(std::lround((base - at) * 1440.0));
    return;
  }
  if (related && icalparameter_get_related(related) == ICAL_RELATED_END)
    v->reminder_from_due = true;
  else if (related)
    v->reminder_from_due = false;
  else
    v->reminder_from_due = v->start == kNoDate;
  v->reminder_set = true;
  v->reminder_minutes = -icaldurationtype_as_int(trigger.duration) / 60;
}

std::string ReminderAlarmText(const poom::TaskValues& v) {
  icalcomponent* alarm = icalcomponent_new(ICAL_VALARM_COMPONENT);
  icalcomponent_add_property(alarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
  icaltriggertype trigger{};
  trigger.time = icaltime_null_time();
  trigger.duration = icaldurationtype_from_int(-v.reminder_minutes * 60);
  icalproperty* trigger_prop = icalproperty_new_trigger(trigger);
  icalproperty_add_parameter(trigger_prop, icalparameter_new_related(
                                               v.reminder_from_due ? ICAL_RELATED_END : ICAL_RELATED_START));
  icalcomponent_add_property(alarm, trigger_prop);
  icalcomponent_add_property(alarm, icalproperty_new_description("Reminder"));
  std::string text = icalcomponent_as_ical_string(alarm);
  icalcomponent_free(alarm);
  return text;
}

}  // namespace velmo::sync
