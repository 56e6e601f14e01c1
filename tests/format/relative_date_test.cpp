#include "format/relative_date.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "format/current_pictures.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::format {
namespace {

using locale::ScopedLocale;

class RelativeDate : public ::testing::Test {
 protected:
  void UseLocale(const char* name) {
    locale_.reset();
    locale_.emplace(name);
    ASSERT_EQ(RefreshPictures(), S_OK);
  }
  void SetUp() override { UseLocale("en_US"); }
  void TearDown() override {
    locale_.reset();
    RefreshPictures();
  }

 private:
  std::optional<ScopedLocale> locale_;
};

TEST_F(RelativeDate, NamesYesterdayTodayAndTomorrow) {
  struct Case { DATE now; DATE date; bool relative; const wchar_t* text; } cases[] = {
      {MakeDate(2026, 3, 5, 10, 30), MakeDate(2026, 3, 4, 23, 59), true, L"Yesterday, Wed 3/4/26"},
      {MakeDate(2026, 3, 5, 10, 30), MakeDate(2026, 3, 5), true, L"Today, Thu 3/5/26"},
      {MakeDate(2026, 3, 5, 10, 30), MakeDate(2026, 3, 6, 23, 59), true, L"Tomorrow, Fri 3/6/26"},
      {MakeDate(2026, 3, 5, 10, 30), MakeDate(2026, 3, 7), true, L"Sat 3/7/26"},
      {MakeDate(2026, 3, 5, 10, 30), MakeDate(2026, 3, 3), true, L"Tue 3/3/26"},
      {MakeDate(2026, 3, 5, 10, 30), MakeDate(2026, 3, 5), false, L"Thu 3/5/26"},
      {MakeDate(2026, 3, 5, 23, 59, 59), MakeDate(2026, 3, 6), true, L"Tomorrow, Fri 3/6/26"},
      {MakeDate(2026, 12, 31, 12), MakeDate(2027, 1, 1, 8), true, L"Tomorrow, Fri 1/1/27"},
      {MakeDate(2027, 1, 1, 0, 0, 1), MakeDate(2026, 12, 31, 23), true, L"Yesterday, Thu 12/31/26"},
  };
  for (const Case& c : cases) {
    ScopedClock clock(c.now);
    EXPECT_EQ(RelativeDateText(c.date, c.relative), c.text) << ToUtf8(c.text);
  }
}

TEST_F(RelativeDate, OtherDaysStartWithACapital) {
  UseLocale("fr_FR");
  ScopedClock clock(MakeDate(2026, 3, 5, 10));
  EXPECT_EQ(RelativeDateText(MakeDate(2026, 3, 9), true), L"Lun. 09/03/2026");
  EXPECT_EQ(RelativeDateText(MakeDate(2026, 3, 9), false), L"lun. 09/03/2026");
  EXPECT_EQ(RelativeDateText(MakeDate(2026, 3, 6), true), L"Tomorrow, ven. 06/03/2026");
}

TEST_F(RelativeDate, BufferForm) {
  ScopedClock clock(MakeDate(2026, 3, 5, 10));
  const std::wstring expected = L"Tomorrow, Fri 3/6/26";
  wchar_t buffer[64];
  EXPECT_EQ(FormatRelativeDate(MakeDate(2026, 3, 6), buffer, 64, true), S_OK);
  EXPECT_EQ(buffer, expected);
  const int exact = static_cast<int>(expected.size()) + 1;
  EXPECT_EQ(FormatRelativeDate(MakeDate(2026, 3, 6), buffer, exact, true), S_OK);
  EXPECT_EQ(FormatRelativeDate(MakeDate(2026, 3, 6), buffer, exact - 1, true),
            HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER));
  EXPECT_STREQ(buffer, L"");
  EXPECT_EQ(FormatRelativeDate(std::nan(""), buffer, 64, true), E_INVALIDARG);
  EXPECT_EQ(FormatRelativeDate(MakeDate(2026, 3, 6), nullptr, 64, true), E_INVALIDARG);
}

}  // namespace
}  // namespace velmo::format
