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
// ending in two zero bytes as CR LF 0 0 and 0 0); otherwise *stored is the blob.
bool NotesOf(const BYTE* bytes, DWORD size, std::string_view* stored);

// The notes text of a stored blob: its bytes up to the first zero byte, one
// character per byte (every byte value has a character, so any blob loads).
std::string_view NotesText(std::string_view stored);

// For the notes of a stored blob: kLongNotesEndingInBracket, else kHasNotes when
// any character is not CR or LF, else kNoNotes. Only long blobs are measured;
// for the others the first character that is not CR or LF decides.
WORD NotesStateOf(std::string_view stored);

}  // namespace velmo
