// The device's ANSI code page, Windows-1252, in which task notes are stored.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmo {

// Characters the code page lacks become "?". Never fails.
std::string ToWindows1252(std::wstring_view text);
// Every byte has a meaning (the five unassigned ones map to the C1 controls).
std::wstring FromWindows1252(std::string_view bytes);
// The same into out, which has room for bytes.size() characters (one per byte).
void DecodeWindows1252(std::string_view bytes, wchar_t* out);
// The character one byte stands for.
wchar_t Windows1252HighChar(unsigned char byte);  // bytes from 0x80 on
inline wchar_t Windows1252Char(unsigned char byte) { return byte < 0x80 ? byte : Windows1252HighChar(byte); }

}  // namespace velmo
