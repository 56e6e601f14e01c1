// The program's clipboard.
#include "platform/ui/clipboard.h"

#include "platform/ui/ui_internal.h"

namespace velmo::ui {
namespace {

std::wstring& Stored() {
  static std::wstring text;
  return text;
}

}  // namespace

void SetClipboardText(std::wstring_view text) {
  Stored() = text;
  if (Screen* screen = internal::CurrentScreen()) screen->CopyToTerminalClipboard(text);
}

const std::wstring& ClipboardText() { return Stored(); }

}  // namespace velmo::ui
