// The task editor's title: the name of the focused field in the compact
// layout, the subject's first 48 characters when the subject changes, and
// "Edit Task" / "New Task" when it opens.
#pragma once

#include <string>

#include "platform/wintypes.h"

namespace velmo {

// The subject as a title; an empty one is "Subject" (compact) or "<No Subject>".
std::wstring SubjectTitle(const std::wstring& subject, bool compact);

// The name of the field of a control ("Start Date", ...), or 0 for none.
UINT FieldNameId(int control_id);

// The title when the editor opens: "Edit Task", or for a new task "New Task",
// in the compact layout the name of the focused first field, "Subject".
std::wstring OpeningTitle(bool is_new, bool compact);

}  // namespace velmo
