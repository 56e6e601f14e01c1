// A record's notes: a blob of text in the device's ANSI code page
// (Windows-1252), turned into the program's wide text on reading.
#pragma once

#include <string>

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

// Notes longer than this whose last character is "]" get kLongNotesEndingInBracket.
constexpr size_t kLongNotesChars = 31744;

// False for the blobs that stand for no notes (empty, CR LF, two or four bytes
// ending in two zero bytes as CR LF 0 0 and 0 0); otherwise the text, one
// character per byte, up to the first zero character (every byte value has a
// character, so any blob loads).
bool DecodeNotes(const BYTE* bytes, DWORD size, std::wstring* text);

// kLongNotesEndingInBracket, else kHasNotes when any character is not CR or LF,
// else kNoNotes.
WORD NotesStateOf(const std::wstring& text);

}  // namespace velmo
