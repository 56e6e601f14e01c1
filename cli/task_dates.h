// Dates as the companion reads them: a day as YYYY-MM-DD, a moment as
// YYYY-MM-DDTHH:MM (cli/list_output.h writes them so).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/oletime.h"

namespace velmo::cli {

// The date of "YYYY-MM-DD" (midnight), or of "YYYY-MM-DDTHH:MM" when
// with_time (or "YYYY-MM-DD HH:MM"); nothing for any other text or an
// impossible date.
std::optional<DATE> ParseDate(std::string_view text, bool with_time);

}  // namespace velmo::cli
