// FindEmail: the read "%100[a-zA-Z0-9_.-]@%255[a-zA-Z0-9.-]", tried from up to
// 100 characters before each "@" and moved on one character at a time until it
// succeeds. A start succeeds only when every character from it to the "@" is of
// the local part, so the first success is at the start of the local-part run
// before the "@"; and the domain read after the "@" is the same from any start.
// Each "@" is therefore tried once, which keeps the scan linear.
#include <algorithm>
#include <string_view>

#include "links/scan_text.h"
#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

constexpr size_t kMaxLocalPart = 100;
constexpr size_t kMaxDomain = 255;
constexpr size_t kMinDomain = 3;

template <typename Char>
bool IsLocalPartChar(Char c) {
  return links::IsHostNameChar(c) || c == '_';
}

template <typename Char>
bool FindEmailIn(const Char* text, EmailAddress* found) {
  if (!text) return false;
  for (const Char* at = links::FindChar(text, Char('@')); at; at = links::FindChar(at + 1, Char('@'))) {
    const Char* earliest = at - std::min<size_t>(static_cast<size_t>(at - text), kMaxLocalPart);
    const Char* local = at;
    while (local > earliest && IsLocalPartChar(local[-1])) --local;
    if (local == at) continue;

    const Char* domain = at + 1;
    size_t length = 0;
    while (length < kMaxDomain && links::IsHostNameChar(domain[length])) ++length;
    const std::basic_string_view<Char> host(domain, length);
    if (length < kMinDomain || host.find(Char('.')) == host.npos) continue;

    if (found) {
      found->local_part = links::Widen(std::basic_string_view<Char>(local, static_cast<size_t>(at - local)));
      found->domain = links::Widen(host);
    }
    return true;
  }
  return false;
}

}  // namespace

bool FindEmail(const wchar_t* text, EmailAddress* found) { return FindEmailIn(text, found); }
bool FindEmail(const char* ansi_text, EmailAddress* found) { return FindEmailIn(ansi_text, found); }

}  // namespace velmo
