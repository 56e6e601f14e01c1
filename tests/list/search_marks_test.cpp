// The search view's marks, with and without case sensitivity.
#include <gtest/gtest.h>

#include "list/list_state.h"
#include "list/search_marks.h"
#include "list/view_commands.h"
#include "list/view_ids.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

TEST(SearchText, CaseSensitiveAndNot) {
  struct Case { const wchar_t* field; const wchar_t* text; bool sensitive, found; } cases[] = {
      {L"Buy milk", L"milk", true, true},     {L"Buy milk", L"Milk", true, false},
      {L"Buy milk", L"Milk", false, true},    {L"BUY MILK", L"milk", false, true},
      {L"Straße", L"STRASSE", false, false},  // one character to one: no expansion
      {L"Größe", L"GRÖSSE", false, false},    {L"Größe", L"grö", false, true},
      {L"Ärger", L"ä", false, true},          {L"Ärger", L"ä", true, false},
      {L"", L"x", false, false},              {L"anything", L"", true, true},
      {L"ΟΔΟΣ", L"οδο", false, true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.found, ContainsSearchText(c.field, c.text, c.sensitive))
        << ::testing::PrintToString(std::wstring(c.field)) << " "
        << ::testing::PrintToString(std::wstring(c.text)) << " " << c.sensitive;
  }
}

TEST(SearchText, WideCharactersOutOfRangeAreKept) {
  const std::wstring odd{static_cast<wchar_t>(0x7FFFFFFF), L'a'};
  EXPECT_TRUE(ContainsSearchText(odd, L"A", false));
  EXPECT_FALSE(ContainsSearchText(odd, L"b", false));
}

class SearchMarksTest : public testing::ListTest {};

TEST_F(SearchMarksTest, MarksBySwitchesAndOnlyInTheSearchView) {
  struct Case { bool subjects, notes; DWORD marks; } cases[] = {
      {true, true, kSearchMatchNotes | kSearchMatchSubject},
      {true, false, kSearchMatchSubject},  {false, true, kSearchMatchNotes},
      {false, false, 0},
  };
  for (const Case& c : cases) {
    ApplySearch({L"call", c.subjects, c.notes, false});
    EXPECT_EQ(c.marks, RecordSearchMarks(L"Call Anna", "remember to CALL")) << c.subjects;
    EXPECT_EQ(c.marks & kSearchMatchNotes, RecordSearchMarks(L"Anna", "call her"));
  }
  ApplySearch({L"call", true, true, true});
  EXPECT_EQ(kSearchMatchNotes, RecordSearchMarks(L"Call Anna", "recall"));

  SetView(kViewAllTasks);
  EXPECT_EQ(0u, RecordSearchMarks(L"call", "call"));
  EXPECT_EQ(kSearchMatchNotes | kSearchMatchSubject, SearchMarks(L"call", L"call", CurrentSettings()));
}

// The notes are searched as stored, one Windows-1252 byte per character, up
// to their first zero byte.
TEST_F(SearchMarksTest, NotesAreSearchedInTheirCodePage) {
  using namespace std::literals;
  struct Case { const wchar_t* text; bool sensitive; std::string_view notes; bool found; } const cases[] = {
      {L"CAFÉ", false, "a caf\xe9 au lait"sv, true},  {L"CAFÉ", true, "a caf\xe9 au lait"sv, false},
      {L"€5", true, "costs \x80" "5"sv, true},        {L"ŒUF", false, "\x9c" "uf"sv, true},
      {L"after", false, "before\0after"sv, false},    {L"\uFFFD", false, "\xef\xbf\xbd"sv, false},
      {L"%*", true, "100%* sure"sv, true},              {L"%*", true, "100% * sure"sv, false},
  };
  for (const Case& c : cases) {
    ApplySearch({c.text, false, true, c.sensitive});
    EXPECT_EQ(c.found ? kSearchMatchNotes : 0u, RecordSearchMarks(L"subject", c.notes))
        << ::testing::PrintToString(std::wstring(c.text));
  }
}

}  // namespace
}  // namespace velmo
