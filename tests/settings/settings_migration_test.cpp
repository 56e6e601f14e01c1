// Settings of older versions, loaded and saved back as the current version.
#include <utility>

#include "platform/device.h"
#include "tests/settings/settings_fixture.h"

namespace velmo {
namespace {

using testing::SettingsTest;

struct Stored {
  DWORD major, minor, today_font, normal_font, infos, infos_compressed, highlight_text_color,
      highlight_color;
};
struct Loaded {
  int result;
  DWORD today_font, normal_font, infos, infos_compressed, highlight_text_color, highlight_color;
};
struct Case { const char* what; Stored stored; Loaded loaded; };

constexpr DWORD kInfos = 0x04EABC05;
constexpr DWORD kCompact = 0x10EABC05;

const Case kCases[] = {
    {"current version: untouched", {6, 17, 4, 5, kInfos, 0x08000000, 19, 22},
     {0, 4, 5, kInfos, 0x08000000, 19, 22}},
    {"later version: untouched, saved as current", {7, 0, 4, 5, kInfos, 0x08000000, 19, 22},
     {1, 4, 5, kInfos, 0x08000000, 19, 22}},
    {"6.10: only the version", {6, 10, 4, 2, 0, 0, 19, 22},
     {1, 4, 2, 0, 0, 19, 22}},
    {"6.9: information bits and highlight colours, fonts kept", {6, 9, 4, 2, 0, 0x08000001, 19, 22},
     {1, 4, 2, 0x10000800, 0x50010801, 25, 8}},
    {"6.0 converts the old font numbers too", {6, 0, 3, 5, 0, 0, 19, 22},
     {1, 2, 3, 0x10000800, 0x10010800, 25, 8}},
    {"5.20: before 6.10 but fonts kept", {5, 20, 4, 1, 0, 0, 19, 8},
     {1, 4, 1, 0x10000800, 0x10010800, 19, 8}},
    {"5.10: TodayFont 4 becomes 3", {5, 10, 4, 2, kInfos, kCompact, 2, 22},
     {1, 3, 1, kInfos | 0x10000800, kCompact | 0x10010800, 2, 22}},
    {"5.10: styles 0 and 1 map to 0 and 1, unknown styles stay", {5, 10, 0, 6, 0, 0, 19, 22},
     {1, 0, 6, 0x10000800, 0x10010800, 25, 8}},
    {"4.0: the lowest styles", {4, 0, 1, 0, 0, 0, 0, 0},
     {1, 1, 0, 0x10000800, 0x10010800, 0, 0}},
};

TEST_F(SettingsTest, OlderVersionsAreMigratedAndSavedAsTheCurrentOne) {
  int n = 0;
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    device::SetRoot(root() / std::to_string(++n));
    SaveFirstStart();
    const std::pair<const wchar_t*, DWORD> values[] = {
        {L"VersionMajor", c.stored.major}, {L"VersionMinor", c.stored.minor},
        {L"TodayFont", c.stored.today_font}, {L"NormalFont", c.stored.normal_font},
        {L"Infos", c.stored.infos}, {L"InfosCompressed", c.stored.infos_compressed},
        {L"HighlightTextColor", c.stored.highlight_text_color},
        {L"HighlightColor", c.stored.highlight_color}, {L"NDays", 11}};
    for (const auto& [name, value] : values) SetDword(name, value);

    Settings s;
    EXPECT_EQ(c.loaded.result, LoadSettings(s));
    EXPECT_EQ(c.loaded.today_font, s.today_font);
    EXPECT_EQ(c.loaded.normal_font, s.normal_font);
    EXPECT_EQ(c.loaded.infos, s.infos);
    EXPECT_EQ(c.loaded.infos_compressed, s.infos_compressed);
    EXPECT_EQ(c.loaded.highlight_text_color, s.highlight_text_color);
    EXPECT_EQ(c.loaded.highlight_color, s.highlight_color);
    EXPECT_EQ(11u, s.n_days) << "other values load as stored";

    ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, true));
    EXPECT_EQ(6u, StoredDword(L"VersionMajor"));
    EXPECT_EQ(17u, StoredDword(L"VersionMinor"));
    EXPECT_EQ(c.loaded.today_font, StoredDword(L"TodayFont"));
    Settings again;
    EXPECT_EQ(0, LoadSettings(again)) << "migrated once only";
    EXPECT_EQ(c.loaded.infos, again.infos);
  }
}

}  // namespace
}  // namespace velmo
