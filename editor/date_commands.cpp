#include "editor/date_commands.h"

#include <cmath>

#include "editor/day_names.h"
#include "editor/recurrence_choices.h"

namespace velmo {
namespace {

// Days from today of the commands that name a day.
struct DayOffset {
  UINT command;
  int days;
};
constexpr DayOffset kDayOffsets[] = {
    {kCmdYesterday, -1}, {kCmdToday, 0}, {kCmdTomorrow, 1}, {40097, 2}, {40098, 3},
    {40099, 4},          {40100, 5},     {40101, 6},        {40102, 7},
};

double TimeOfDay(DATE date) { return date - std::floor(date); }

// The day the command names, as a whole day; kNoDate when it names none.
DATE DayFor(UINT command, DateFieldKind kind, const EditorFields& f, DATE today) {
  for (const DayOffset& d : kDayOffsets)
    if (d.command == command) return static_cast<double>(WholeDay(today) + d.days);
  const DateField& field = FieldOf(f, kind);
  switch (command) {
    case kCmdStartDate: return f.start.empty() ? kNoDate : static_cast<double>(WholeDay(f.start.value));
    case kCmdDueDate: return f.due.empty() ? kNoDate : static_cast<double>(WholeDay(f.due.value));
    case kCmdPreviousDay:
    case kCmdNextDay:
      if (field.empty()) return field.fallback == kNoDate ? kNoDate : static_cast<double>(WholeDay(field.fallback));
      return static_cast<double>(WholeDay(field.value) + (command == kCmdNextDay ? 1 : -1));
    default: return kNoDate;
  }
}

}  // namespace

bool IsDateCommand(UINT command) {
  return command >= kCmdYesterday && command <= kCmdDatePicker;
}

DATE DateForCommand(UINT command, DateFieldKind kind, const EditorFields& f, DATE today) {
  const DATE day = DayFor(command, kind, f, today);
  if (day == kNoDate || kind != DateFieldKind::kReminder) return day;
  const DATE time_from = f.reminder.empty() ? f.remembered_reminder : f.reminder.value;
  return time_from == kNoDate ? day : day + TimeOfDay(time_from);
}

std::wstring SelectDayText(UINT command, DATE today) {
  if (command < kCmdSelectDayFirst || command > kCmdSelectDayLast) return {};
  const DATE day = static_cast<double>(WholeDay(today) + 2 + static_cast<int>(command - kCmdSelectDayFirst));
  return LongWeekdayName(BaseDayOf(day).weekday);
}

}  // namespace velmo
