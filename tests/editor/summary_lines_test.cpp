#include "editor/summary_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "format/current_pictures.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/ui/screen.h"
#include "tests/support/recurrence_pattern_builder.h"

namespace velmo {
namespace {

class SummaryLinesTest : public ::testing::Test {
 protected:
  void SetUp() override { format::RefreshPictures(); }

  static std::vector<std::wstring> Texts(const SummaryTask& task, int width = 60) {
    std::vector<std::wstring> texts;
    for (const SummaryLine& line : SummaryLines(task, width)) texts.push_back(LineText(line));
    return texts;
  }

  locale::ScopedLocale locale_{"en_US"};
  ScopedClock clock_{MakeDate(2024, 5, 15, 12, 0)};  // a Wednesday
};

TEST_F(SummaryLinesTest, EachFieldHasItsLineOnlyWhenItHasSomethingToSay) {
  SummaryTask plain;
  plain.subject = L"Water the plants";
  EXPECT_EQ(Texts(plain),
            (std::vector<std::wstring>{L"Water the plants", L"Priority: Normal",
                                       L"Sensitivity: Normal", L"Not completed"}));

  SummaryTask full;
  full.importance = 2;
  full.start = MakeDate(2024, 5, 14);
  full.due = MakeDate(2024, 5, 16);
  full.reminder_set = true;
  full.reminder = MakeDate(2024, 5, 15, 9, 30);
  full.recurring = true;
  full.pattern = testing::Pattern(kRecursWeekly, 1, WeekdayBit(2), 0, 0, 0, full.start,
                                  MakeDate(2024, 5, 28));
  full.pattern.Occurrences = 3;
  full.categories = L"Work, Home";
  full.sensitivity = 2;
  full.team_task = true;
  full.complete = true;
  full.completed = MakeDate(2024, 5, 10);
  EXPECT_EQ(Texts(full),
            (std::vector<std::wstring>{
                L"<No Subject>", L"Priority: High", L"Start: Yesterday, Tue 5/14/24",
                L"Due: Tomorrow, Thu 5/16/24", L"Reminder: Today, Wed 5/15/24 9:30 AM",
                L"Occurs: Every Tuesday until 5/28/2024 (3 occurrences)",
                L"Categories: Work, Home", L"Sensitivity: Private", L"Team task",
                L"Completed: Fri 5/10/24"}));

  SummaryTask unset_reminder = plain;
  unset_reminder.importance = 0;
  unset_reminder.reminder = MakeDate(2024, 5, 15, 9, 30);  // kept, but not set
  EXPECT_EQ(Texts(unset_reminder)[1], L"Priority: Low");
  EXPECT_EQ(Texts(unset_reminder).size(), 4u);
}

TEST_F(SummaryLinesTest, WordsWrapWholeAndOnlyAWordWiderThanThePageIsCut) {
  SummaryTask task;
  task.subject = L"Plan the summer party at the lake";
  task.notes = L"Bring 12345678901234567890 chairs\r\n\r\nend";
  struct Case {
    int width;
    std::vector<std::wstring> subject;  // the first lines
  } cases[] = {
      {10, {L"Plan the", L"summer", L"party at", L"the lake"}},
      {14, {L"Plan the", L"summer party", L"at the lake"}},
      {40, {L"Plan the summer party at the lake"}},
  };
  for (const Case& c : cases) {
    const std::vector<std::wstring> lines = Texts(task, c.width);
    ASSERT_GE(lines.size(), c.subject.size());
    EXPECT_EQ(std::vector<std::wstring>(lines.begin(), lines.begin() + c.subject.size()), c.subject)
        << c.width;
    for (const std::wstring& line : lines) EXPECT_LE(ui::TextWidth(line), c.width) << line;
  }
  const std::vector<std::wstring> narrow = Texts(task, 10);
  const std::vector<std::wstring> notes(narrow.end() - 7, narrow.end());
  EXPECT_EQ(notes, (std::vector<std::wstring>{L"Notes:", L"Bring", L"1234567890", L"1234567890",
                                              L"chairs", L"", L"end"}))
      << "the empty line between the paragraphs is kept";
}

TEST_F(SummaryLinesTest, LinksInTheNotesAreMarked) {
  SummaryTask task;
  task.subject = L"Call";
  task.notes = L"Ring 030 1234567 or write to ann@example.com\nsee www.example.org.";
  std::vector<std::wstring> links;
  for (const SummaryLine& line : SummaryLines(task, 80))
    for (const SummaryPiece& piece : line)
      if (piece.ink == SummaryInk::kLink) links.push_back(piece.text);
  EXPECT_EQ(links, (std::vector<std::wstring>{L"030 1234567", L"ann@example.com", L"www.example.org"}));
}

}  // namespace
}  // namespace velmo
