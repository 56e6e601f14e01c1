// FindPhoneNumber: each character that can start a number ("(", "+" or a digit)
// standing at the start of a word starts a candidate; the candidate is the run of
// dialling characters read from it, trimmed, and it is the number when no test
// rejects it. A rejection resumes the search one character on, or past the
// candidate when the candidate was recognised as something else (an internet
// address, a date, a time, a part number, an enclosed code).
#include <cwchar>
#include <string_view>
#include <utility>

#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

using links::IsAsciiDigit;
using links::IsLetterOrDigit;
using links::IsPunctuation;

constexpr size_t kMaxRead = 63;       // the read is "%63[.+() wp0-9-]"
constexpr size_t kMinRead = 7;
constexpr size_t kMinDigits = 7;
constexpr size_t kMaxDigits = 20;
constexpr size_t kMaxAreaCodeLength = 8;  // "(" must be closed within this many characters
constexpr int kMinYear = 1900;
constexpr int kMaxYear = 2100;

bool IsStartChar(wchar_t c) { return c == L'(' || c == L'+' || IsAsciiDigit(c); }

bool IsDialChar(wchar_t c) {
  return IsAsciiDigit(c) || c == L'.' || c == L'+' || c == L'(' || c == L')' || c == L' ' ||
         c == L'w' || c == L'p' || c == L'-';
}

// Pairs of enclosing characters that may surround a number written without blanks.
constexpr std::pair<wchar_t, wchar_t> kEnclosingPairs[] = {
    {L'(', L')'}, {L'[', L']'}, {L'{', L'}'}, {L'<', L'>'}, {L'"', L'"'}, {L'\'', L'\''}};

bool IsEnclosingPair(wchar_t before, wchar_t after) {
  for (const auto& [open, close] : kEnclosingPairs)
    if (before == open && after == close) return true;
  return false;
}

size_t CountDigits(std::wstring_view s) {
  size_t n = 0;
  for (wchar_t c : s) n += IsAsciiDigit(c);
  return n;
}

bool ConsistsOf(std::wstring_view s, std::wstring_view allowed_non_digits) {
  for (wchar_t c : s)
    if (!IsAsciiDigit(c) && allowed_non_digits.find(c) == std::wstring_view::npos) return false;
  return true;
}

bool Holds(std::wstring_view s, wchar_t c) { return s.find(c) != std::wstring_view::npos; }

// A candidate start counts only at the start of a word: not after a letter or
// digit, nor after "=" that follows one ("id=123..." is a value, not a number).
bool StartsAWord(const wchar_t* text, size_t at) {
  if (at == 0) return true;
  const wchar_t before = text[at - 1];
  if (IsLetterOrDigit(before)) return false;
  return !(before == L'=' && at >= 2 && IsLetterOrDigit(text[at - 2]));
}

// Parentheses must pair up: an unmatched one, or a second group opening after
// the first closed, ends the candidate there.
std::wstring_view BalanceParentheses(std::wstring_view s) {
  const size_t open = s.find(L'(');
  const size_t close = s.find(L')');
  const auto npos = std::wstring_view::npos;
  if (open != npos && close == npos) return s.substr(0, open);
  if (close != npos && open == npos) return s.substr(0, close);
  if (close != npos) {
    const size_t reopen = s.find(L'(', close + 1);
    if (reopen != npos) return s.substr(0, reopen);
  }
  return s;
}

// The scanf reads below see only the candidate: a read of the whole remaining
// text would first measure it, on every candidate. The character after a
// candidate is never a digit, so the reads take the same values either way.
struct CandidateCopy {
  explicit CandidateCopy(std::wstring_view s) {
    const size_t n = s.copy(text, kMaxRead);
    text[n] = L'\0';
  }
  wchar_t text[kMaxRead + 1];
};

bool IsInternetAddress(std::wstring_view s) {
  if (!Holds(s, L'.')) return false;
  const CandidateCopy copy(s);
  int v[4];
  if (std::swscanf(copy.text, L"%d.%d.%d.%d", &v[0], &v[1], &v[2], &v[3]) != 4) return false;
  for (int x : v)
    if (x < 0 || x > 255) return false;
  wchar_t printed[64];
  std::swprintf(printed, 64, L"%d.%d.%d.%d", v[0], v[1], v[2], v[3]);
  return s == printed;
}

// A code enclosed in punctuation ("#1234567#", "/2024001/") is no number,
// unless the two enclosing characters are a pair of brackets or quotes.
bool IsEnclosedCode(const wchar_t* text, size_t at, std::wstring_view s) {
  if (at == 0 || Holds(s, L' ')) return false;
  const wchar_t before = text[at - 1];
  const wchar_t after = text[at + s.size()];
  return IsPunctuation(before) && IsPunctuation(after) && !IsEnclosingPair(before, after);
}

// "10:30 12.5 7..." : digits, dots and blanks beside a ":" with a digit beyond.
bool IsTimeOfDay(const wchar_t* text, size_t at, std::wstring_view s) {
  if (!ConsistsOf(s, L". ") || !Holds(s, L'.') || !Holds(s, L' ')) return false;
  const size_t end = at + s.size();
  const bool colon_before = at >= 2 && text[at - 1] == L':' && IsAsciiDigit(text[at - 2]);
  const bool colon_after = text[end] == L':' && IsAsciiDigit(text[end + 1]);
  return colon_before || colon_after;
}

// "15.01.2008", "2008.01.15": three dotted numbers, one of them a year.
bool IsDate(std::wstring_view s) {
  const size_t digits = CountDigits(s);
  if (digits < 6 || digits > 8 || s.size() - digits != 2 || !ConsistsOf(s, L".")) return false;
  const CandidateCopy copy(s);
  int v[3];
  if (std::swscanf(copy.text, L"%d.%d.%d", &v[0], &v[1], &v[2]) != 3) return false;
  const auto is_year = [](int x) { return x >= kMinYear && x <= kMaxYear; };
  return is_year(v[0]) || is_year(v[2]);
}

// "AB-1234-5678-CD": digits and hyphens joined by a hyphen to more of the same.
bool IsPartOfHyphenatedCode(const wchar_t* text, size_t at, std::wstring_view s) {
  if (!ConsistsOf(s, L"-") || CountDigits(s) == s.size()) return false;
  return (at > 0 && text[at - 1] == L'-') || text[at + s.size()] == L'-';
}

enum class Verdict { kNumber, kRejected, kRejectedSkipPast };

// Reads the candidate at text[at] and tests it; *number is the candidate as
// trimmed so far (its length also tells how far to skip).
Verdict ExamineCandidate(const wchar_t* text, size_t at, std::wstring_view* number) {
  const wchar_t* start = text + at;
  size_t length = 0;
  while (length < kMaxRead && IsDialChar(start[length])) ++length;
  if (length < kMinRead) return Verdict::kRejected;
  std::wstring_view s(start, length);

  // "+" is the international prefix: only first, or after an opening "(".
  if (s.front() != L'(' && s.find(L'+', 1) != std::wstring_view::npos) return Verdict::kRejected;
  s = BalanceParentheses(s);
  if (!s.empty() && s.front() == L'(') {
    const size_t close = s.find(L')');
    if (close == std::wstring_view::npos || close > kMaxAreaCodeLength) return Verdict::kRejected;
  }
  const size_t digits = CountDigits(s);
  if (digits < kMinDigits || digits > kMaxDigits) return Verdict::kRejected;
  while (!IsAsciiDigit(s.back())) s.remove_suffix(1);  // the read takes trailing blanks and signs
  if (*start == L'(' && !Holds(s, L')')) return Verdict::kRejected;

  *number = s;
  if (IsInternetAddress(s) || IsEnclosedCode(text, at, s) || IsTimeOfDay(text, at, s) ||
      IsDate(s) || IsPartOfHyphenatedCode(text, at, s))
    return Verdict::kRejectedSkipPast;
  return Verdict::kNumber;
}

}  // namespace

std::wstring FindPhoneNumber(const wchar_t* text) {
  if (!text) return {};
  size_t pos = 0;
  for (;;) {
    while (text[pos] && !IsStartChar(text[pos])) ++pos;
    if (!text[pos]) return {};
    const size_t at = pos;
    if (!StartsAWord(text, at)) {
      pos = at + 1;
      continue;
    }
    std::wstring_view number;
    switch (ExamineCandidate(text, at, &number)) {
      case Verdict::kNumber: return std::wstring(number);
      case Verdict::kRejected: pos = at + 1; break;
      case Verdict::kRejectedSkipPast: pos = at + number.size(); break;
    }
  }
}

}  // namespace velmo
