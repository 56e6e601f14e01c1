#include "platform/locale.h"

#include <unicode/uloc.h>

#include <cstdlib>
#include <cwchar>

#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/locale_data.h"
#include "platform/locale_picture.h"

namespace {

using velmo::locale::LocaleData;

std::optional<std::string> g_pinned_locale;

std::shared_ptr<const LocaleData> CurrentData() {
  return velmo::locale::LocaleDataFor(velmo::locale::CurrentLocaleName());
}

// The data of a locale identifier; null (last error set) when it names none.
std::shared_ptr<const LocaleData> DataFor(LCID lcid) {
  if (lcid == LOCALE_NEUTRAL || lcid == LOCALE_USER_DEFAULT || lcid == LOCALE_SYSTEM_DEFAULT ||
      lcid == LOCALE_CUSTOM_DEFAULT) {
    return CurrentData();
  }
  std::shared_ptr<const LocaleData> current = CurrentData();
  if (current->lcid == lcid) return current;
  char name[ULOC_FULLNAME_CAPACITY] = {};
  UErrorCode status = U_ZERO_ERROR;
  uloc_getLocaleForLCID(lcid, name, sizeof name, &status);
  if (U_FAILURE(status) || name[0] == '\0') {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  return velmo::locale::LocaleDataFor(name);
}

// Copies `text` the platform's way; returns the characters with the terminator.
int CopyOut(const std::wstring& text, wchar_t* out, int cch) {
  const int needed = static_cast<int>(text.size()) + 1;
  if (cch == 0) return needed;
  if (cch < needed) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  std::wmemcpy(out, text.c_str(), static_cast<size_t>(needed));
  return needed;
}

bool BadBuffer(const wchar_t* out, int cch) {
  if (cch < 0 || (cch > 0 && !out)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return true;
  }
  return false;
}

bool ValidDate(const SYSTEMTIME& t) {
  static constexpr int kDaysInMonth[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (t.wYear < 100 || t.wYear > 9999 || t.wMonth < 1 || t.wMonth > 12 || t.wDay < 1) {
    return false;
  }
  if (t.wDay > kDaysInMonth[t.wMonth - 1]) return false;
  const bool leap = (t.wYear % 4 == 0 && t.wYear % 100 != 0) || t.wYear % 400 == 0;
  return !(t.wMonth == 2 && t.wDay == 29 && !leap);
}

bool ValidTime(const SYSTEMTIME& t) {
  return t.wHour < 24 && t.wMinute < 60 && t.wSecond < 60 && t.wMilliseconds < 1000;
}

SYSTEMTIME TimeOrNow(const SYSTEMTIME* time) {
  SYSTEMTIME t{};
  if (time) {
    t = *time;
  } else {
    GetLocalTime(&t);
  }
  return t;
}

const std::wstring* Info(const LocaleData& data, LCTYPE type) {
  auto it = data.info.find(type);
  return it == data.info.end() ? nullptr : &it->second;
}

}  // namespace

LCID GetUserDefaultLCID() {
  const DWORD lcid = CurrentData()->lcid;
  return lcid != 0 ? lcid : LOCALE_USER_DEFAULT;
}

int GetLocaleInfoW(LCID locale, LCTYPE type, wchar_t* buffer, int cch) {
  if (BadBuffer(buffer, cch)) return 0;
  std::shared_ptr<const LocaleData> data = DataFor(locale);
  if (!data) return 0;
  const std::wstring* value = Info(*data, type & ~LOCALE_NOUSEROVERRIDE);
  if (!value) {
    SetLastError(ERROR_INVALID_FLAGS);
    return 0;
  }
  return CopyOut(*value, buffer, cch);
}

int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture,
                   wchar_t* out, int cch) {
  if (BadBuffer(out, cch)) return 0;
  flags &= ~(LOCALE_NOUSEROVERRIDE | DATE_USE_ALT_CALENDAR | DATE_LTRREADING | DATE_RTLREADING);
  const DWORD style = flags & (DATE_SHORTDATE | DATE_LONGDATE | DATE_YEARMONTH);
  const bool one_style_at_most = (style & (style - 1)) == 0;
  if (flags != style || !one_style_at_most || (picture && style != 0)) {
    SetLastError(ERROR_INVALID_FLAGS);
    return 0;
  }
  const SYSTEMTIME t = TimeOrNow(time);
  if (!ValidDate(t)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  std::shared_ptr<const LocaleData> data = DataFor(locale);
  if (!data) return 0;
  std::wstring chosen;
  if (picture) {
    chosen = picture;
  } else {
    const LCTYPE type = style == DATE_LONGDATE    ? LOCALE_SLONGDATE
                        : style == DATE_YEARMONTH ? LOCALE_SYEARMONTH
                                                  : LOCALE_SSHORTDATE;
    const std::wstring* value = Info(*data, type);
    chosen = value ? *value : *Info(*data, LOCALE_SSHORTDATE);
  }
  return CopyOut(velmo::locale::FormatDatePicture(chosen, t, data->names), out, cch);
}

int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture,
                   wchar_t* out, int cch) {
  if (BadBuffer(out, cch)) return 0;
  flags &= ~LOCALE_NOUSEROVERRIDE;
  constexpr DWORD kKnown =
      TIME_NOMINUTESORSECONDS | TIME_NOSECONDS | TIME_NOTIMEMARKER | TIME_FORCE24HOURFORMAT;
  if ((flags & ~kKnown) != 0) {
    SetLastError(ERROR_INVALID_FLAGS);
    return 0;
  }
  const SYSTEMTIME t = TimeOrNow(time);
  if (!ValidTime(t)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  std::shared_ptr<const LocaleData> data = DataFor(locale);
  if (!data) return 0;
  const std::wstring chosen = picture ? std::wstring(picture) : *Info(*data, LOCALE_STIMEFORMAT);
  return CopyOut(velmo::locale::FormatTimePicture(chosen, t, data->names, flags), out, cch);
}

namespace velmo::locale {

std::string CurrentLocaleName() {
  if (g_pinned_locale) return IcuNameFromPosix(*g_pinned_locale);
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value && *value) return IcuNameFromPosix(value);
  }
  return IcuNameFromPosix("C");
}

ScopedLocale::ScopedLocale(const std::string& name) : previous_(g_pinned_locale) {
  g_pinned_locale = name;
}

ScopedLocale::~ScopedLocale() { g_pinned_locale = previous_; }

}  // namespace velmo::locale
