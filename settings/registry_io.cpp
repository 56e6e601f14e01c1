#include "settings/registry_io.h"

#include <algorithm>
#include <cwchar>

namespace velmo::registry_io {

bool ReadDword(HKEY key, const wchar_t* name, DWORD* out) {
  DWORD type = REG_NONE;
  DWORD value = 0;
  DWORD size = sizeof value;
  if (RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size) !=
          ERROR_SUCCESS ||
      type != REG_DWORD || size != sizeof value)
    return false;
  *out = value;
  return true;
}

bool ReadBinary(HKEY key, const wchar_t* name, DWORD size, std::vector<BYTE>* out) {
  std::vector<BYTE> buffer(size);
  DWORD type = REG_NONE;
  DWORD got = size;
  if (RegQueryValueExW(key, name, nullptr, &type, buffer.data(), &got) != ERROR_SUCCESS ||
      type != REG_BINARY || got != size)
    return false;
  *out = std::move(buffer);
  return true;
}

bool ReadText(HKEY key, const wchar_t* name, DWORD type, std::wstring* out) {
  // Most texts fit the first buffer and take one query; a longer one is read
  // again into a buffer of the size the first query reported.
  constexpr size_t kFirstBufferChars = 128;
  std::wstring buffer(kFirstBufferChars, L'\0');
  DWORD stored_type = REG_NONE;
  DWORD size = 0;
  LONG result = ERROR_MORE_DATA;
  for (int attempt = 0; attempt < 2 && result == ERROR_MORE_DATA; ++attempt) {
    if (attempt > 0) buffer.assign((size + sizeof(wchar_t) - 1) / sizeof(wchar_t), L'\0');
    size = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
    result = RegQueryValueExW(key, name, nullptr, &stored_type,
                              reinterpret_cast<BYTE*>(buffer.data()), &size);
  }
  if (result != ERROR_SUCCESS || stored_type != type) return false;
  buffer.resize(std::min<size_t>(buffer.size(), size / sizeof(wchar_t)));
  *out = buffer.substr(0, buffer.find(L'\0'));
  return true;
}

LONG WriteDword(HKEY key, const wchar_t* name, DWORD value) {
  return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                        sizeof value);
}

LONG WriteBinary(HKEY key, const wchar_t* name, const std::vector<BYTE>& bytes) {
  return RegSetValueExW(key, name, 0, REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
}

LONG WriteText(HKEY key, const wchar_t* name, DWORD type, const std::wstring& text) {
  return RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(text.c_str()),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

std::vector<BYTE> PackWords(const std::vector<WORD>& words) {
  std::vector<BYTE> bytes;
  bytes.reserve(words.size() * 2);
  for (WORD w : words) {
    bytes.push_back(static_cast<BYTE>(w & 0xFF));
    bytes.push_back(static_cast<BYTE>(w >> 8));
  }
  return bytes;
}

std::vector<WORD> UnpackWords(const std::vector<BYTE>& bytes) {
  std::vector<WORD> words(bytes.size() / 2);
  for (size_t i = 0; i < words.size(); ++i)
    words[i] = static_cast<WORD>(bytes[2 * i] | (bytes[2 * i + 1] << 8));
  return words;
}

}  // namespace velmo::registry_io
