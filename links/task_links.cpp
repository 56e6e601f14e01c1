#include "links/task_links.h"

#include <array>
#include <cstdint>

#include "links/scanners.h"

namespace velmo {
namespace {

// What a short text could hold, from one look at each character: a number
// needs seven digits, an e-mail address an "@", a web address the ":" of "://"
// or the "w" of "www.". Each subject is scanned only for what it could hold;
// one pass over a few dozen characters costs less than the scanners' library
// calls, most of which would find nothing.
enum CharMark : std::uint8_t { kDigit = 1, kMailSign = 2, kWebSign = 4 };

constexpr std::array<std::uint8_t, 128> kMarks = [] {
  std::array<std::uint8_t, 128> marks{};
  for (char c = '0'; c <= '9'; ++c) marks[static_cast<size_t>(c)] = kDigit;
  marks['@'] = kMailSign;
  marks[':'] = kWebSign;
  marks['w'] = kWebSign;
  return marks;
}();

struct Possible {
  bool number = false;
  bool mail = false;
  bool web = false;
};

Possible PossibleLinks(const wchar_t* text) {
  constexpr int kDigitsOfANumber = 7;
  unsigned seen = 0;
  int digits = 0;
  for (; *text; ++text) {
    const auto c = static_cast<std::uint32_t>(*text);
    const unsigned mark = c < kMarks.size() ? kMarks[c] : 0;
    seen |= mark;
    digits += static_cast<int>(mark & kDigit);
  }
  return {digits >= kDigitsOfANumber, (seen & kMailSign) != 0, (seen & kWebSign) != 0};
}

}  // namespace

void FillTaskLinks(Task& task, const char* ansi_notes) {
  const wchar_t* subject = task.subject.c_str();
  const Possible in_subject = PossibleLinks(subject);
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
