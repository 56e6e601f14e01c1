// The drawing rules of the task list, read back from the headless screen.
#include <gtest/gtest.h>

#include "categories/category_state.h"
#include "format/current_pictures.h"
#include "format/date_text.h"
#include "list/draw_background.h"
#include "list/draw_fields.h"
#include "list/draw_notes.h"
#include "list/draw_row.h"
#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "platform/ui/list_view.h"
#include "settings/colors.h"
#include "tests/support/temp_root.h"
#include "tests/ui/ui_fixture.h"

namespace velmo {
namespace {

const DATE kNow = MakeDate(2024, 3, 14, 10, 30);
const DATE kToday = MakeDate(2024, 3, 14);
constexpr COLORREF kBlue = RGB(0, 0, 255), kGreen = RGB(0, 128, 0), kRed = RGB(255, 0, 0),
                   kGray = RGB(128, 128, 128), kSilver = RGB(192, 192, 192);

Task MakeTask(const wchar_t* subject, DATE start, DATE due) {
  Task t;
  t.oid = 1;
  t.subject = subject;
  t.start_date = start;
  t.due_date = due;
  return t;
}

std::wstring Date(DATE d) { return format::DateText(d, format::Pictures().short_date); }

TEST(DrawColours, SubjectColourByDatesWithTheExactDayBoundary) {
  const DATE no = kNoDate;
  struct Case { DATE start, due, now; WORD complete; RowColour colour; } cases[] = {
      {no, no, kNow, 1, RowColour::kCompleted},
      {no, no, kNow, 0, RowColour::kUndated},
      {kToday + 2, kToday + 5, kNow, 0, RowColour::kFuture},
      {kToday - 5, kToday - 2, kNow, 0, RowColour::kOverdue},
      {kToday - 5, kToday + 2, kNow, 0, RowColour::kNormal},
      {no, kToday + 1, kNow, 0, RowColour::kFuture},
      {no, kToday, kToday + 1.0, 0, RowColour::kNormal},  // exactly 24 hours on
      {no, kToday, kToday + 1.0 + 1.0 / 86400, 0, RowColour::kOverdue},
      {kToday - 1, kToday, kToday + 1.0, 0, RowColour::kNormal},
      {kToday + 2, no, kNow, 0, RowColour::kWindowText},  // only a start date
      {kToday - 9, no, kNow, 0, RowColour::kWindowText},
  };
  for (const Case& c : cases) {
    Task t = MakeTask(L"x", c.start, c.due);
    t.complete = c.complete;
    EXPECT_EQ(SubjectColour(t, c.now), c.colour) << c.start << " " << c.due << " " << c.now;
  }
  // A reminder without a due date makes the reminder's day the due date.
  Task reminded = MakeTask(L"x", kNoDate, kNoDate);
  reminded.reminder_set = 1;
  reminded.reminder_time = kToday - 3 + 0.5;
  EXPECT_EQ(SubjectColour(reminded, kNow), RowColour::kOverdue);
  EXPECT_EQ(DateColour(kToday, kToday - 1e-6), RowColour::kFuture);
  EXPECT_EQ(TextColourFromIndex(kTextColorNoChange, 77), 77u);
  EXPECT_EQ(TextColourFromIndex(24, 1), GetSysColor(COLOR_WINDOWTEXT));  // "WINDOWTEXT"
}

class DrawRowTest : public testing::UiTest {
 protected:
  DrawRowTest() : UiTest(60, 12) {
    main_ = MakeMain();
    hdc_ = GetDC(main_);
    look_ = MakeListAppearance(settings_);
  }
  ~DrawRowTest() override { ReleaseDC(main_, hdc_); }

  // Draws on the window's client line `line` (screen line + 1) across the screen.
  void Draw(const Task& t, bool compact, bool selected = false, int line = 0) {
    look_ = MakeListAppearance(settings_);
    RowDrawState state{selected, compact, 0, kNow, &look_};
    RECT rc{0, line, 60, line + (compact ? 1 : 2)};
    DrawTaskRow(hdc_, rc, t, state);
  }
  std::wstring Line(int line) const { return screen_.Row(line + 1); }
  const ui::Cell& At(int x, int line) const { return screen_.at(x, line + 1); }

  HWND main_;
  HDC hdc_;
  Settings settings_;
  ListAppearance look_;
};

TEST_F(DrawRowTest, CompactRowLaysDatesFromTheRightInTheirColours) {
  Task t = MakeTask(L"Pay the rent", kToday - 2, kToday + 3);
  settings_.infos_compressed |= kInfoStartDate | kInfoDueDate;
  Draw(t, true);
  std::wstring fields = Date(t.start_date) + L"-" + Date(t.due_date) + L" +3";
  std::wstring line = Line(0);
  ASSERT_EQ(line.substr(59 - fields.size(), fields.size()), fields) << line;
  EXPECT_EQ(At(58, 0).fg, kGreen);                      // "+3": the due day is ahead
  // Each date field goes by its own date: a start two days past is overdue.
  EXPECT_EQ(At(static_cast<int>(line.find(Date(t.start_date))), 0).fg, kRed);
  EXPECT_EQ(At(1, 0).ch, L'P');
  EXPECT_EQ(At(1, 0).fg, kBlue);                        // between start and due
  EXPECT_EQ(At(1, 0).attrs & ui::kAttrBold, ui::kAttrBold);  // "NormalFont" Bold
  EXPECT_EQ(At(1, 0).attrs & ui::kAttrItalic, 0);

  // Due today: "=" and the "TodayFont" (Bold-Italic); yesterday: -1 in red.
  Draw(MakeTask(L"Call", kNoDate, kToday), true, false, 1);
  EXPECT_EQ(Line(1).substr(57, 3), L" = ");
  EXPECT_EQ(At(1, 1).attrs & (ui::kAttrBold | ui::kAttrItalic), ui::kAttrBold | ui::kAttrItalic);
  Draw(MakeTask(L"Late", kNoDate, kToday - 1), true, false, 2);
  EXPECT_EQ(Line(2).substr(56, 4), L" -1 ");
  EXPECT_EQ(At(57, 2).fg, kRed);
  EXPECT_EQ(At(1, 2).fg, kRed);
}

TEST_F(DrawRowTest, CompletedTaskShowsOnlyItsCompletionDateAndSign) {
  Task t = MakeTask(L"Done thing", kToday - 4, kToday - 1);
  t.complete = 1;
  t.date_completed = kToday - 1;
  settings_.infos_compressed |= kInfoDueDate | kInfoDateCompleted;
  Draw(t, true);
  std::wstring tail = Date(t.date_completed) + L"\u2713";
  EXPECT_EQ(Line(0).substr(59 - tail.size(), tail.size()), tail);
  EXPECT_EQ(Line(0).find(L"+"), std::wstring::npos);
  EXPECT_EQ(Line(0).find(L"-1"), std::wstring::npos);
  EXPECT_EQ(At(57, 0).fg, kGray);
  EXPECT_EQ(At(1, 0).fg, kGray);
  EXPECT_EQ(At(1, 0).attrs & ui::kAttrItalic, 0);  // a completed task is no task of today
}

TEST_F(DrawRowTest, WithoutColoursTheStateIsAMarkInTheMargin) {
  Task completed = MakeTask(L"Done", kNoDate, kToday - 1);
  completed.complete = 1;
  struct Case { Task task; wchar_t mark; } const cases[] = {
      {MakeTask(L"Late", kNoDate, kToday - 2), L'!'},
      {MakeTask(L"Later", kToday + 2, kToday + 3), L'+'},
      {MakeTask(L"Someday", kNoDate, kNoDate), L'?'},
      {completed, L'-'},
      {MakeTask(L"Now", kToday - 1, kToday + 1), L' '},
  };
  for (ui::ColourDepth depth : {ui::ColourDepth::kMono, ui::ColourDepth::k8}) {
    screen_.set_depth(depth);
    int line = 0;
    for (const Case& c : cases) {
      Draw(c.task, true, false, line);
      wchar_t expected = depth == ui::ColourDepth::kMono ? c.mark : L' ';
      EXPECT_EQ(At(0, line).ch, expected) << Line(line) << " depth " << static_cast<int>(depth);
      ++line;
    }
  }
}

TEST_F(DrawRowTest, NormalRowPutsTheFieldsOnItsSecondLine) {
  Task t = MakeTask(L"Two lines", kToday, kToday + 1);
  settings_.infos |= kInfoDueDate;
  Draw(t, false);
  EXPECT_EQ(Line(0).substr(1, 9), L"Two lines");
  EXPECT_EQ(Line(0).find(Date(t.due_date)), std::wstring::npos);
  std::wstring fields = Date(t.start_date) + L"-" + Date(t.due_date);  // "Infos": no day count
  EXPECT_EQ(Line(1).substr(59 - fields.size(), fields.size()), fields);
}

TEST_F(DrawRowTest, SelectedRowTakesTheHighlightColours) {
  Task t = MakeTask(L"Chosen", kNoDate, kToday - 3);
  Draw(t, true, true);
  EXPECT_EQ(At(0, 0).bg, kSilver);
  EXPECT_EQ(At(30, 0).bg, kSilver);
  EXPECT_EQ(At(1, 0).fg, kRed);    // "No change": the row keeps its colour
  EXPECT_EQ(At(57, 0).fg, kRed);   // and so do its dates
  settings_.highlight_text_color = 15;  // White
  settings_.future_color = 9;
  Draw(MakeTask(L"Later", kNoDate, kToday + 3), true, true, 1);
  EXPECT_EQ(At(1, 1).fg, RGB(255, 255, 255));
  EXPECT_EQ(At(58, 1).fg, RGB(255, 255, 255));
}

TEST_F(DrawRowTest, StatusSignsFollowTheirBits) {
  Task t = MakeTask(L"Busy", kNoDate, kNoDate);
  t.importance = kImportanceHigh;
  t.reminder_set = 1;
  t.reminder_time = kToday + 10.5;
  t.recurring = 1;
  t.notes_state = kHasNotes;
  t.team_task = 1;
  t.sensitivity = kSensitivityPrivate;
  t.mail_link_count = 1;
  settings_.infos_compressed = kInfoPriority | kInfoReminder | kInfoRecurring | kInfoNotes |
                               kInfoTeamTask | kInfoPrivate | kInfoLinks;
  Draw(t, true);
  EXPECT_EQ(Line(0).substr(52, 7), L"@\u2298\u21C4\u2261\u21BB\u25F7!");
  EXPECT_EQ(At(58, 0).fg, RGB(0xD0, 0, 0));
  t.importance = kImportanceLow;
  settings_.infos_compressed = kInfoPriority | kInfoNotes;
  Draw(t, true, false, 1);
  EXPECT_EQ(Line(1).substr(56, 4), L" \u2261\u2193 ");
}

class DrawCategoryIconTest : public DrawRowTest {
 protected:
  testing::TempRoot root_;
};

TEST_F(DrawCategoryIconTest, CategoriesWithIconsOnly) {
  InitCategories(0, L"", L"");
  AddCategory(CategoryCatalogue(), L"Work", InLoadedTasks, kAddCategoryMerge);
  Task t = MakeTask(L"Report", kNoDate, kNoDate);
  t.categories = L"Home, Work";  // Home is not in the catalogue: no icon
  settings_.infos_compressed = kInfoCategoryIcons;
  Draw(t, true);
  EXPECT_EQ(Line(0).substr(55, 5), L"  W  ");  // two cells, the last a blank
  t.categories = L"";  // No Category has no icon without its bitmap
  Draw(t, true, false, 1);
  EXPECT_EQ(Line(1).substr(50), std::wstring(10, L' '));
}

TEST_F(DrawRowTest, GradientRunsDownTheWholeList) {
  look_ = MakeListAppearance(settings_);
  EXPECT_EQ(ListLineColour(look_, 0, 10), look_.window);
  EXPECT_EQ(ListLineColour(look_, 9, 10), look_.gradient_bottom);
  COLORREF middle = ListLineColour(look_, 5, 10);
  EXPECT_TRUE(middle != look_.window && middle != look_.gradient_bottom);

  RowDrawState state{false, true, 10, kNow, &look_};
  DrawTaskRow(hdc_, RECT{0, 5, 60, 6}, MakeTask(L"x", kNoDate, kNoDate), state);
  EXPECT_EQ(At(30, 5).bg, middle);
  DrawListBackground(hdc_, RECT{0, 0, 60, 10}, look_);
  EXPECT_EQ(At(3, 9).bg, look_.gradient_bottom);

  settings_.gradient = 0;
  look_ = MakeListAppearance(settings_);
  EXPECT_EQ(ListLineColour(look_, 9, 10), look_.window);
}

TEST_F(DrawRowTest, NotesPreviewPane) {
  EXPECT_EQ(NotesPreviewLines(0, 20), 0);
  EXPECT_EQ(NotesPreviewLines(3, 10), 5);  // never more than half
  look_ = MakeListAppearance(settings_);
  DrawNotesPreview(hdc_, RECT{0, 6, 20, 9}, L"Buy bread and milk\r\nthen call Anna back soon", look_);
  EXPECT_EQ(Line(6).substr(0, 20), L"Buy bread and milk  ");
  EXPECT_EQ(Line(7).substr(0, 20), L"then call Anna back ");
  EXPECT_EQ(Line(8).substr(0, 20), L"soon                ");
  EXPECT_EQ(At(19, 8).bg, GetSysColor(COLOR_INFOBK));
}

TEST_F(DrawRowTest, OwnerDrawnListWithItsGradientAndEmptyText) {
  InitListDisplay(settings_);
  EXPECT_TRUE(CompactList());
  EXPECT_FALSE(ToggleCompactList());
  EXPECT_EQ(ListRowLines(), 2);
  ToggleCompactList();
  EXPECT_EQ(ListRowLines(), 1);

  Task t = MakeTask(L"Listed", kNoDate, kNoDate);
  handlers_[WM_DRAWITEM] = [&](HWND, UINT, WPARAM, LPARAM l, bool*) -> LRESULT {
    return DrawTaskItem(reinterpret_cast<DRAWITEMSTRUCT*>(l), t);
  };
  HWND list = MakeChild(main_, 0, 0, 0, 60, 10, WC_LISTVIEWW, LVS_REPORT | LVS_OWNERDRAWFIXED,
                        L"No matches for this filter");
  ASSERT_TRUE(InstallListBackground(list));
  Pump();
  EXPECT_TRUE(screen_.Contains(L"No matches for this filter"));
  ListAppearance look = MakeListAppearance();
  EXPECT_EQ(At(0, 9).bg, ListLineColour(look, 9, 10));
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  ListView_InsertItem(list, &item);
  InvalidateRect(list, nullptr, TRUE);
  Pump();
  EXPECT_EQ(Line(0).substr(0, 8), L" Listed ");
  EXPECT_EQ(At(0, 8).bg, ListLineColour(look, 8, 10));
}

}  // namespace
}  // namespace velmo
