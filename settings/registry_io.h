// Typed reads and writes of single registry values for the settings store. A read
// succeeds only for a value of the expected type and size; anything else leaves
// the output untouched.
#pragma once

#include <string>
#include <vector>

#include "platform/registry.h"

namespace velmo::registry_io {

bool ReadDword(HKEY key, const wchar_t* name, DWORD* out);
// A REG_BINARY value of exactly size bytes.
bool ReadBinary(HKEY key, const wchar_t* name, DWORD size, std::vector<BYTE>* out);
// A string of the given type (REG_SZ or REG_MULTI_SZ), up to its first terminator.
bool ReadText(HKEY key, const wchar_t* name, DWORD type, std::wstring* out);

LONG WriteDword(HKEY key, const wchar_t* name, DWORD value);
LONG WriteBinary(HKEY key, const wchar_t* name, const std::vector<BYTE>& bytes);
// The text and one terminator, as the given type.
LONG WriteText(HKEY key, const wchar_t* name, DWORD type, const std::wstring& text);

// Little-endian 16-bit words, the layout of the binary settings.
std::vector<BYTE> PackWords(const std::vector<WORD>& words);
std::vector<WORD> UnpackWords(const std::vector<BYTE>& bytes);

}  // namespace velmo::registry_io
