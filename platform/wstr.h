// Conversions between the program's wide strings and UTF-8 (terminal, files,
// SQLite text), and between wide strings and the platform's UTF-16 units.
#pragma once

#include <string>
#include <string_view>

namespace velmo {

// Invalid input never fails: ill-formed sequences become U+FFFD.
std::string ToUtf8(std::wstring_view text);
// ToUtf8(text) added to the end of out.
void AppendUtf8(std::wstring_view text, std::string* out);
std::wstring FromUtf8(std::string_view text);

std::u16string ToUtf16(std::wstring_view text);
std::wstring FromUtf16(std::u16string_view text);

}  // namespace velmo
