// Counted strings: the length (in characters) sits just before the text, which
// is always terminated, so a BSTR can be read as a plain wide string.
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "platform/poom.h"

namespace {

struct Header {
  UINT length;
};

}  // namespace

BSTR SysAllocStringLen(const wchar_t* text, UINT length) {
  void* block = std::malloc(sizeof(Header) + (static_cast<size_t>(length) + 1) * sizeof(wchar_t));
  if (!block) return nullptr;
  static_cast<Header*>(block)->length = length;
  auto* chars = reinterpret_cast<wchar_t*>(static_cast<Header*>(block) + 1);
  if (text) std::memcpy(chars, text, length * sizeof(wchar_t));
  else std::wmemset(chars, L'\0', length);
  chars[length] = L'\0';
  return chars;
}

BSTR SysAllocString(const wchar_t* text) {
  return text ? SysAllocStringLen(text, static_cast<UINT>(std::wcslen(text))) : nullptr;
}

void SysFreeString(BSTR text) {
  if (text) std::free(reinterpret_cast<Header*>(text) - 1);
}

UINT SysStringLen(BSTR text) { return text ? (reinterpret_cast<Header*>(text) - 1)->length : 0; }
