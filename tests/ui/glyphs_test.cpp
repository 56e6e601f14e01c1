#include <gtest/gtest.h>

#include "platform/ui/glyphs.h"
#include "platform/ui/screen_headless.h"

namespace velmo::testing {
namespace {

TEST(GlyphsTest, EveryGlyphHasAPrintableStandInThatTheScreenUses) {
  for (int id = 0; id < ui::kGlyphCount; ++id) {
    const ui::GlyphForms& forms = ui::kGlyphs[id].forms;
    EXPECT_GE(forms.utf8, 0x80) << "glyph " << id << " is ASCII already";
    EXPECT_TRUE(forms.ascii >= 0x20 && forms.ascii < 0x7F) << "glyph " << id;
    EXPECT_EQ(ui::AsciiStandIn(forms.utf8), forms.ascii) << "glyph " << id;
  }
}

TEST(GlyphsTest, TextOutsideTheTableLosesOnlyItsAccents) {
  struct Case { wchar_t ch; char shown; } const cases[] = {
      {L'a', 'a'},        {L'~', '~'},        {L'\u00E9', 'e'}, {L'\u00C5', 'A'},
      {L'\u00F1', 'n'},   {L'\u00A0', ' '},   {L'\u00DF', '?'}, {L'\u4E2D', '?'},
      {L'\U0001F600', '?'}, {L'\u00E9', 'e'},  // the second look-up comes from the cache
  };
  for (const Case& c : cases) EXPECT_EQ(ui::AsciiStandIn(c.ch), c.shown) << std::hex << static_cast<int>(c.ch);
}

TEST(GlyphsTest, AnAsciiScreenKeepsTheColumnsOfWhatItReplaces) {
  struct Case { bool ascii; const wchar_t* text; const wchar_t* shown; int columns; } const cases[] = {
      {true, L"Caf\u00E9 \u4E2D!", L"Cafe ?\?!", 8},
      {true, L"\u2514\u2500\u2518", L"+-+", 3},
      {false, L"Caf\u00E9 \u4E2D!", L"Caf\u00E9 \u4E2D!", 8},
  };
  for (const Case& c : cases) {
    ui::HeadlessScreen screen(12, 1);
    screen.set_ascii(c.ascii);
    int x = 0;
    for (const wchar_t* p = c.text; *p; ++p) x += screen.PutChar(x, 0, *p, 0, 0, 0);
    EXPECT_EQ(x, c.columns) << c.shown;
    EXPECT_EQ(screen.Text(), c.shown);
  }
}

}  // namespace
}  // namespace velmo::testing
