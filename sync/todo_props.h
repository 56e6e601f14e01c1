// The X- properties a task file carries for the task's values that iCalendar
// has no property for.
#pragma once

namespace velmo::sync {

inline constexpr char kXTeamTask[] = "X-VELMO-TEAM-TASK";
inline constexpr char kXReminderOptions[] = "X-VELMO-REMINDER-OPTIONS";
inline constexpr char kXReminderSound[] = "X-VELMO-REMINDER-SOUND";
inline constexpr char kXPattern[] = "X-VELMO-PATTERN";

}  // namespace velmo::sync
