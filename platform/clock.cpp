#include "platform/clock.h"

#include <sys/time.h>
#include <time.h>

#include "platform/oletime.h"

namespace {
std::optional<DATE> g_pinned_now;
}

void GetLocalTime(SYSTEMTIME* now) {
  if (!now) return;
  if (g_pinned_now) {
    VariantTimeToSystemTime(*g_pinned_now, now);
    now->wMilliseconds = 0;
    return;
  }
  timespec ts{};
  clock_gettime(CLOCK_REALTIME, &ts);
  tm local{};
  localtime_r(&ts.tv_sec, &local);
  now->wYear = static_cast<WORD>(local.tm_year + 1900);
  now->wMonth = static_cast<WORD>(local.tm_mon + 1);
  now->wDayOfWeek = static_cast<WORD>(local.tm_wday);
  now->wDay = static_cast<WORD>(local.tm_mday);
  now->wHour = static_cast<WORD>(local.tm_hour);
  now->wMinute = static_cast<WORD>(local.tm_min);
  now->wSecond = static_cast<WORD>(local.tm_sec > 59 ? 59 : local.tm_sec);
  now->wMilliseconds = static_cast<WORD>(ts.tv_nsec / 1000000);
}

DWORD GetTickCount() {
  timespec ts{};
  clock_gettime(CLOCK_MONOTONIC, &ts);
  return static_cast<DWORD>(ts.tv_sec * 1000 + ts.tv_nsec / 1000000);
}

namespace velmo {

ScopedClock::ScopedClock(DATE now) : previous_(g_pinned_now) { g_pinned_now = now; }
ScopedClock::~ScopedClock() { g_pinned_now = previous_; }

DATE NowAsDate() {
  SYSTEMTIME st;
  GetLocalTime(&st);
  st.wMilliseconds = 0;
  DATE d = 0;
  SystemTimeToVariantTime(&st, &d);
  return d;
}

}  // namespace velmo
