// One locale's values as GetLocaleInfoW reports them and the names the
// picture formatter uses, read once from ICU (CLDR, Gregorian calendar) and
// kept for the life of the process.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/wintypes.h"

namespace velmo::locale {

enum NameContext { kFormatContext = 0, kStandaloneContext = 1 };
enum NameWidth { kAbbreviated = 0, kWide = 1 };

// Day and month names, AM/PM markers and eras of one locale.
struct LocaleNames {
  std::wstring days[2][2][7];     // [context][width][0 Sunday .. 6 Saturday]
  std::wstring months[2][2][12];  // [context][width][0 January .. 11 December]
  std::wstring am_pm[2];
  std::wstring eras[2];           // before and after the start of the era, abbreviated
};

struct LocaleData {
  std::string icu_name;           // "de_DE"
  DWORD lcid = 0;                 // 0 when the locale has no identifier
  std::map<DWORD, std::wstring> info;  // GetLocaleInfoW values by type
  LocaleNames names;
};

// The data of an ICU locale name; a locale ICU has no data for is read as
// en_US. Never null.
std::shared_ptr<const LocaleData> LocaleDataFor(const std::string& icu_name);

// The ICU name for a POSIX locale name ("de_DE.UTF-8@euro" -> "de_DE",
// "sr_RS@latin" -> "sr_Latn_RS"); "C", "POSIX" and the empty name are en_US.
std::string IcuNameFromPosix(const std::string& posix_name);

}  // namespace velmo::locale
