#include "app/handover.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string>

#include "platform/wstr.h"

namespace velmo::app {
namespace {

// The code sent for each start request besides a task identifier.
struct CodeForRequest {
  LONG request;
  DWORD code;
};
constexpr CodeForRequest kCodes[] = {
    {kCmdTodayView, kHandoverToday},
    {kCmdDefaultView, kHandoverDefaultView},
    {kCmdNewTask, kHandoverNewTask},
    {kAfterSyncRequest, kHandoverAfterSync},
};

// The receiver reads at most this much of a payload, and ten characters of it.
constexpr size_t kReceiveBufferBytes = 40;
constexpr size_t kIdentifierChars = 10;

}  // namespace

bool BuildHandover(const StartRequest& start, OutgoingHandover* out) {
  *out = OutgoingHandover{};
  if (start.task_oid != 0) {
    wchar_t digits[16];
    std::swprintf(digits, 16, L"%lu", static_cast<unsigned long>(start.task_oid));
    const std::u16string text = ToUtf16(digits);
    std::copy_n(text.begin(), std::min(text.size(), size_t{10}), out->text.begin());
    out->record = {kHandoverSelect, kSelectPayloadBytes, out->text.data()};
    return true;
  }
  for (const CodeForRequest& c : kCodes) {
    if (c.request == start.request) {
      out->record = {c.code, 0, nullptr};
      return true;
    }
  }
  return false;
}

HandoverRequest DecodeHandover(ULONG_PTR code, DWORD size, const BYTE* bytes, size_t available) {
  HandoverRequest request;
  request.code = static_cast<DWORD>(code);
  if (request.code != kHandoverSelect && request.code != kHandoverSelectAndOpen) return request;

  // A zeroed buffer of 40 bytes takes at most 40 bytes of the payload.
  const LONG signed_size = static_cast<LONG>(size);
  size_t count = signed_size < 0 || static_cast<size_t>(signed_size) > kReceiveBufferBytes
                     ? kReceiveBufferBytes
                     : static_cast<size_t>(signed_size);
  count = std::min(count, bytes ? available : size_t{0});
  char16_t buffer[kReceiveBufferBytes / sizeof(char16_t)] = {};
  if (count) std::memcpy(buffer, bytes, count);
  buffer[kIdentifierChars] = u'\0';
  request.task_oid = static_cast<CEOID>(LeadingDecimal(FromUtf16(buffer)));
  return request;
}

}  // namespace velmo::app
