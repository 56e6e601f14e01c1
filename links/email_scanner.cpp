// FindEmail: the read "%100[a-zA-Z0-9_.-]@%255[a-zA-Z0-9.-]", tried from up to
// 100 characters before each "@" and moved on one character at a time until it
// succeeds. A start succeeds only when every character from it to the "@" is of
// the local part, so the first success is at the start of the local-part run
// before the "@"; and the domain read after the "@" is the same from any start.
// Each "@" is therefore tried once, which keeps the scan linear.
#include <algorithm>
#include <cwchar>
#include <string_view>

#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

using links::IsAsciiDigit;
using links::IsAsciiLetter;

constexpr size_t kMaxLocalPart = 100;
constexpr size_t kMaxDomain = 255;
constexpr size_t kMinDomain = 3;

bool IsDomainChar(wchar_t c) { return IsAsciiLetter(c) || IsAsciiDigit(c) || c == L'.' || c == L'-'; }
bool IsLocalPartChar(wchar_t c) { return IsDomainChar(c) || c == L'_'; }

}  // namespace

bool FindEmail(const wchar_t* text, EmailAddress* found) {
  if (!text) return false;
  for (const wchar_t* at = std::wcschr(text, L'@'); at; at = std::wcschr(at + 1, L'@')) {
    const wchar_t* earliest = at - std::min<size_t>(static_cast<size_t>(at - text), kMaxLocalPart);
    const wchar_t* local = at;
    while (local > earliest && IsLocalPartChar(local[-1])) --local;
    if (local == at) continue;

    const wchar_t* domain = at + 1;
    size_t length = 0;
    while (length < kMaxDomain && IsDomainChar(domain[length])) ++length;
    const std::wstring_view host(domain, length);
    if (length < kMinDomain || host.find(L'.') == std::wstring_view::npos) continue;

    if (found) {
      found->local_part.assign(local, at);
      found->domain.assign(host);
    }
    return true;
  }
  return false;
}

}  // namespace velmo
