// A date or time picture ("ddd dd/MM/yy HH:mm") cut into its fields, each
// shown with the locale module's formatting, and the rules for typing numbers
// into a field. Internal to the window system (the date picker uses it).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/wintypes.h"

namespace velmo::ui::internal {

enum class FieldKind { kText, kDay, kWeekday, kMonth, kYear, kEra, kHour12, kHour24, kMinute,
                       kSecond, kMarker };

struct PictureField {
  FieldKind kind;
  std::wstring token;  // the picture letters, or the literal text of kText
};

// Runs of one picture letter become fields; quoted text ('' for a quote) and
// other characters become text.
std::vector<PictureField> ParsePicture(std::wstring_view picture);

// The field's text for the time, as the locale formats it.
std::wstring FormatField(const PictureField& field, const SYSTEMTIME& time);

// Fields that take typed digits (the day, month, year, hour, minute, second).
bool TakesDigits(FieldKind kind);
// Fields the focus stops at: those that take digits and the AM/PM marker.
bool IsEditable(FieldKind kind);
// How many digits complete the field.
int DigitsOf(const PictureField& field);
// The highest value the field may take for the time (the days of its month...).
int HighestOf(const PictureField& field, const SYSTEMTIME& time);
// True when typing another digit could still give a value in range.
bool CouldTakeMore(const PictureField& field, const SYSTEMTIME& time, std::wstring_view typed);
// Puts a typed value into the time; false (the time unchanged) when it is out
// of the field's range. A month or year that leaves the day past its month's
// end takes the month's last day.
bool PutTyped(const PictureField& field, int value, SYSTEMTIME* time);

}  // namespace velmo::ui::internal
