// A variant date as text in a picture of the user's locale.
#pragma once

#include <string>

#include "platform/wintypes.h"

namespace velmo::format {

// The date part of `date` in a date picture; empty when the date cannot be shown.
std::wstring DateText(DATE date, const std::wstring& picture);

// The time part of `date` in a time picture; empty when the date cannot be shown.
std::wstring TimeText(DATE date, const std::wstring& picture);

}  // namespace velmo::format
