#include "format/current_pictures.h"

#include <optional>

namespace velmo::format {
namespace {

ScreenTraits g_screen;
std::optional<DatePictures> g_pictures;

// en_US, for when not even the first derivation can read the locale.
const LocaleDateValues kPlainValues = {L"M/d/yy", L"0", L"0", L"/", L"0",
                                       L"0",      L"0", L"0", L":", L"h:mm:ss tt"};

}  // namespace

const DatePictures& Pictures() {
  if (!g_pictures && FAILED(RefreshPictures())) {
    g_pictures = DeriveDatePictures(kPlainValues, g_screen);
  }
  return *g_pictures;
}

HRESULT RefreshPictures() {
  LocaleDateValues values;
  const HRESULT hr = ReadLocaleDateValues(GetUserDefaultLCID(), &values);
  if (FAILED(hr)) return hr;
  g_pictures = DeriveDatePictures(values, g_screen);
  return S_OK;
}

void SetScreenTraits(const ScreenTraits& screen) { g_screen = screen; }
ScreenTraits CurrentScreenTraits() { return g_screen; }

}  // namespace velmo::format
