// The search view's match marks: whether the search text occurs in a task's
// notes and subject. The store sets them while it reads each record.
#pragma once

#include <string_view>

#include "platform/wintypes.h"
#include "settings/settings.h"

namespace velmo {

// Whether `text` occurs in `field`; without case sensitivity both are compared
// in upper case, character by character. An empty text occurs everywhere.
bool ContainsSearchText(std::wstring_view field, std::wstring_view text, bool case_sensitive);

// The marks (kSearchMatchNotes, kSearchMatchSubject) for a record under the
// search text and switches of `s`, whatever the view.
DWORD SearchMarks(std::wstring_view subject, std::wstring_view notes, const Settings& s);

// The marks a record gets as it is read: 0 unless the Search view is current.
// ansi_notes is the notes blob as stored, in the device's ANSI code page
// (Windows-1252), whose text ends at its first zero byte; it is decoded only for
// a search.
DWORD RecordSearchMarks(std::wstring_view subject, std::string_view ansi_notes);

}  // namespace velmo
