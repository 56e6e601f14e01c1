#include "format/date_text.h"

#include "platform/locale.h"
#include "platform/oletime.h"

namespace velmo::format {
namespace {

using FormatCall = int (*)(LCID, DWORD, const SYSTEMTIME*, LPCWSTR, wchar_t*, int);

std::wstring Formatted(FormatCall call, DATE date, const std::wstring& picture) {
  SYSTEMTIME time;
  if (!VariantTimeToSystemTime(date, &time)) return std::wstring();
  const int needed = call(LOCALE_USER_DEFAULT, 0, &time, picture.c_str(), nullptr, 0);
  if (needed <= 0) return std::wstring();
  std::wstring text(static_cast<size_t>(needed), L'\0');
  const int written = call(LOCALE_USER_DEFAULT, 0, &time, picture.c_str(), text.data(), needed);
  text.resize(written > 0 ? static_cast<size_t>(written - 1) : 0);
  return text;
}

}  // namespace

std::wstring DateText(DATE date, const std::wstring& picture) {
  return Formatted(GetDateFormatW, date, picture);
}

std::wstring TimeText(DATE date, const std::wstring& picture) {
  return Formatted(GetTimeFormatW, date, picture);
}

}  // namespace velmo::format
