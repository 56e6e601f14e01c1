// Cost of showing a date: the platform's picture formatting, the relative day
// text of a list row, and a full re-derivation of the pictures.
#include <benchmark/benchmark.h>

#include "format/current_pictures.h"
#include "format/relative_date.h"
#include "platform/locale.h"
#include "platform/oletime.h"

namespace {

void BM_GetDateFormatW(benchmark::State& state) {
  velmo::locale::ScopedLocale locale("de_DE");
  const SYSTEMTIME t{2026, 3, 0, 5, 21, 7, 9, 0};
  wchar_t buffer[200];
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        GetDateFormatW(LOCALE_USER_DEFAULT, 0, &t, L"ddd dd.MM.yy", buffer, 200));
  }
}
BENCHMARK(BM_GetDateFormatW);

void BM_RelativeDateText(benchmark::State& state) {
  velmo::locale::ScopedLocale locale("en_US");
  velmo::format::RefreshPictures();
  const DATE date = velmo::MakeDate(2026, 3, 5);
  for (auto _ : state) benchmark::DoNotOptimize(velmo::format::RelativeDateText(date, true));
}
BENCHMARK(BM_RelativeDateText);

void BM_RefreshPictures(benchmark::State& state) {
  velmo::locale::ScopedLocale locale("fr_FR");
  for (auto _ : state) benchmark::DoNotOptimize(velmo::format::RefreshPictures());
}
BENCHMARK(BM_RefreshPictures);

}  // namespace
