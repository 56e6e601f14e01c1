#include "links/link_actions.h"

#include "links/link_uris.h"
#include "links/phone_library.h"
#include "platform/shell.h"
#include "platform/ui/message_box.h"
#include "platform/ui/messages.h"
#include "res/strings.h"
#include "settings/settings.h"

namespace velmo {
namespace {

constexpr UINT kAskEmail = 335, kAskBrowse = 336, kAskTextMessage = 361, kAskOpenFile = 362;
constexpr UINT kCaptionSendText = 40322, kCaptionUrl = 40710, kCaptionEmail = 40711,
               kCaptionFile = 40712;
constexpr std::wstring_view kFileScheme = L"file://";

bool Ask(HWND owner, UINT question, const std::wstring& insert, UINT caption) {
  const std::wstring text = res::FormatId(question, {insert});
  const std::wstring title = res::Text(caption);
  return MessageBoxW(owner, text.c_str(), title.c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

// The scanners read up to a blank, so each text gets one at its end.
std::wstring Padded(const std::wstring& text) { return text + L' '; }

void Open(const std::wstring& uri) { OpenWithDesktop(uri); }

}  // namespace

BOOL OpenWithDesktop(const std::wstring& uri) {
  SHELLEXECUTEINFO info{sizeof info};
  info.lpVerb = L"open";
  info.lpFile = uri.c_str();
  info.nShow = SW_SHOWNORMAL;
  return ShellExecuteEx(&info);
}

void ActOnEmail(HWND owner, const EmailAddress& address) {
  if (Ask(owner, kAskEmail, address.Text(), kCaptionEmail)) Open(MailtoUri(address.Text()));
}

void ActOnWebAddress(HWND owner, std::wstring address) {
  CutTrailingPunctuation(&address);
  if (address.empty()) return;
  const size_t file = address.find(kFileScheme);
  if (file == std::wstring::npos) {
    if (Ask(owner, kAskBrowse, address, kCaptionUrl)) Open(WebUri(address));
    return;
  }
  const std::wstring path = address.substr(file + kFileScheme.size());
  if (Ask(owner, kAskOpenFile, path, kCaptionFile)) Open(FileUri(path));
}

void SendTextMessage(HWND owner, const std::wstring& number) {
  if (number.empty() || !PhoneLibraryPresent()) return;
  if (Ask(owner, kAskTextMessage, number, kCaptionSendText)) Open(SmsUri(number));
}

void DialNumber(const std::wstring& number, const std::wstring& subject) {
  if (number.empty() || !PhoneLibraryPresent()) return;
  PhoneMakeCall(number, CurrentSettings().subject_in_call_log ? subject : std::wstring());
}

bool FirstEmail(const LinkTask& task, EmailAddress* found) {
  return FindEmail(Padded(task.subject), found) ||
         (!task.notes.empty() && FindEmail(Padded(task.notes), found));
}

bool FirstWebAddress(const LinkTask& task, std::wstring* found) {
  return FindWebAddress(Padded(task.subject), found) ||
         (!task.notes.empty() && FindWebAddress(Padded(task.notes), found));
}

void RunLinkCommand(HWND owner, UINT command, const LinkTask& task) {
  EmailAddress address;
  std::wstring web;
  switch (command) {
    case kCmdDial: DialNumber(task.phone_number, task.subject); return;
    case kCmdTextMessage: SendTextMessage(owner, task.phone_number); return;
    case kCmdMailLink:
      if (FirstEmail(task, &address)) ActOnEmail(owner, address);
      return;
    case kCmdWebLink:
      if (FirstWebAddress(task, &web)) ActOnWebAddress(owner, web);
      return;
    case kCmdFirstLink:
      if (!task.phone_number.empty() && PhoneLibraryPresent()) {
        DialNumber(task.phone_number, task.subject);
      } else if (FirstEmail(task, &address)) {
        ActOnEmail(owner, address);
      } else if (FirstWebAddress(task, &web)) {
        ActOnWebAddress(owner, web);
      }
      return;
    default: return;
  }
}

}  // namespace velmo
