// Comparing tasks' values as the folder sees them.
#include <cmath>
#include <cstring>

#include "sync/todo.h"

namespace velmo::sync {
namespace {

// Dates to the second: what a file can hold.
long long Seconds(DATE d) { return d == kNoDate ? -1 : std::llround(d * 86400.0); }

bool SamePattern(const RecurrencePattern& a, const RecurrencePattern& b) {
  return a.RecurrenceType == b.RecurrenceType && a.Interval == b.Interval &&
         a.DayOfWeekMask == b.DayOfWeekMask && a.DayOfMonth == b.DayOfMonth &&
         a.Instance == b.Instance && a.MonthOfYear == b.MonthOfYear &&
         (a.NoEndDate != FALSE) == (b.NoEndDate != FALSE) &&
         Seconds(a.PatternStartDate) == Seconds(b.PatternStartDate) &&
         (a.NoEndDate || Seconds(a.PatternEndDate) == Seconds(b.PatternEndDate));
}

struct Hasher {
  std::uint64_t h = 1469598103934665603ull;
  void Bytes(const void* data, std::size_t size) {
    const auto* p = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i) h = (h ^ p[i]) * 1099511628211ull;
  }
  void Text(const std::wstring& s) {
    Bytes(s.data(), s.size() * sizeof(wchar_t));
    Number(static_cast<long long>(s.size()));
  }
  void Number(long long v) { Bytes(&v, sizeof v); }
};

}  // namespace

bool SameValues(const poom::TaskValues& a, const poom::TaskValues& b) {
  return a.subject == b.subject && a.body == b.body && a.categories == b.categories &&
         a.sound == b.sound && Seconds(a.start) == Seconds(b.start) &&
         Seconds(a.due) == Seconds(b.due) && Seconds(a.completed) == Seconds(b.completed) &&
         a.complete == b.complete && a.team == b.team && a.reminder_set == b.reminder_set &&
         a.recurring == b.recurring && a.importance == b.importance &&
         a.sensitivity == b.sensitivity && a.options == b.options &&
         a.reminder_minutes == b.reminder_minutes && a.reminder_from_due == b.reminder_from_due &&
         (!a.recurring || SamePattern(a.pattern, b.pattern));
}

std::uint64_t ValuesFingerprint(const poom::TaskValues& v) {
  Hasher h;
  for (const std::wstring* s : {&v.subject, &v.body, &v.categories, &v.sound}) h.Text(*s);
  for (DATE d : {v.start, v.due, v.completed}) h.Number(Seconds(d));
  for (long long n : {static_cast<long long>(v.complete), static_cast<long long>(v.team),
                      static_cast<long long>(v.reminder_set), static_cast<long long>(v.recurring),
                      static_cast<long long>(v.importance), static_cast<long long>(v.sensitivity),
                      static_cast<long long>(v.options), static_cast<long long>(v.reminder_minutes),
                      static_cast<long long>(v.reminder_from_due)})
    h.Number(n);
  if (v.recurring) {
    const RecurrencePattern& p = v.pattern;
    for (long long n : {static_cast<long long>(p.RecurrenceType), static_cast<long long>(p.Interval),
                        static_cast<long long>(p.DayOfWeekMask), static_cast<long long>(p.DayOfMonth),
                        static_cast<long long>(p.Instance), static_cast<long long>(p.MonthOfYear),
                        static_cast<long long>(p.NoEndDate != FALSE), Seconds(p.PatternStartDate),
                        p.NoEndDate ? 0 : Seconds(p.PatternEndDate)})
      h.Number(n);
  }
  return h.h;
}

}  // namespace velmo::sync
