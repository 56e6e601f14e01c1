#include "platform/locale_data.h"

#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/uloc.h>

#include <cstring>
#include <mutex>

#include "platform/locale.h"
#include "platform/locale_icu_pattern.h"
#include "platform/wstr.h"

namespace velmo::locale {
namespace {

constexpr char kFallbackLocale[] = "en_US";

std::wstring Wide(const icu::UnicodeString& s) {
  return FromUtf16(std::u16string_view(s.getBuffer(), static_cast<size_t>(s.length())));
}

std::wstring Flag(bool on) { return on ? L"1" : L"0"; }

// The pattern of one of ICU's date or time styles, or empty when ICU has none.
enum class Side { kDate, kTime };
std::wstring StylePattern(const icu::Locale& locale, Side side, icu::DateFormat::EStyle style) {
  std::unique_ptr<icu::DateFormat> format(
      side == Side::kDate ? icu::DateFormat::createDateInstance(style, locale)
                          : icu::DateFormat::createTimeInstance(style, locale));
  auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
  if (!simple) return std::wstring();
  icu::UnicodeString pattern;
  return Wide(simple->toPattern(pattern));
}

std::wstring SkeletonPattern(const icu::Locale& locale, const char16_t* skeleton) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::DateTimePatternGenerator> generator(
      icu::DateTimePatternGenerator::createInstance(locale, status));
  if (U_FAILURE(status)) return std::wstring();
  icu::UnicodeString pattern = generator->getBestPattern(icu::UnicodeString(skeleton), status);
  return U_FAILURE(status) ? std::wstring() : Wide(pattern);
}

void ReadNames(const icu::DateFormatSymbols& symbols, LocaleNames* names) {
  using Symbols = icu::DateFormatSymbols;
  static constexpr Symbols::DtContextType kContexts[] = {Symbols::FORMAT, Symbols::STANDALONE};
  static constexpr Symbols::DtWidthType kWidths[] = {Symbols::ABBREVIATED, Symbols::WIDE};
  for (int c = 0; c < 2; ++c) {
    for (int w = 0; w < 2; ++w) {
      int32_t count = 0;
      // ICU's weekday arrays start at index 1, Sunday.
      const icu::UnicodeString* days = symbols.getWeekdays(count, kContexts[c], kWidths[w]);
      for (int d = 0; d < 7 && d + 1 < count; ++d) names->days[c][w][d] = Wide(days[d + 1]);
      const icu::UnicodeString* months = symbols.getMonths(count, kContexts[c], kWidths[w]);
      for (int m = 0; m < 12 && m < count; ++m) names->months[c][w][m] = Wide(months[m]);
    }
  }
  int32_t count = 0;
  const icu::UnicodeString* am_pm = symbols.getAmPmStrings(count);
  for (int i = 0; i < 2 && i < count; ++i) names->am_pm[i] = Wide(am_pm[i]);
  const icu::UnicodeString* eras = symbols.getEras(count);
  for (int i = 0; i < 2 && i < count; ++i) names->eras[i] = Wide(eras[i]);
}

void FillInfo(const icu::Locale& locale, LocaleData* data) {
  auto& info = data->info;
  const std::wstring short_date = StylePattern(locale, Side::kDate, icu::DateFormat::kShort);
  const std::wstring short_time = StylePattern(locale, Side::kTime, icu::DateFormat::kShort);
  const DatePatternFacts date = AnalyseDatePattern(short_date);
  const TimePatternFacts time = AnalyseTimePattern(short_time);

  info[LOCALE_SSHORTDATE] = IcuPatternToPicture(short_date);
  info[LOCALE_SLONGDATE] =
      IcuPatternToPicture(StylePattern(locale, Side::kDate, icu::DateFormat::kFull));
  info[LOCALE_SYEARMONTH] = IcuPatternToPicture(SkeletonPattern(locale, u"yMMMM"));
  info[LOCALE_STIMEFORMAT] =
      IcuPatternToPicture(StylePattern(locale, Side::kTime, icu::DateFormat::kMedium));
  info[LOCALE_SDATE] = date.separator;
  info[LOCALE_IDATE] = std::to_wstring(date.order);
  info[LOCALE_ILDATE] = std::to_wstring(
      AnalyseDatePattern(StylePattern(locale, Side::kDate, icu::DateFormat::kLong)).order);
  info[LOCALE_ICENTURY] = Flag(date.four_digit_year);
  info[LOCALE_IDAYLZERO] = Flag(date.day_leading_zero);
  info[LOCALE_IMONLZERO] = Flag(date.month_leading_zero);
  info[LOCALE_STIME] = time.separator;
  info[LOCALE_ITIME] = Flag(time.hours_24);
  info[LOCALE_ITLZERO] = Flag(time.hour_leading_zero);
  info[LOCALE_ITIMEMARKPOSN] = Flag(time.marker_first);

  const LocaleNames& names = data->names;
  info[LOCALE_S1159] = names.am_pm[0];
  info[LOCALE_S2359] = names.am_pm[1];
  for (int i = 0; i < 7; ++i) {
    // The platform's day names start on Monday.
    const int day = (i + 1) % 7;
    info[LOCALE_SDAYNAME1 + i] = names.days[kStandaloneContext][kWide][day];
    info[LOCALE_SABBREVDAYNAME1 + i] = names.days[kStandaloneContext][kAbbreviated][day];
  }
  for (int i = 0; i < 12; ++i) {
    info[LOCALE_SMONTHNAME1 + i] = names.months[kStandaloneContext][kWide][i];
    info[LOCALE_SABBREVMONTHNAME1 + i] = names.months[kStandaloneContext][kAbbreviated][i];
  }

  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
  if (U_SUCCESS(status)) {
    // ICU counts from Sunday = 1, the platform from Monday = 0.
    info[LOCALE_IFIRSTDAYOFWEEK] =
        std::to_wstring((static_cast<int>(calendar->getFirstDayOfWeek(status)) + 5) % 7);
  }
  status = U_ZERO_ERROR;
  const std::string tag = locale.toLanguageTag<std::string>(status);
  const size_t extension = tag.find("-u-");
  info[LOCALE_SNAME] = FromUtf8(tag.substr(0, extension));
}

// Reads a locale from ICU; null when ICU has no data for its language.
std::shared_ptr<LocaleData> ReadFromIcu(const std::string& icu_name) {
  icu::Locale locale(icu_name.c_str());
  if (locale.isBogus()) return nullptr;
  UErrorCode status = U_ZERO_ERROR;
  // Dates are Gregorian whatever calendar the locale prefers.
  locale.setKeywordValue("calendar", "gregorian", status);
  status = U_ZERO_ERROR;
  icu::DateFormatSymbols symbols(locale, status);
  if (U_FAILURE(status)) return nullptr;
  // ICU answers for a language it lacks with its default locale's data or the root's.
  const icu::Locale actual = symbols.getLocale(ULOC_ACTUAL_LOCALE, status);
  if (U_FAILURE(status) || std::strcmp(actual.getLanguage(), locale.getLanguage()) != 0) {
    return nullptr;
  }

  auto data = std::make_shared<LocaleData>();
  data->icu_name = icu_name;
  data->lcid = uloc_getLCID(icu_name.c_str());
  ReadNames(symbols, &data->names);
  FillInfo(locale, data.get());
  if (data->info[LOCALE_SSHORTDATE].empty() || data->info[LOCALE_STIMEFORMAT].empty()) {
    return nullptr;
  }
  return data;
}

struct Modifier {
  const char* posix;
  const char* script;
};
constexpr Modifier kScriptModifiers[] = {
    {"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}, {"arabic", "Arab"}};

}  // namespace

std::shared_ptr<const LocaleData> LocaleDataFor(const std::string& icu_name) {
  static std::mutex mutex;
  static std::map<std::string, std::shared_ptr<const LocaleData>> cache;
  std::lock_guard<std::mutex> lock(mutex);
  auto it = cache.find(icu_name);
  if (it != cache.end()) return it->second;
  std::shared_ptr<const LocaleData> data = ReadFromIcu(icu_name);
  if (!data) {
    data = icu_name == kFallbackLocale ? nullptr : ReadFromIcu(kFallbackLocale);
    if (!data) {
      // ICU without en_US data: keep the picture calls working in the plainest way.
      auto plain = std::make_shared<LocaleData>();
      plain->icu_name = kFallbackLocale;
      plain->info = {{LOCALE_SSHORTDATE, L"M/d/yy"}, {LOCALE_STIMEFORMAT, L"h:mm:ss tt"},
                     {LOCALE_SDATE, L"/"}, {LOCALE_STIME, L":"}, {LOCALE_IDATE, L"0"},
                     {LOCALE_ICENTURY, L"0"}, {LOCALE_IDAYLZERO, L"0"},
                     {LOCALE_IMONLZERO, L"0"}, {LOCALE_ITIME, L"0"}, {LOCALE_ITLZERO, L"0"}};
      plain->names.am_pm[0] = L"AM";
      plain->names.am_pm[1] = L"PM";
      data = plain;
    }
  }
  cache.emplace(icu_name, data);
  return data;
}

std::string IcuNameFromPosix(const std::string& posix_name) {
  std::string name = posix_name;
  std::string modifier;
  if (const size_t at = name.find('@'); at != std::string::npos) {
    modifier = name.substr(at + 1);
    name.erase(at);
  }
  if (const size_t dot = name.find('.'); dot != std::string::npos) name.erase(dot);
  if (name.empty() || name == "C" || name == "POSIX") return kFallbackLocale;

  char canonical[ULOC_FULLNAME_CAPACITY] = {};
  UErrorCode status = U_ZERO_ERROR;
  uloc_canonicalize(name.c_str(), canonical, sizeof canonical, &status);
  if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) return kFallbackLocale;
  const icu::Locale locale(canonical);
  for (const Modifier& m : kScriptModifiers) {
    if (modifier == m.posix && *locale.getScript() == '\0') {
      std::string with_script = std::string(locale.getLanguage()) + "_" + m.script;
      if (*locale.getCountry() != '\0') with_script += std::string("_") + locale.getCountry();
      return with_script;
    }
  }
  return locale.getName();
}

}  // namespace velmo::locale
