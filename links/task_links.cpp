#include "links/task_links.h"

#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

// What a short text could hold, from one look at each character: a number
// needs seven digits, an e-mail address an "@", a web address the ":" of "://"
// or the "w" of "www.". Each subject is scanned only for what it could hold;
// one pass over a few dozen characters costs less than the scanners' library
// calls, most of which would find nothing.
struct Possible {
  bool number = false;
  bool mail = false;
  bool web = false;
};

Possible PossibleLinks(const wchar_t* text) {
  constexpr int kDigitsOfANumber = 7;
  Possible can;
  int digits = 0;
  for (; *text; ++text) {
    const wchar_t c = *text;
    digits += links::IsAsciiDigit(c) ? 1 : 0;
    can.mail |= c == L'@';
    can.web |= c == L':' || c == L'w';
  }
  can.number = digits >= kDigitsOfANumber;
  return can;
}

}  // namespace

void FillTaskLinks(Task& task, const char* ansi_notes) {
  const wchar_t* subject = task.subject.c_str();
  const char* body = ansi_notes ? ansi_notes : "";
  const Possible in_subject = PossibleLinks(subject);
  task.phone_number.clear();
  if (in_subject.number) task.phone_number = FindPhoneNumber(subject);
  if (task.phone_number.empty()) task.phone_number = FindPhoneNumber(body);
  const bool web = FindWebAddress(body, nullptr) || (in_subject.web && FindWebAddress(subject, nullptr));
  const bool mail = FindEmail(body, nullptr) || (in_subject.mail && FindEmail(subject, nullptr));
  task.web_link_count = web ? 1 : 0;
  task.mail_link_count = mail ? 1 : 0;
}

}  // namespace velmo
