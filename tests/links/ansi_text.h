// The scanners read task notes as stored bytes: every case a test runs on wide
// text also runs on its Windows-1252 bytes, where the code page can hold it.
#pragma once

#include <optional>
#include <string>

#include "platform/ansi_codepage.h"

namespace velmo::testing_links {

inline std::optional<std::string> AnsiForm(const std::wstring& text) {
  std::string bytes = ToWindows1252(text);
  if (FromWindows1252(bytes) != text) return std::nullopt;
  return bytes;
}

}  // namespace velmo::testing_links
