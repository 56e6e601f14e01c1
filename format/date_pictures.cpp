#include "format/date_pictures.h"

#include <vector>

#include "platform/lasterror.h"

namespace velmo::format {
namespace {

std::wstring Limited(std::wstring picture) {
  if (picture.size() > kMaxPictureLength) picture.resize(kMaxPictureLength);
  return picture;
}

bool Holds(const std::wstring& text, const wchar_t* part) {
  return text.find(part) != std::wstring::npos;
}

// Buffer sizes (with the terminator) the values are read into.
constexpr int kPictureBuffer = static_cast<int>(kMaxPictureLength) + 1;
constexpr int kSeparatorBuffer = 20;
constexpr int kFlagBuffer = 6;

struct ValueSource {
  LCTYPE type;
  std::wstring LocaleDateValues::*member;
  int buffer;
};
constexpr ValueSource kValueSources[] = {
    {LOCALE_SSHORTDATE, &LocaleDateValues::short_date, kPictureBuffer},
    {LOCALE_ICENTURY, &LocaleDateValues::century, kFlagBuffer},
    {LOCALE_IDATE, &LocaleDateValues::date_order, kFlagBuffer},
    {LOCALE_SDATE, &LocaleDateValues::date_separator, kSeparatorBuffer},
    {LOCALE_IDAYLZERO, &LocaleDateValues::day_leading_zero, kFlagBuffer},
    {LOCALE_IMONLZERO, &LocaleDateValues::month_leading_zero, kFlagBuffer},
    {LOCALE_ITLZERO, &LocaleDateValues::hour_leading_zero, kFlagBuffer},
    {LOCALE_ITIME, &LocaleDateValues::time_format, kFlagBuffer},
    {LOCALE_STIME, &LocaleDateValues::time_separator, kSeparatorBuffer},
    {LOCALE_STIMEFORMAT, &LocaleDateValues::time_picture, kPictureBuffer},
};

// Pictures narrower than the locale's own are used below this density.
constexpr int kCompactBelowPixelsPerInch = 131;
constexpr size_t kLongShortDate = 9;

}  // namespace

bool IsFlagOff(const std::wstring& flag) { return flag == L"0" || flag == L"48"; }
bool IsDayFirstOrder(const std::wstring& order) { return order == L"1" || order == L"49"; }

DatePictures DeriveDatePictures(const LocaleDateValues& v, const ScreenTraits& screen) {
  DatePictures p;
  const std::wstring& sep = v.date_separator;
  const bool day_first = IsDayFirstOrder(v.date_order);

  const size_t yy = v.short_date.find(L"yy");
  p.short_date_long_year = !Holds(v.short_date, L"yyy") && yy != std::wstring::npos
                               ? v.short_date.substr(0, yy) + L"yyyy" + v.short_date.substr(yy + 2)
                               : v.short_date;

  const std::wstring day = IsFlagOff(v.day_leading_zero) ? L"d" : L"dd";
  const std::wstring month = IsFlagOff(v.month_leading_zero) ? L"M" : L"MM";
  if (day_first) {
    p.day_month_padded = L"dd" + sep + L"MM";
    p.day_month_unpadded = L"d" + sep + L"M";
    p.day_month_locale = day + sep + month;
  } else {
    p.day_month_padded = L"MM" + sep + L"dd";
    p.day_month_unpadded = L"M" + sep + L"d";
    p.day_month_locale = month + sep + day;
  }
  if (screen.pocket_pc) p.day_month_locale = v.short_date;

  const bool compact = screen.logical_pixels_x < kCompactBelowPixelsPerInch &&
                       (v.short_date.size() >= kLongShortDate || !IsFlagOff(v.century));
  if (compact) {
    const std::wstring compact_month = Holds(v.short_date, L"MM") ? L"MM" : L"M";
    if (IsFlagOff(v.date_order)) {
      p.short_date = compact_month + sep + day + sep + L"yy";
    } else if (day_first) {
      p.short_date = day + sep + compact_month + sep + L"yy";
    } else {
      p.short_date = L"yy" + sep + compact_month + sep + day;
    }
  } else {
    p.short_date = v.short_date;
  }

  const bool hour_zero = !IsFlagOff(v.hour_leading_zero);
  const std::wstring minutes = v.time_separator + L"mm";
  if (!IsFlagOff(v.time_format)) {
    p.time = (hour_zero ? L"HH" : L"H") + minutes;
  } else {
    const std::wstring hours = (hour_zero ? L"hh" : L"h") + minutes;
    p.time = v.time_picture.starts_with(L"tt") ? L"tt " + hours : hours + L" tt";
  }

  p.weekday_date = Holds(v.short_date, L"ddd")
                       ? v.short_date
                       : (screen.pocket_pc ? L"dddd " : L"ddd ") + v.short_date;

  for (std::wstring* picture : {&p.short_date, &p.short_date_long_year, &p.day_month_padded,
                                &p.day_month_unpadded, &p.day_month_locale, &p.time,
                                &p.weekday_date}) {
    *picture = Limited(std::move(*picture));
  }
  return p;
}

HRESULT ReadLocaleDateValues(LCID locale, LocaleDateValues* values) {
  if (!values) return E_POINTER;
  HRESULT result = S_OK;
  std::vector<wchar_t> buffer;
  for (const ValueSource& source : kValueSources) {
    buffer.assign(static_cast<size_t>(source.buffer), L'\0');
    if (GetLocaleInfoW(locale, source.type, buffer.data(), source.buffer) == 0) {
      const HRESULT failure = LastErrorAsHresult();
      if (SUCCEEDED(result)) result = FAILED(failure) ? failure : E_FAIL;
      buffer[0] = L'\0';
    }
    values->*source.member = buffer.data();
  }
  return result;
}

}  // namespace velmo::format
