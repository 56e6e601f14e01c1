// The properties of a "Tasks Database" record that the program reads or writes:
// identifier in the high 16 bits, value type in the low 16 bits. Properties not
// listed here are never touched.
#pragma once

#include "platform/wintypes.h"

namespace velmo {

constexpr CEPROPID kPropSubject = 0x0037001F;
constexpr CEPROPID kPropNotes = 0x00170041;       // ANSI text in a blob
constexpr CEPROPID kPropCategories = 0x4500001F;  // also in contacts and appointments
constexpr CEPROPID kPropStartDate = 0x41040040;
constexpr CEPROPID kPropDueDate = 0x41050040;
constexpr CEPROPID kPropDateCompleted = 0x410F0040;
constexpr CEPROPID kPropComplete = 0x410F0002;
constexpr CEPROPID kPropRecurring = 0x41260002;
constexpr CEPROPID kPropImportance = 0x00260003;   // 1 high, 2 normal, 3 low
constexpr CEPROPID kPropSensitivity = 0x00040002;  // 1 private
constexpr CEPROPID kPropTeamTask = 0x00050002;
constexpr CEPROPID kPropReminderSet = 0x45030002;
constexpr CEPROPID kPropReminderMinutes = 0x45010003;
constexpr CEPROPID kPropReminderBaseFlag = 0x00030002;
constexpr CEPROPID kPropReminderOptions = 0x450A0003;
constexpr CEPROPID kPropReminderSound = 0x4509001F;
constexpr CEPROPID kPropNotificationHandle = 0x00020003;

}  // namespace velmo
