#include "store/store_messages.h"

#include <cstdio>
#include <string>

#include "platform/ui/message_box.h"
#include "platform/ui/message_queue.h"
#include "platform/wstr.h"
#include "res/strings.h"

namespace velmo {
namespace {
constexpr UINT kItemGoneText = 345;
constexpr UINT kErrorNumberText = 359;
}  // namespace

void ShowStoreMessage(HWND owner, std::wstring_view text, std::wstring_view caption, UINT style) {
  const std::wstring text_z(text), caption_z(caption);
  if (MessageBoxW(owner, text_z.c_str(), caption_z.c_str(), MB_OK | style) != 0) return;
  // No screen (a run without a window): standard error, one line.
  std::string line;
  for (const char c : ToUtf8(text))
    if (c != '\r') line += c == '\n' ? ' ' : c;
  std::fprintf(stderr, "%s: %s\n", ToUtf8(caption).c_str(), line.c_str());
}

void PostTaskWritten(HWND window, CEOID oid) {
  if (window) PostMessageW(window, kMsgTaskWritten, kTaskWrittenCode, static_cast<LPARAM>(oid));
}

std::wstring ObjectModelFailureText(HRESULT result) {
  if (result == E_INVALIDARG) return res::Text(kItemGoneText);
  return res::FormatId(kErrorNumberText, {std::to_wstring(result)});
}

}  // namespace velmo
