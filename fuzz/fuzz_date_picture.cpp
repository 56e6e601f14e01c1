// Any picture, in GetDateFormatW and GetTimeFormatW: the size asked for is the
// size written, a buffer one short fails, and an ICU pattern of any content
// converts to a picture that formats. Derived pictures never exceed 199
// characters whatever the locale values hold.
#include "format/date_pictures.h"
#include "fuzz/fuzz_text.h"
#include "platform/locale.h"
#include "platform/locale_icu_pattern.h"

namespace {

using FormatCall = int (*)(LCID, DWORD, const SYSTEMTIME*, LPCWSTR, wchar_t*, int);

void CheckSizes(FormatCall call, const std::wstring& picture) {
  using velmo::fuzz::Require;
  const SYSTEMTIME t{2024, 2, 0, 29, 13, 5, 9, 0};
  const int needed = call(LOCALE_USER_DEFAULT, 0, &t, picture.c_str(), nullptr, 0);
  Require(needed >= 1);
  std::wstring out(static_cast<size_t>(needed), L'\0');
  Require(call(LOCALE_USER_DEFAULT, 0, &t, picture.c_str(), out.data(), needed) == needed);
  Require(out[static_cast<size_t>(needed) - 1] == L'\0');
  if (needed > 1) {
    Require(call(LOCALE_USER_DEFAULT, 0, &t, picture.c_str(), out.data(), needed - 1) == 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static velmo::locale::ScopedLocale locale("de_DE");
  const std::wstring text = velmo::fuzz::ScannedPart(velmo::fuzz::TextFromBytes(data, size));
  CheckSizes(GetDateFormatW, text);
  CheckSizes(GetTimeFormatW, text);
  CheckSizes(GetDateFormatW, velmo::locale::IcuPatternToPicture(text));

  velmo::format::LocaleDateValues values{text, text, text, text, text,
                                         text, text, text, text, text};
  const velmo::format::DatePictures p = velmo::format::DeriveDatePictures(values, {});
  for (const std::wstring* picture : {&p.short_date, &p.short_date_long_year, &p.day_month_padded,
                                      &p.day_month_unpadded, &p.day_month_locale, &p.time,
                                      &p.weekday_date}) {
    velmo::fuzz::Require(picture->size() <= velmo::format::kMaxPictureLength);
  }
  return 0;
}
