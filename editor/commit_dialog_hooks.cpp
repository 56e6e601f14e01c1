#include "editor/commit_dialog_hooks.h"

#include <string>

#include "platform/ui/message_box.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"
#include "res/strings.h"
#include "store/store_messages.h"

namespace velmo {
namespace {

constexpr UINT kProgramTitle = 121;
// The buffers the message texts are loaded into, terminator included.
constexpr size_t kCaptionRoom = 30;
constexpr size_t kTextRoom = 1024;

std::wstring Cut(std::wstring text, size_t room) {
  if (text.size() >= room) text.resize(room - 1);
  return text;
}

}  // namespace

CommitHooks DialogCommitHooks(HWND owner, HWND main_window) {
  CommitHooks hooks;
  hooks.confirm_past_reminder = [owner] {
    const std::wstring text = Cut(res::Text(kPastReminderQuestion), kTextRoom);
    const std::wstring caption = Cut(res::Text(kProgramTitle), kCaptionRoom);
    return MessageBoxW(owner, text.c_str(), caption.c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
  };
  hooks.show_failure = [owner](const SaveFailureMessage& m) {
    const std::wstring text = Cut(m.text, kTextRoom);
    const std::wstring caption = Cut(m.caption, kCaptionRoom);
    MessageBoxW(owner, text.c_str(), caption.c_str(), MB_OK | MB_ICONSTOP);
  };
  hooks.focus_reminder = [owner] {
    if (HWND picker = owner ? GetDlgItem(owner, kReminderPickerId) : nullptr) SetFocus(picker);
  };
  hooks.saved = [main_window](CEOID oid, bool completion_deferred) {
    PostTaskWritten(main_window, oid);
    if (completion_deferred && main_window)
      PostMessageW(main_window, kMsgCompletionDeferred, static_cast<WPARAM>(oid), 0);
  };
  return hooks;
}

}  // namespace velmo
