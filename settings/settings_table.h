// The table of stored settings: each registry value with its kind, its place in
// the settings block and its "Reset Settings" group, in save order. The "Txt" and
// "NTxt" texts follow the table (see MyTextName / LongTextName).
#pragma once

#include <span>
#include <string>

#include "settings/settings.h"

namespace velmo::settings_table {

enum class Kind {
  kDword,        // REG_DWORD into a DWORD member
  kSignedDword,  // REG_DWORD into a LONG member
  kText,         // REG_SZ into a string member
  kSort,         // REG_BINARY, the 108-byte sort table
  kShortcuts,    // REG_BINARY, the 42-byte shortcut table
  kViewOffset,   // REG_DWORD holding view command - 40050
};

struct Entry {
  const wchar_t* name;
  Kind kind;
  DWORD group;  // ResetGroup bit; 0 for none
  DWORD Settings::*dword = nullptr;
  LONG Settings::*signed_dword = nullptr;
  std::wstring Settings::*text = nullptr;
};

// Every stored value but the texts, in save order.
std::span<const Entry> Entries();

std::wstring MyTextName(int index);    // "Txt1".."Txt20" for 0..19
std::wstring LongTextName(int index);  // "NTxt1".."NTxt4" for 0..3

// Copies the entry's setting from one block to another (a reset to defaults).
void CopySetting(const Entry& entry, const Settings& from, Settings& to);

}  // namespace velmo::settings_table
