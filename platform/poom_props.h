// The tasks database's record format as the object model writes it: property
// identifiers (identifier in the high 16 bits, value type in the low 16) and the
// encodings of importance and sensitivity.
//
// The recurrence pattern belongs to the object model alone and is kept in the
// 0x46xx identifiers below, which no other record property uses: its type,
// start and end dates, the no-end flag and the rule fields. The record's
// recurring flag (0x41260002) says whether they apply.
#pragma once

#include "platform/cedb.h"

namespace velmo::poom {

constexpr CEPROPID kPropSubject = 0x0037001F;
constexpr CEPROPID kPropNotes = 0x00170041;  // Windows-1252 text
constexpr CEPROPID kPropCategories = 0x4500001F;
constexpr CEPROPID kPropStartDate = 0x41040040;
constexpr CEPROPID kPropDueDate = 0x41050040;
constexpr CEPROPID kPropDateCompleted = 0x410F0040;
constexpr CEPROPID kPropComplete = 0x410F0002;
constexpr CEPROPID kPropRecurring = 0x41260002;
constexpr CEPROPID kPropImportance = 0x00260003;
constexpr CEPROPID kPropSensitivity = 0x00040002;
constexpr CEPROPID kPropTeamTask = 0x00050002;
constexpr CEPROPID kPropReminderSet = 0x45030002;
constexpr CEPROPID kPropReminderMinutes = 0x45010003;  // minutes before the base date
constexpr CEPROPID kPropReminderBaseFlag = 0x00030002;  // non-zero: the base is the due date
constexpr CEPROPID kPropReminderOptions = 0x450A0003;
constexpr CEPROPID kPropReminderSound = 0x4509001F;
// Written by the program itself, never by the object model; a copy leaves it out.
constexpr CEPROPID kPropNotificationHandle = 0x00020003;

constexpr CEPROPID kPropPatternType = 0x46000003;
constexpr CEPROPID kPropPatternStart = 0x46010040;
constexpr CEPROPID kPropPatternEnd = 0x46020040;
constexpr CEPROPID kPropPatternNoEnd = 0x46030002;
constexpr CEPROPID kPropPatternInterval = 0x46040003;
constexpr CEPROPID kPropPatternDayOfWeekMask = 0x46050003;
constexpr CEPROPID kPropPatternDayOfMonth = 0x46060003;
constexpr CEPROPID kPropPatternInstance = 0x46070003;
constexpr CEPROPID kPropPatternMonthOfYear = 0x46080003;

// Stored importance: 1 high, 2 normal, 3 low (any other value reads as normal).
constexpr LONG kStoredImportanceHigh = 1;
constexpr LONG kStoredImportanceNormal = 2;
constexpr LONG kStoredImportanceLow = 3;
// Stored sensitivity: 1 private (any other value reads as normal).
constexpr SHORT kStoredSensitivityPrivate = 1;
constexpr SHORT kStoredSensitivityNormal = 0;

}  // namespace velmo::poom
