// The text form of registry exports ("Windows Registry Editor Version 5.00"),
// written and read byte-exact: every value comes back with its type and bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"

namespace velmo::cli {

constexpr std::string_view kRegFileHeader = "Windows Registry Editor Version 5.00";

// The keys in UTF-8 text: the header, a blank line, then each key as
// [PATH] and its values ("Name"=dword:000001e0, "Name"="text", "Name"=hex:01,02,
// "Name"=hex(7):..., @= for the default value), a blank line after each key.
// Long hex lists are wrapped with a trailing backslash.
std::string FormatRegText(const std::vector<registry::RawKey>& keys);

struct RegTextError {
  int line;  // 1-based
  std::string message;
};

// Reads the text form (UTF-8, or UTF-16LE with its byte-order mark). On any
// malformed line, returns false with every error found; keys is then empty.
bool ParseRegText(std::string_view text, std::vector<registry::RawKey>* keys,
                  std::vector<RegTextError>* errors);

}  // namespace velmo::cli
