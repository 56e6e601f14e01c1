// Turns a fuzzer's bytes into a wide text for the scanners. The first byte
// chooses the form: odd, every following byte is one character (so that
// dialling characters and punctuation are cheap to reach); even, every four
// bytes are one wchar_t as they stand, values outside Unicode included.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/ansi_codepage.h"

namespace velmo::fuzz {

inline std::wstring TextFromBytes(const std::uint8_t* data, std::size_t size) {
  std::wstring text;
  if (size == 0) return text;
  const bool bytewise = data[0] & 1;
  ++data;
  --size;
  if (bytewise) {
    text.assign(data, data + size);
  } else {
    text.resize(size / sizeof(wchar_t));
    std::memcpy(text.data(), data, text.size() * sizeof(wchar_t));
  }
  return text;
}

// The same bytes as stored notes (Windows-1252, read in place), and decoded:
// the scanners must answer the same for both.
struct StoredNotes {
  std::string bytes;
  std::wstring decoded;
};
inline StoredNotes StoredNotesFromBytes(const std::uint8_t* data, std::size_t size) {
  StoredNotes notes{std::string(reinterpret_cast<const char*>(data), size), {}};
  notes.decoded = FromWindows1252(notes.bytes);
  return notes;
}

// The scanners' contracts, checked on every input.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

// The part of the text a scanner reads: up to its first NUL.
inline std::wstring ScannedPart(const std::wstring& text) { return text.c_str(); }

}  // namespace velmo::fuzz
