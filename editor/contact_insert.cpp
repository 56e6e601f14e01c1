#include "editor/contact_insert.h"

namespace velmo {
namespace {

struct Parts {
  bool name;
  bool number;
  bool email;
};
constexpr Parts kModes[kContactInsertModeCount] = {
    {true, true, false}, {true, false, false}, {false, true, false},
    {false, false, true}, {true, false, true}, {true, true, true},
};

// The number to call: the mobile one first, then work, home and any other.
std::wstring BestNumber(const Contact& c) {
  for (PhoneKind kind : {PhoneKind::kMobile, PhoneKind::kWork, PhoneKind::kHome, PhoneKind::kOther})
    for (const ContactPhone& p : c.phones)
      if (p.kind == kind) return p.number;
  return {};
}

}  // namespace

std::wstring ContactInsertText(const Contact& contact, DWORD mode) {
  const Parts& parts = kModes[mode < kContactInsertModeCount ? mode : 0];
  std::wstring text;
  auto add = [&](const std::wstring& part) {
    if (part.empty()) return;
    if (!text.empty()) text += L' ';
    text += part;
  };
  if (parts.name) add(contact.name);
  if (parts.number) add(BestNumber(contact));
  if (parts.email && !contact.emails.empty()) add(contact.emails[0]);
  return text;
}

}  // namespace velmo
