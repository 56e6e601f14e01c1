// The string table: every user-visible text of the program, by number. Each
// area of the program keeps its entries in res/strings_<area>.inc.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/wintypes.h"

namespace velmo::res {

// The text of a string resource, or nullptr when the table has none of that number.
const wchar_t* String(UINT id);

// The text, or an empty string when absent.
std::wstring Text(UINT id);

// Message formatting: "%1".."%9" are replaced by the inserts in order ("%%" is a
// percent sign); a marker without an insert is left as it stands.
std::wstring Format(std::wstring_view pattern, std::initializer_list<std::wstring_view> inserts);

// The string of that number, formatted.
std::wstring FormatId(UINT id, std::initializer_list<std::wstring_view> inserts);

// Replaces the program's table with a language-resource file's entries (lines
// "number<TAB>text", escapes \r \n \t \\); an empty path restores the program's own.
// Returns false when the file cannot be read.
bool LoadLanguageFile(const std::string& path);

// Numbers that stand more than once in the program's own table (each area keeps
// its entries in its own file, so a clash is easy to miss).
std::vector<UINT> DuplicateStringIds();

}  // namespace velmo::res

// LoadStringW: copies at most max-1 characters and a terminator; returns the
// number of characters copied, 0 when the string is absent.
int LoadStringW(void* instance, UINT id, wchar_t* buffer, int max);
