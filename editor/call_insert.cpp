#include "editor/call_insert.h"

#include "format/current_pictures.h"
#include "format/date_text.h"
#include "platform/oletime.h"
#include "res/strings.h"

namespace velmo {
namespace {

struct Parts {
  bool kind;
  bool name;
  bool number;
  bool time;
};
constexpr Parts kModes[kCallInsertModeCount] = {
    {false, true, true, false}, {false, true, false, false}, {false, false, true, false},
    {false, true, false, true}, {false, false, true, true},  {true, true, true, true},
};

std::wstring Digits(const std::wstring& number) {
  std::wstring digits;
  for (wchar_t c : number)
    if (c >= L'0' && c <= L'9') digits += c;
  return digits;
}

bool SameNumber(const std::wstring& a, const std::wstring& b) {
  if (a.empty() || b.empty()) return false;
  if (a == b) return true;
  if (a.size() < kSameNumberDigits || b.size() < kSameNumberDigits) return false;
  return a.compare(a.size() - kSameNumberDigits, kSameNumberDigits, b,
                   b.size() - kSameNumberDigits, kSameNumberDigits) == 0;
}

std::wstring NameOf(const std::wstring& number, const std::vector<Contact>& contacts) {
  const std::wstring digits = Digits(number);
  for (const Contact& c : contacts)
    for (const ContactPhone& p : c.phones)
      if (SameNumber(digits, Digits(p.number))) return c.name;
  return {};
}

}  // namespace

std::vector<CallEntry> NameCalls(const std::vector<CallRecord>& calls, const std::vector<Contact>& contacts) {
  std::vector<CallEntry> entries;
  entries.reserve(calls.size());
  for (const CallRecord& call : calls) entries.push_back({call, NameOf(call.number, contacts)});
  return entries;
}

std::wstring CallKindText(CallKind kind) {
  return res::Text(kFirstCallKindText + static_cast<UINT>(kind));
}

std::wstring CallTimeText(const CallRecord& call) {
  DATE date = kNoDate;
  if (!SystemTimeToVariantTime(&call.start, &date)) return {};
  const format::DatePictures& p = format::Pictures();
  return format::DateText(date, p.short_date) + L" " + format::TimeText(date, p.time);
}

std::wstring CallInsertText(const CallEntry& call, DWORD mode) {
  const Parts& parts = kModes[mode < kCallInsertModeCount ? mode : kCallEverything];
  std::wstring text;
  auto add = [&](const std::wstring& part) {
    if (part.empty()) return;
    if (!text.empty()) text += L' ';
    text += part;
  };
  if (parts.kind) add(CallKindText(call.record.kind));
  if (parts.name) add(call.name);
  // The number stands in for a name the address book does not know.
  if (parts.number || (parts.name && call.name.empty())) add(call.record.number);
  if (parts.time) add(CallTimeText(call.record));
  return text;
}

}  // namespace velmo
