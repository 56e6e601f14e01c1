// Pictures cut into fields, and typing into a field.
#include "platform/ui/date_picture.h"

#include <algorithm>

#include "platform/locale.h"
#include "platform/ui/calendar_days.h"

namespace velmo::ui::internal {
namespace {

struct Letter {
  wchar_t ch;
  FieldKind kind;        // for runs of one or two letters
  FieldKind long_kind;   // for runs of three or more
  bool is_date;          // formatted by GetDateFormatW, else GetTimeFormatW
};

constexpr Letter kLetters[] = {
    {L'd', FieldKind::kDay, FieldKind::kWeekday, true},
    {L'M', FieldKind::kMonth, FieldKind::kMonth, true},
    {L'y', FieldKind::kYear, FieldKind::kYear, true},
    {L'g', FieldKind::kEra, FieldKind::kEra, true},
    {L'h', FieldKind::kHour12, FieldKind::kHour12, false},
    {L'H', FieldKind::kHour24, FieldKind::kHour24, false},
    {L'm', FieldKind::kMinute, FieldKind::kMinute, false},
    {L's', FieldKind::kSecond, FieldKind::kSecond, false},
    {L't', FieldKind::kMarker, FieldKind::kMarker, false},
};

const Letter* LetterOf(wchar_t ch) {
  for (const Letter& l : kLetters) {
    if (l.ch == ch) return &l;
  }
  return nullptr;
}

void AddText(std::vector<PictureField>* fields, std::wstring_view text) {
  if (text.empty()) return;
  if (!fields->empty() && fields->back().kind == FieldKind::kText) {
    fields->back().token += text;
  } else {
    fields->push_back(PictureField{FieldKind::kText, std::wstring(text)});
  }
}

bool IsTwoDigitYear(const PictureField& field) {
  return field.kind == FieldKind::kYear && field.token.size() <= 2;
}

}  // namespace

std::vector<PictureField> ParsePicture(std::wstring_view picture) {
  std::vector<PictureField> fields;
  size_t i = 0;
  while (i < picture.size()) {
    wchar_t ch = picture[i];
    if (ch == L'\'') {
      std::wstring literal;
      for (++i; i < picture.size(); ++i) {
        if (picture[i] != L'\'') {
          literal += picture[i];
        } else if (i + 1 < picture.size() && picture[i + 1] == L'\'') {
          literal += L'\'';
          ++i;
        } else {
          break;
        }
      }
      ++i;
      AddText(&fields, literal);
      continue;
    }
    size_t run = 1;
    while (i + run < picture.size() && picture[i + run] == ch) ++run;
    if (const Letter* letter = LetterOf(ch)) {
      fields.push_back(PictureField{run >= 3 ? letter->long_kind : letter->kind,
                                    std::wstring(picture.substr(i, run))});
    } else {
      AddText(&fields, picture.substr(i, run));
    }
    i += run;
  }
  return fields;
}

std::wstring FormatField(const PictureField& field, const SYSTEMTIME& time) {
  if (field.kind == FieldKind::kText) return field.token;
  const Letter* letter = LetterOf(field.token[0]);
  SYSTEMTIME st = WithWeekday(time);
  wchar_t out[80] = {};
  int n = letter && letter->is_date
              ? GetDateFormatW(LOCALE_USER_DEFAULT, 0, &st, field.token.c_str(), out, 80)
              : GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &st, field.token.c_str(), out, 80);
  return n > 0 ? std::wstring(out) : std::wstring();
}

bool TakesDigits(FieldKind kind) {
  switch (kind) {
    case FieldKind::kDay:
    case FieldKind::kMonth:
    case FieldKind::kYear:
    case FieldKind::kHour12:
    case FieldKind::kHour24:
    case FieldKind::kMinute:
    case FieldKind::kSecond:
      return true;
    default:
      return false;
  }
}

bool IsEditable(FieldKind kind) { return TakesDigits(kind) || kind == FieldKind::kMarker; }

int DigitsOf(const PictureField& field) {
  return field.kind == FieldKind::kYear && !IsTwoDigitYear(field) ? 4 : 2;
}

int HighestOf(const PictureField& field, const SYSTEMTIME& time) {
  switch (field.kind) {
    case FieldKind::kDay: return DaysInMonth(time.wYear, time.wMonth);
    case FieldKind::kMonth: return 12;
    case FieldKind::kYear: return IsTwoDigitYear(field) ? 99 : kLastYear;
    case FieldKind::kHour12: return 12;
    case FieldKind::kHour24: return 23;
    case FieldKind::kMinute:
    case FieldKind::kSecond: return 59;
    default: return 0;
  }
}

bool CouldTakeMore(const PictureField& field, const SYSTEMTIME& time, std::wstring_view typed) {
  if (static_cast<int>(typed.size()) >= DigitsOf(field)) return false;
  long value = std::stol(std::wstring(typed));
  return value * 10 <= HighestOf(field, time);
}

bool PutTyped(const PictureField& field, int value, SYSTEMTIME* time) {
  SYSTEMTIME st = *time;
  auto word = [](int v) { return static_cast<WORD>(v); };
  int lowest = field.kind == FieldKind::kHour24 || field.kind == FieldKind::kMinute ||
                       field.kind == FieldKind::kSecond || IsTwoDigitYear(field)
                   ? 0
                   : field.kind == FieldKind::kYear ? kFirstYear : 1;
  if (value < lowest || value > HighestOf(field, st)) return false;
  switch (field.kind) {
    case FieldKind::kDay: st.wDay = word(value); break;
    case FieldKind::kMonth: st.wMonth = word(value); break;
    case FieldKind::kYear:
      st.wYear = word(IsTwoDigitYear(field) ? st.wYear / 100 * 100 + value : value);
      break;
    case FieldKind::kHour12: st.wHour = word(value % 12 + (st.wHour >= 12 ? 12 : 0)); break;
    case FieldKind::kHour24: st.wHour = word(value); break;
    case FieldKind::kMinute: st.wMinute = word(value); break;
    case FieldKind::kSecond: st.wSecond = word(value); break;
    default: return false;
  }
  st.wDay = word(std::min<int>(st.wDay, DaysInMonth(st.wYear, st.wMonth)));
  if (!IsValidDay(st)) return false;
  *time = WithWeekday(st);
  return true;
}

}  // namespace velmo::ui::internal
