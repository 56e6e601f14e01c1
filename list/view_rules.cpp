// One rule per view, chosen from a table by the view's number. Dates are compared
// as doubles with "today" at midnight, so a due date carrying a time of day is
// after today, never equal to it.
#include "list/view_rules.h"

#include <cmath>
#include <iterator>

#include "list/view_ids.h"

namespace velmo {
namespace {

struct Moment {
  DATE ref;    // the reference time
  DATE today;  // its midnight
  DATE due;    // the effective due date
  DATE start;
  bool done;
};

constexpr bool IsSet(DATE d) { return d != kNoDate; }

bool AllTasksRule(const Task&, const Moment& m, const Settings& s) {
  return !m.done || s.show_completed == 1;
}

bool OverdueRule(const Task&, const Moment& m, const Settings& s) {
  if (m.done || !IsSet(m.due)) return false;
  if (m.due < m.today) return true;
  return m.due == m.today && s.today_in_past != 0;
}

bool ActiveRule(const Task&, const Moment& m, const Settings& s) {
  if (m.done) return false;
  const DATE lead = static_cast<DATE>(s.a_days);
  if (IsSet(m.start) && m.today < m.start - lead) return false;
  if (!IsSet(m.start) && IsSet(m.due) && m.today < m.due - lead) return false;
  if (!IsSet(m.due)) return s.undated_in_active != 0;
  return true;
}

bool CompletedRule(const Task&, const Moment& m, const Settings&) { return m.done; }

bool TodayRule(const Task& task, const Moment& m, const Settings& s) {
  if (m.done) {
    return s.show_completed == 1 && DayOf(task.date_completed) == m.today;
  }
  if (IsSet(m.start) && IsSet(m.due) && m.start <= m.today && m.today <= m.due) return true;
  if (m.start == m.today || m.due == m.today) return true;
  return task.reminder_set != 0 && DayOf(task.reminder_time) == m.today;
}

// Due after today (or today itself when the setting adds it).
bool DueAheadRule(const Moment& m, const Settings& s) {
  if (m.due > m.today) return true;
  return m.due == m.today && s.today_in_future != 0;
}

bool NextDaysRule(const Task&, const Moment& m, const Settings& s) {
  if (m.done || !IsSet(m.due)) return false;
  const DATE limit = DayOf(m.ref + static_cast<DATE>(s.n_days));
  if (m.due > limit) return false;
  return DueAheadRule(m, s);
}

bool FutureRule(const Task&, const Moment& m, const Settings& s) {
  if (m.done || !IsSet(m.due)) return false;
  return DueAheadRule(m, s);
}

bool UndatedRule(const Task&, const Moment& m, const Settings&) {
  return !m.done && !IsSet(m.start) && !IsSet(m.due);
}

bool SearchRule(const Task& task, const Moment&, const Settings& s) {
  if (s.search_notes && (task.search_match & kSearchMatchNotes)) return true;
  if (s.search_subjects) return (task.search_match & kSearchMatchSubject) != 0;
  return false;
}

using Rule = bool (*)(const Task&, const Moment&, const Settings&);

// In view order, 40050 .. 40058.
constexpr Rule kRules[] = {AllTasksRule, OverdueRule,  ActiveRule,  CompletedRule, TodayRule,
                           NextDaysRule, FutureRule,   UndatedRule, SearchRule};
static_assert(std::size(kRules) == kLastView - kFirstView + 1);

}  // namespace

DATE EffectiveDueDate(const Task& task) {
  if (task.reminder_set != 0 && task.due_date == kNoDate) return DayOf(task.reminder_time);
  return task.due_date;
}

DATE DayOf(DATE moment) { return std::trunc(moment); }

bool TaskInView(const Task& task, DATE ref, UINT view, const Settings& s) {
  if (!IsView(view)) return true;
  const Moment m{ref, DayOf(ref), EffectiveDueDate(task), task.start_date, task.complete != 0};
  return kRules[ViewIndex(view)](task, m, s);
}

}  // namespace velmo
