// A record's notes: a blob of text in the device's ANSI code page
// (Windows-1252). The reader keeps them as stored bytes: the link scanners and
// the notes state read the bytes in place, and only a search decodes them.
#pragma once

#include <string_view>

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

// Notes longer than this whose last character is "]" get kLongNotesEndingInBracket.
constexpr size_t kLongNotesChars = 31744;

// False for the blobs that stand for no notes (empty, CR LF, two or four bytes
// ending in two zero bytes as CR LF 0 0 and 0 0); otherwise *text is the notes
// up to the first zero byte, one character per byte (every byte value has a
// character, so any blob loads).
bool NotesOf(const BYTE* bytes, DWORD size, std::string_view* text);

// kLongNotesEndingInBracket, else kHasNotes when any character is not CR or LF,
// else kNoNotes.
WORD NotesStateOf(std::string_view text);

}  // namespace velmo
