#include "platform/ui/text_layout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmo::ui::internal {
namespace {

TEST(WrapLineTest, BreaksAfterSpacesAndInsideOverlongWords) {
  struct Case {
    const wchar_t* line;
    int width;
    bool wrap;
    std::vector<uint32_t> rows;
  } const cases[] = {
      {L"", 5, true, {0}},
      {L"abcde", 5, true, {0}},                    // exactly fits
      {L"abc defg", 5, true, {0, 4}},              // the word moves down
      {L"abc   defg", 5, true, {0, 6}},            // spaces hang at the edge
      {L"abcdefghijk", 4, true, {0, 4, 8}},        // no space: cut
      {L"ab cdefghij", 4, true, {0, 3, 7}},        // word longer than a row
      {L"日本語の", 5, true, {0, 2}},               // two cells each
      {L"abc defg hij", 5, false, {0}},            // no wrap: one row
      {L"a b c d e f", 3, true, {0, 4, 8}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(WrapLine(c.line, c.width, c.wrap), c.rows) << c.line << " width " << c.width;
  }
}

// The line starts kept by Replaced must be those a fresh index finds.
TEST(TextLayoutTest, ReplacementsKeepTheLineIndexOfAFreshLayout) {
  struct Edit {
    size_t from;
    size_t removed;
    const wchar_t* insert;
  } const edits[] = {
      {0, 0, L"first\r\nsecond\r\nthird"},
      {5, 0, L"\r\n"},            // a break in the middle of a line
      {6, 1, L""},                // "\r" then its "\n" removed separately
      {5, 1, L"\r"},              // and made again
      {0, 7, L"x"},               // a line and its break gone
      {3, 0, L"a\nb\r\nc\n"},     // lone "\n" breaks too
      {0, 0, L""},
      {2, 100, L""},              // to the end
  };
  std::wstring text;
  TextLayout layout;
  layout.Reset(text);
  layout.SetWidth(4, true);
  for (const Edit& e : edits) {
    const size_t removed = std::min(e.removed, text.size() - std::min(e.from, text.size()));
    const size_t from = std::min(e.from, text.size());
    text.replace(from, removed, e.insert);
    layout.Replaced(text, from, removed, wcslen(e.insert));
    TextLayout fresh;
    fresh.Reset(text);
    fresh.SetWidth(4, true);
    ASSERT_EQ(layout.LineCount(), fresh.LineCount()) << text;
    for (size_t line = 0; line < fresh.LineCount(); ++line) {
      EXPECT_EQ(layout.LineStart(line), fresh.LineStart(line)) << text << " line " << line;
      EXPECT_EQ(layout.LineEnd(text, line), fresh.LineEnd(text, line)) << text << " line " << line;
      EXPECT_EQ(layout.Rows(text, line), fresh.Rows(text, line)) << text << " line " << line;
    }
  }
}

// Typing and deleting inside one long line rewraps only near the change; the
// rows must still be those of a fresh wrap.
TEST(TextLayoutTest, EditsInsideALineKeepTheRowsOfAFreshWrap) {
  std::wstring text = L"one two three four five six seven eight nine ten eleven twelve";
  for (int i = 0; i < 5; ++i) text += L" " + text;
  TextLayout layout;
  layout.Reset(text);
  layout.SetWidth(7, true);
  const wchar_t kTyped[] = L"x 日ab  ";
  unsigned seed = 7;
  for (int step = 0; step < 400; ++step) {
    layout.Rows(text, 0);  // wrapped before each change, as drawing does
    seed = seed * 1103515245u + 12345u;
    const size_t at = (seed >> 8) % (text.size() + 1);
    const size_t removed = step % 3 == 0 ? std::min<size_t>((seed >> 4) % 4, text.size() - at) : 0;
    const std::wstring insert(1, kTyped[(seed >> 16) % 8]);
    text.replace(at, removed, step % 3 == 0 ? L"" : insert);
    layout.Replaced(text, at, removed, step % 3 == 0 ? 0 : 1);
    ASSERT_EQ(layout.Rows(text, 0), WrapLine(text, 7, true)) << "step " << step;
  }
}

TEST(TextLayoutTest, RowsAreCountedAndFoundAcrossLines) {
  const std::wstring text = L"abc defg\r\n\r\nhijklmnop";
  TextLayout layout;
  layout.Reset(text);
  layout.SetWidth(5, true);
  // Rows: "abc " "defg" "" "hijkl" "mnop"
  EXPECT_EQ(layout.RowCount(text), 5u);
  struct Case {
    size_t pos;
    RowPos row;
    size_t rows_before;
  } const cases[] = {
      {0, {0, 0}, 0}, {4, {0, 1}, 1},  // where a wrapped row ends: the next row
      {8, {0, 1}, 1}, {10, {1, 0}, 2}, {17, {2, 1}, 4}, {21, {2, 1}, 4},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(layout.RowOf(text, c.pos), c.row) << c.pos;
    EXPECT_EQ(layout.RowsBefore(text, c.row), c.rows_before) << c.pos;
    EXPECT_EQ(layout.RowAt(text, c.rows_before), c.row) << c.pos;
  }
  RowPos at{2, 1};
  EXPECT_FALSE(layout.NextRow(text, &at));
  EXPECT_TRUE(layout.PrevRow(text, &at));
  EXPECT_TRUE(layout.PrevRow(text, &at));
  EXPECT_EQ(at, (RowPos{1, 0}));
}

}  // namespace
}  // namespace velmo::ui::internal
