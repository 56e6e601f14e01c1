#include "platform/locale_picture.h"

#include <vector>

#include "platform/locale.h"

namespace velmo::locale {
namespace {

// A run of one picture letter, or (letter 0) literal text.
struct Element {
  wchar_t letter = 0;
  int count = 0;
  std::wstring text;
};

void AppendLiteral(std::vector<Element>& elements, wchar_t c) {
  if (elements.empty() || elements.back().letter != 0) elements.push_back({});
  elements.back().text += c;
}

std::vector<Element> SplitPicture(std::wstring_view picture, std::wstring_view letters) {
  std::vector<Element> elements;
  for (size_t i = 0; i < picture.size(); ++i) {
    const wchar_t c = picture[i];
    if (c == L'\'') {
      if (i + 1 < picture.size() && picture[i + 1] == L'\'') {
        AppendLiteral(elements, L'\'');
        ++i;
        continue;
      }
      for (++i; i < picture.size(); ++i) {
        if (picture[i] != L'\'') {
          AppendLiteral(elements, picture[i]);
        } else if (i + 1 < picture.size() && picture[i + 1] == L'\'') {
          AppendLiteral(elements, L'\'');
          ++i;
        } else {
          break;
        }
      }
      continue;
    }
    if (letters.find(c) == std::wstring_view::npos) {
      AppendLiteral(elements, c);
      continue;
    }
    int count = 1;
    while (i + 1 < picture.size() && picture[i + 1] == c) {
      ++count;
      ++i;
    }
    elements.push_back({c, count, {}});
  }
  return elements;
}

std::wstring Number(int value, int min_digits) {
  std::wstring digits = std::to_wstring(value);
  if (static_cast<int>(digits.size()) < min_digits) {
    digits.insert(0, static_cast<size_t>(min_digits) - digits.size(), L'0');
  }
  return digits;
}

std::wstring DateElement(const Element& e, const SYSTEMTIME& t, const LocaleNames& names,
                         NameContext month_context) {
  switch (e.letter) {
    case L'd':
      if (e.count <= 2) return Number(t.wDay, e.count);
      return names.days[kStandaloneContext][e.count == 3 ? kAbbreviated : kWide]
                       [DayOfWeek(t.wYear, t.wMonth, t.wDay)];
    case L'M':
      if (e.count <= 2) return Number(t.wMonth, e.count);
      return names.months[month_context][e.count == 3 ? kAbbreviated : kWide][t.wMonth - 1];
    case L'y':
      if (e.count <= 2) return Number(t.wYear % 100, e.count);
      return Number(t.wYear, 1);
    case L'g':
      return names.eras[1];
  }
  return std::wstring();
}

std::wstring TimeElement(const Element& e, const SYSTEMTIME& t, const LocaleNames& names,
                         bool force_24) {
  const std::wstring& marker = names.am_pm[t.wHour < 12 ? 0 : 1];
  switch (e.letter) {
    case L'h':
      if (!force_24) return Number(t.wHour % 12 == 0 ? 12 : t.wHour % 12, e.count >= 2 ? 2 : 1);
      [[fallthrough]];
    case L'H':
      return Number(t.wHour, e.count >= 2 ? 2 : 1);
    case L'm':
      return Number(t.wMinute, e.count >= 2 ? 2 : 1);
    case L's':
      return Number(t.wSecond, e.count >= 2 ? 2 : 1);
    case L't':
      return e.count == 1 ? marker.substr(0, 1) : marker;
  }
  return std::wstring();
}

bool Suppressed(wchar_t letter, DWORD flags) {
  switch (letter) {
    case L'm': return (flags & TIME_NOMINUTESORSECONDS) != 0;
    case L's': return (flags & (TIME_NOMINUTESORSECONDS | TIME_NOSECONDS)) != 0;
    case L't': return (flags & TIME_NOTIMEMARKER) != 0;
  }
  return false;
}

}  // namespace

int DayOfWeek(int year, int month, int day) {
  // Sakamoto's method.
  static constexpr int kMonthOffsets[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
  if (month < 3) year -= 1;
  return (year + year / 4 - year / 100 + year / 400 + kMonthOffsets[(month - 1) % 12] + day) % 7;
}

std::wstring FormatDatePicture(std::wstring_view picture, const SYSTEMTIME& time,
                               const LocaleNames& names) {
  const std::vector<Element> elements = SplitPicture(picture, L"dMyg");
  bool has_day_number = false;
  for (const Element& e : elements) has_day_number |= e.letter == L'd' && e.count <= 2;
  const NameContext month_context = has_day_number ? kFormatContext : kStandaloneContext;
  std::wstring out;
  for (const Element& e : elements) {
    out += e.letter == 0 ? e.text : DateElement(e, time, names, month_context);
  }
  return out;
}

std::wstring FormatTimePicture(std::wstring_view picture, const SYSTEMTIME& time,
                               const LocaleNames& names, DWORD flags) {
  std::vector<Element> elements = SplitPicture(picture, L"hHmst");
  // Remove suppressed elements with the literal text that joins them to the rest.
  for (size_t i = 0; i < elements.size();) {
    if (elements[i].letter == 0 || !Suppressed(elements[i].letter, flags)) {
      ++i;
      continue;
    }
    size_t first = i, last = i + 1;
    if (i >= 2 && elements[i - 1].letter == 0) {
      first = i - 1;
    } else if (i == 0 || (i == 1 && elements[0].letter == 0)) {
      if (last < elements.size() && elements[last].letter == 0) ++last;
    }
    elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(first),
                   elements.begin() + static_cast<std::ptrdiff_t>(last));
    i = first;
  }
  const bool force_24 = (flags & TIME_FORCE24HOURFORMAT) != 0;
  std::wstring out;
  for (const Element& e : elements) {
    out += e.letter == 0 ? e.text : TimeElement(e, time, names, force_24);
  }
  return out;
}

}  // namespace velmo::locale
