#include "links/task_links.h"

#include <string_view>

#include "links/scanners.h"

namespace velmo {
namespace {

// What a subject could hold, from counts of a few characters (a plain loop,
// which the compiler may vectorise): a number needs seven digits, an e-mail
// address an "@", a web address the ":" of "://" or the three "w" of "www.". Each subject is scanned
// only for what it could hold; one pass over a few dozen characters costs less
// than the scanners' searches, most of which would find nothing.
struct Possible {
  bool number = false;
  bool mail = false;
  bool web = false;
};

struct Counts {
  unsigned digits = 0;
  unsigned at_signs = 0;
  unsigned colons = 0;
  unsigned ws = 0;

  void Add(wchar_t c) {
    digits += static_cast<unsigned>(c - L'0') < 10u;
    at_signs += c == L'@';
    colons += c == L':';
    ws += c == L'w';
  }
};

Possible PossibleLinks(std::wstring_view text) {
  constexpr unsigned kDigitsOfANumber = 7;
  constexpr unsigned kWsOfWww = 3;
  Counts counts;
  for (const wchar_t c : text) counts.Add(c);
  return {counts.digits >= kDigitsOfANumber, counts.at_signs > 0,
          counts.colons > 0 || counts.ws >= kWsOfWww};
}

}  // namespace

void FillTaskLinks(Task& task, const char* ansi_notes) {
  const wchar_t* subject = task.subject.c_str();
  const Possible in_subject = PossibleLinks(task.subject);
  task.phone_number.clear();
  if (in_subject.number) task.phone_number = FindPhoneNumber(subject);
  if (task.phone_number.empty() && ansi_notes) task.phone_number = FindPhoneNumber(ansi_notes);
  const bool web = (ansi_notes && FindWebAddress(ansi_notes, nullptr)) ||
                   (in_subject.web && FindWebAddress(subject, nullptr));
  const bool mail = (ansi_notes && FindEmail(ansi_notes, nullptr)) ||
                    (in_subject.mail && FindEmail(subject, nullptr));
  task.web_link_count = web ? 1 : 0;
  task.mail_link_count = mail ? 1 : 0;
}

}  // namespace velmo
