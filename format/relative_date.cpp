#include "format/relative_date.h"

#include <unicode/uchar.h>

#include <cwchar>

#include "format/current_pictures.h"
#include "format/date_text.h"
#include "platform/clock.h"
#include "platform/oletime.h"
#include "res/strings.h"

namespace velmo::format {
namespace {

constexpr UINT kYesterdayString = 802;
constexpr UINT kTodayString = 803;
constexpr UINT kTomorrowString = 804;

// String of the day relative to today: index 0 yesterday, 1 today, 2 tomorrow.
constexpr UINT kRelativeDayStrings[] = {kYesterdayString, kTodayString, kTomorrowString};

}  // namespace

std::wstring RelativeDateText(DATE date, bool relative) {
  std::wstring text = DateText(date, Pictures().weekday_date);
  if (text.empty() || !relative) return text;
  const long offset = WholeDay(date) - WholeDay(NowAsDate());
  if (offset >= -1 && offset <= 1) return res::FormatId(kRelativeDayStrings[offset + 1], {text});
  text[0] = static_cast<wchar_t>(u_totitle(static_cast<UChar32>(text[0])));
  return text;
}

HRESULT FormatRelativeDate(DATE date, wchar_t* out, int cch, bool relative) {
  if (!out || cch <= 0) return E_INVALIDARG;
  out[0] = L'\0';
  const std::wstring text = RelativeDateText(date, relative);
  if (text.empty()) return E_INVALIDARG;
  if (text.size() >= static_cast<size_t>(cch)) return HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);
  std::wmemcpy(out, text.c_str(), text.size() + 1);
  return S_OK;
}

}  // namespace velmo::format
