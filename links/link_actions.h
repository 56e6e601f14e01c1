// Acting on a task's links: the question for each kind of link and, on "Yes",
// the desktop's program for it (the mail composer for an address, the browser
// for a web page, the file's application for a file:// address, the phone's
// handler for a number). A program that is missing, fails or hangs is not
// reported and never waited for.
#pragma once

#include <string>

#include "links/scanners.h"
#include "platform/ui/types.h"

namespace velmo {

constexpr UINT kCmdDial = 40118;
constexpr UINT kCmdMailLink = 40119;
constexpr UINT kCmdWebLink = 40120;
constexpr UINT kCmdFirstLink = 40121;
constexpr UINT kCmdTextMessage = 40165;

// What the link commands read of the selected task.
struct LinkTask {
  std::wstring subject;
  std::wstring notes;  // empty without notes
  std::wstring phone_number;
};

// Hands a URI (or a path) to the desktop's opener; FALSE when it cannot be
// started, which the callers do not report.
BOOL OpenWithDesktop(const std::wstring& uri);

// "Send email to %1?", then the composer on a mailto: address.
void ActOnEmail(HWND owner, const EmailAddress& address);
// "Browse web page %1?" and the browser, or for a file:// address "Open %1?"
// and the file's application. The address is as found; its sentence's
// punctuation is cut here.
void ActOnWebAddress(HWND owner, std::wstring address);
// "Send text message to %1?", then the messaging program on an sms: address.
void SendTextMessage(HWND owner, const std::wstring& number);
// The call itself; the phone's handler asks before it calls. With
// "SubjectInCallLog" the subject goes along as the called party's name.
void DialNumber(const std::wstring& number, const std::wstring& subject);

// The scans of acting: the first e-mail address or web address of the
// subject, else of the notes. False when there is none.
bool FirstEmail(const LinkTask& task, EmailAddress* found);
bool FirstWebAddress(const LinkTask& task, std::wstring* found);

// Carries out 40118, 40165, 40119, 40120 or 40121 on the task; the phone
// commands do nothing without a number or a phone, and 40121 then goes on to
// the task's e-mail address or web address.
void RunLinkCommand(HWND owner, UINT command, const LinkTask& task);

}  // namespace velmo
