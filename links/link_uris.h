// The addresses handed to the desktop for a link: mailto:, sms:, tel:, the
// web address and file:. Each is a URI the desktop's opener takes as one
// argument: it begins with its scheme (so it never reads as an option) and
// every character outside the URI's unreserved set is percent-encoded, so no
// quote, blank, ";" or "$" reaches the program started as anything but data.
#pragma once

#include <string>

namespace velmo {

// Longest URI handed over: the system refuses longer single arguments, and a
// composer needs no more of a task than this.
constexpr size_t kMaxUriChars = 32 * 1024;

// UTF-8 percent-encoding of everything except A-Z a-z 0-9 - . _ ~ and `keep`.
std::wstring PercentEncode(const std::wstring& text, const char* keep = "");

std::wstring MailtoUri(const std::wstring& address);
// A message to compose: the subject and body are cut so the URI stays within
// kMaxUriChars (the body first), never inside an encoded character.
std::wstring MailtoUri(const std::wstring& address, const std::wstring& subject,
                       const std::wstring& body);
// A telephone number keeps its digits, "+" and the pause and wait letters;
// blanks, dots, hyphens and parentheses are left out.
std::wstring SmsUri(const std::wstring& number);
std::wstring TelUri(const std::wstring& number);
// A web address as found: one with a scheme as it stands (characters outside
// the URI's set encoded), "www." ones with "http://" in front.
std::wstring WebUri(const std::wstring& address);
// A "file://" address: its path encoded, always absolute (a relative one is
// taken from the root folder).
std::wstring FileUri(const std::wstring& address);

}  // namespace velmo
