// FindPhoneNumber: each character that can start a number ("(", "+" or a digit)
// standing at the start of a word starts a candidate; the candidate is the run of
// dialling characters read from it, trimmed, and it is the number when no test
// rejects it. A rejection resumes the search one character on, or past the
// candidate when the candidate was recognised as something else (an internet
// address, a date, a time, a part number, an enclosed code).
#include <cstring>
#include <cwchar>
#include <string_view>
#include <utility>

#include "links/scan_text.h"
#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

using links::CharOf;
using links::IsAsciiDigit;
using links::IsOneOf;

constexpr size_t kMaxRead = 63;       // the read is "%63[.+() wp0-9-]"
constexpr size_t kMinRead = 7;
constexpr size_t kMinDigits = 7;
constexpr size_t kMaxDigits = 20;
constexpr size_t kMaxAreaCodeLength = 8;  // "(" must be closed within this many characters
constexpr int kMinYear = 1900;
constexpr int kMaxYear = 2100;

constexpr char kStartChars[] = "(+0123456789";

// Written out rather than looked up in the sets above: these run on every character.
template <typename Char>
bool IsStartChar(Char c) {
  return IsAsciiDigit(c) || c == '(' || c == '+';
}

template <typename Char>
bool IsDialChar(Char c) {
  return IsAsciiDigit(c) || c == ' ' || c == '-' || c == '.' || c == '(' || c == ')' || c == '+' ||
         c == 'w' || c == 'p';
}

// The next character at or after pos that can start a number, or the end.
size_t NextStart(const wchar_t* text, size_t pos) {
  while (text[pos] && !IsStartChar(text[pos])) ++pos;
  return pos;
}
size_t NextStart(const char* text, size_t pos) { return pos + std::strcspn(text + pos, kStartChars); }

// Pairs of enclosing characters that may surround a number written without blanks.
constexpr std::pair<wchar_t, wchar_t> kEnclosingPairs[] = {
    {L'(', L')'}, {L'[', L']'}, {L'{', L'}'}, {L'<', L'>'}, {L'"', L'"'}, {L'\'', L'\''}};

bool IsEnclosingPair(wchar_t before, wchar_t after) {
  for (const auto& [open, close] : kEnclosingPairs)
    if (before == open && after == close) return true;
  return false;
}

template <typename Char>
size_t CountDigits(std::basic_string_view<Char> s) {
  size_t n = 0;
  for (Char c : s) n += IsAsciiDigit(c);
  return n;
}

template <typename Char>
bool ConsistsOf(std::basic_string_view<Char> s, std::string_view allowed_non_digits) {
  for (Char c : s)
    if (!IsAsciiDigit(c) && !IsOneOf(c, allowed_non_digits)) return false;
  return true;
}

template <typename Char>
bool Holds(std::basic_string_view<Char> s, char c) {
  return s.find(Char(c)) != s.npos;
}

// A candidate start counts only at the start of a word: not after a letter or
// digit, nor after "=" that follows one ("id=123..." is a value, not a number).
template <typename Char>
bool StartsAWord(const Char* text, size_t at) {
  if (at == 0) return true;
  const Char before = text[at - 1];
  if (links::IsLetterOrDigit(CharOf(before))) return false;
  return !(before == '=' && at >= 2 && links::IsLetterOrDigit(CharOf(text[at - 2])));
}

// Parentheses must pair up: an unmatched one, or a second group opening after
// the first closed, ends the candidate there.
template <typename Char>
std::basic_string_view<Char> BalanceParentheses(std::basic_string_view<Char> s) {
  const size_t open = s.find(Char('('));
  const size_t close = s.find(Char(')'));
  const auto npos = s.npos;
  if (open != npos && close == npos) return s.substr(0, open);
  if (close != npos && open == npos) return s.substr(0, close);
  if (close != npos) {
    const size_t reopen = s.find(Char('('), close + 1);
    if (reopen != npos) return s.substr(0, reopen);
  }
  return s;
}

// The scanf reads below see only the candidate: a read of the whole remaining
// text would first measure it, on every candidate. The character after a
// candidate is never a digit, so the reads take the same values either way.
struct CandidateCopy {
  template <typename Char>
  explicit CandidateCopy(std::basic_string_view<Char> s) {
    size_t n = 0;
    for (; n < s.size() && n < kMaxRead; ++n) text[n] = CharOf(s[n]);
    text[n] = L'\0';
  }
  wchar_t text[kMaxRead + 1];
};

template <typename Char>
bool IsInternetAddress(std::basic_string_view<Char> s) {
  if (!Holds(s, '.')) return false;
  const CandidateCopy copy(s);
  int v[4];
  if (std::swscanf(copy.text, L"%d.%d.%d.%d", &v[0], &v[1], &v[2], &v[3]) != 4) return false;
  for (int x : v)
    if (x < 0 || x > 255) return false;
  wchar_t printed[64];
  std::swprintf(printed, 64, L"%d.%d.%d.%d", v[0], v[1], v[2], v[3]);
  return std::wstring_view(copy.text) == printed;
}

// A code enclosed in punctuation ("#1234567#", "/2024001/") is no number,
// unless the two enclosing characters are a pair of brackets or quotes.
template <typename Char>
bool IsEnclosedCode(const Char* text, size_t at, std::basic_string_view<Char> s) {
  if (at == 0 || Holds(s, ' ')) return false;
  const wchar_t before = CharOf(text[at - 1]);
  const wchar_t after = CharOf(text[at + s.size()]);
  return links::IsPunctuation(before) && links::IsPunctuation(after) && !IsEnclosingPair(before, after);
}

// "10:30 12.5 7..." : digits, dots and blanks beside a ":" with a digit beyond.
template <typename Char>
bool IsTimeOfDay(const Char* text, size_t at, std::basic_string_view<Char> s) {
  if (!ConsistsOf(s, ". ") || !Holds(s, '.') || !Holds(s, ' ')) return false;
  const size_t end = at + s.size();
  const bool colon_before = at >= 2 && text[at - 1] == ':' && IsAsciiDigit(text[at - 2]);
  const bool colon_after = text[end] == ':' && IsAsciiDigit(text[end + 1]);
  return colon_before || colon_after;
}

// "15.01.2008", "2008.01.15": three dotted numbers, one of them a year.
template <typename Char>
bool IsDate(std::basic_string_view<Char> s) {
  const size_t digits = CountDigits(s);
  if (digits < 6 || digits > 8 || s.size() - digits != 2 || !ConsistsOf(s, ".")) return false;
  const CandidateCopy copy(s);
  int v[3];
  if (std::swscanf(copy.text, L"%d.%d.%d", &v[0], &v[1], &v[2]) != 3) return false;
  const auto is_year = [](int x) { return x >= kMinYear && x <= kMaxYear; };
  return is_year(v[0]) || is_year(v[2]);
}

// "AB-1234-5678-CD": digits and hyphens joined by a hyphen to more of the same.
template <typename Char>
bool IsPartOfHyphenatedCode(const Char* text, size_t at, std::basic_string_view<Char> s) {
  if (!ConsistsOf(s, "-") || CountDigits(s) == s.size()) return false;
  return (at > 0 && text[at - 1] == '-') || text[at + s.size()] == '-';
}

// Where the search goes on after the candidate start at `at` was turned down:
// the next character, or past the letters and digits that follow a digit,
// since none of those starts a word.
template <typename Char>
size_t SkipWordRest(const Char* text, size_t at) {
  size_t pos = at + 1;
  if (IsAsciiDigit(text[at]))
    while (IsAsciiDigit(text[pos]) || links::IsAsciiLetter(text[pos])) ++pos;
  return pos;
}

enum class Verdict { kNumber, kRejected, kRejectedSkipPast };

// Reads the candidate at text[at] and tests it; *number is the candidate as
// trimmed so far (its length also tells how far to skip).
template <typename Char>
Verdict ExamineCandidate(const Char* text, size_t at, std::basic_string_view<Char>* number) {
  const Char* start = text + at;
  size_t length = 0;
  while (length < kMaxRead && IsDialChar(start[length])) ++length;
  if (length < kMinRead) return Verdict::kRejected;
  std::basic_string_view<Char> s(start, length);

  // "+" is the international prefix: only first, or after an opening "(".
  if (s.front() != '(' && s.find(Char('+'), 1) != s.npos) return Verdict::kRejected;
  s = BalanceParentheses(s);
  if (!s.empty() && s.front() == '(') {
    const size_t close = s.find(Char(')'));
    if (close == s.npos || close > kMaxAreaCodeLength) return Verdict::kRejected;
  }
  const size_t digits = CountDigits(s);
  if (digits < kMinDigits || digits > kMaxDigits) return Verdict::kRejected;
  while (!IsAsciiDigit(s.back())) s.remove_suffix(1);  // the read takes trailing blanks and signs
  if (*start == '(' && !Holds(s, ')')) return Verdict::kRejected;

  *number = s;
  if (IsInternetAddress(s) || IsEnclosedCode(text, at, s) || IsTimeOfDay(text, at, s) ||
      IsDate(s) || IsPartOfHyphenatedCode(text, at, s))
    return Verdict::kRejectedSkipPast;
  return Verdict::kNumber;
}

template <typename Char>
std::wstring FindPhoneNumberIn(const Char* text) {
  if (!text) return {};
  size_t pos = 0;
  for (;;) {
    pos = NextStart(text, pos);
    if (!text[pos]) return {};
    const size_t at = pos;
    std::basic_string_view<Char> number;
    const Verdict verdict = StartsAWord(text, at) ? ExamineCandidate(text, at, &number) : Verdict::kRejected;
    switch (verdict) {
      case Verdict::kNumber: return links::Widen(number);
      case Verdict::kRejected: pos = SkipWordRest(text, at); break;
      case Verdict::kRejectedSkipPast: pos = at + number.size(); break;
    }
  }
}

}  // namespace

std::wstring FindPhoneNumber(const wchar_t* text) { return FindPhoneNumberIn(text); }
std::wstring FindPhoneNumber(const char* ansi_text) { return FindPhoneNumberIn(ansi_text); }

}  // namespace velmo
