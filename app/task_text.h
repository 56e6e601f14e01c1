// A task as plain text, for a file or a message: what its summary shows
// (subject, priority, dates and reminder in words, recurrence in words,
// categories, sensitivity, completion, notes), one line per field.
#pragma once

#include <string>

#include "editor/summary_lines.h"
#include "platform/cedb.h"

namespace velmo::app {

// Width the text is wrapped to.
constexpr int kTaskTextWidth = 76;

// Lines end in "\n".
std::wstring TaskText(const SummaryTask& task);

// Reads the task through the object model; false when it cannot be read.
bool ReadTaskText(CEOID oid, SummaryTask* task, std::wstring* text);

}  // namespace velmo::app
