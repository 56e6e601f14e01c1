// Task values through a task file and back, and files that are not tasks.
#include <gtest/gtest.h>

#include <string>

#include "sync/todo.h"

namespace velmo::sync {
namespace {

using poom::TaskValues;

TaskValues Values(void (*change)(TaskValues*)) {
  TaskValues v;
  v.subject = L"Buy tyres \u00e9\u4e2d";
  change(&v);
  return v;
}

RecurrencePattern Pattern(LONG type, LONG interval, LONG mask, LONG day, LONG instance, LONG month) {
  RecurrencePattern p;
  p.RecurrenceType = type;
  p.Interval = interval;
  p.DayOfWeekMask = mask;
  p.DayOfMonth = day;
  p.Instance = instance;
  p.MonthOfYear = month;
  p.PatternStartDate = MakeDate(2031, 3, 4);
  return p;
}

void Recurring(TaskValues* v, const RecurrencePattern& p) {
  v->start = v->due = MakeDate(2031, 3, 4);
  v->recurring = true;
  v->pattern = p;
}

TEST(TodoFileTest, EveryFieldSurvivesTheFile) {
  const struct {
    const char* what;
    TaskValues values;
  } cases[] = {
      {"subject only", Values([](TaskValues*) {})},
      {"notes", Values([](TaskValues* v) { v->body = L"Line one\r\nLine two; a, b\r\n\u00a3 5"; })},
      {"categories", Values([](TaskValues* v) { v->categories = L"Car,Errands,<NoCat>"; })},
      {"dates", Values([](TaskValues* v) { v->start = MakeDate(2031, 3, 1); v->due = MakeDate(2031, 3, 4); })},
      {"times", Values([](TaskValues* v) { v->start = MakeDate(2031, 3, 1, 9, 30); v->due = MakeDate(2031, 3, 4, 17, 5, 7); })},
      {"complete", Values([](TaskValues* v) { v->complete = true; v->completed = MakeDate(2031, 3, 2, 10, 11, 12); })},
      {"high private team", Values([](TaskValues* v) { v->importance = olImportanceHigh; v->sensitivity = olPrivate; v->team = true; })},
      {"low", Values([](TaskValues* v) { v->importance = olImportanceLow; })},
      {"reminder from due", Values([](TaskValues* v) { v->due = MakeDate(2031, 3, 4); v->reminder_set = true; v->reminder_minutes = 90; v->options = 13; v->sound = L"alarm.wav"; })},
      {"reminder from start", Values([](TaskValues* v) { v->start = MakeDate(2031, 3, 1); v->due = MakeDate(2031, 3, 4); v->reminder_set = true; v->reminder_minutes = -30; v->reminder_from_due = false; })},
      {"reminder at the default time", Values([](TaskValues* v) { v->due = MakeDate(2031, 3, 4); v->reminder_set = true; v->reminder_minutes = 64799; })},
      {"every day", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursDaily, 1, 0, 0, 0, 0)); })},
      {"every weekday", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursDaily, 0, kMondayToFriday, 0, 0, 0)); })},
      {"every 3 weeks on mon thu", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursWeekly, 3, 2 | 16, 0, 0, 0)); })},
      {"weeks after completion", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursWeekly, 2 * kMinutesPerWeek, 4, 0, 0, 0)); })},
      {"day 31 every 2 months", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursMonthly, 2, 0, 31, 0, 0)); })},
      {"last friday", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursMonthNth, 1, 32, 0, kLastInstance, 0)); })},
      {"yearly", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursYearly, 1, 0, 4, 0, 3)); })},
      {"2nd tuesday of june", Values([](TaskValues* v) { Recurring(v, Pattern(kRecursYearNth, 1, 4, 0, 2, 6)); })},
      {"with an end", Values([](TaskValues* v) {
         RecurrencePattern p = Pattern(kRecursWeekly, 1, 4, 0, 0, 0);
         p.NoEndDate = FALSE;
         p.PatternEndDate = MakeDate(2031, 6, 30);
         Recurring(v, p);
       })},
  };
  for (const auto& c : cases) {
    const std::string text = WriteTodo("", {}, c.values, "uid-1@test");
    Todo read;
    std::string error;
    ASSERT_TRUE(ReadTodo(text, &read, &error)) << c.what << ": " << error << "\n" << text;
    EXPECT_EQ(read.uid, "uid-1@test");
    EXPECT_TRUE(SameValues(read.values, c.values)) << c.what << "\n" << text;
    EXPECT_EQ(ValuesFingerprint(read.values), ValuesFingerprint(c.values)) << c.what;
    EXPECT_FALSE(read.custom_rule) << c.what;
    // Written again from itself, nothing changes.
    EXPECT_EQ(WriteTodo(text, read.values, c.values, "uid-1@test"), text) << c.what;
  }
}

TEST(TodoFileTest, DatesWithoutTimeAreDateValues) {
  const TaskValues v = Values([](TaskValues* v) { v->start = MakeDate(2031, 3, 1); v->due = MakeDate(2031, 3, 4, 12, 0); });
  const std::string text = WriteTodo("", {}, v, "u");
  EXPECT_NE(text.find("DTSTART;VALUE=DATE:20310301\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("DUE:20310304T120000\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("PRIORITY:5\r\n"), std::string::npos) << text;
}

// A file made by another program: what the program does not change stays
// byte for byte, unknown properties and folding included.
constexpr char kForeign[] =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Other//EN\r\n"
    "BEGIN:VTODO\r\nUID:foreign-1\r\nDTSTAMP:20240101T000000Z\r\n"
    "SUMMARY:Water the plants\r\nX-OTHER-APP;X-PARAM=1:keep me\r\n"
    "ATTENDEE;CN=Ann:mailto:ann@example.org\r\nPRIORITY:3\r\n"
    "DESCRIPTION:A long description that is folded by the other program becaus\r\n e it is long\r\n"
    "RRULE:FREQ=MONTHLY;BYMONTHDAY=1,15;COUNT=6\r\nDUE;VALUE=DATE:20310304\r\n"
    "BEGIN:VALARM\r\nACTION:EMAIL\r\nSUMMARY:x\r\nEND:VALARM\r\n"
    "END:VTODO\r\nEND:VCALENDAR\r\n";

TEST(TodoFileTest, ForeignFileKeepsWhatIsNotChanged) {
  Todo read;
  std::string error;
  ASSERT_TRUE(ReadTodo(kForeign, &read, &error)) << error;
  EXPECT_EQ(read.values.importance, olImportanceHigh);
  EXPECT_TRUE(read.values.recurring);
  EXPECT_TRUE(read.custom_rule) << "two days of the month are more than a pattern holds";
  EXPECT_EQ(read.values.body, L"A long description that is folded by the other program because it is long");

  TaskValues changed = read.values;
  changed.subject = L"Water the plants twice";
  const std::string text = WriteTodo(kForeign, read.values, changed, read.uid);
  for (const char* kept : {"X-OTHER-APP;X-PARAM=1:keep me\r\n", "ATTENDEE;CN=Ann:mailto:ann@example.org\r\n",
                           "PRIORITY:3\r\n", "becaus\r\n e it is long\r\n",
                           "RRULE:FREQ=MONTHLY;BYMONTHDAY=1,15;COUNT=6\r\n", "ACTION:EMAIL\r\n", "UID:foreign-1\r\n"})
    EXPECT_NE(text.find(kept), std::string::npos) << kept << "\n" << text;
  EXPECT_NE(text.find("SUMMARY:Water the plants twice\r\n"), std::string::npos);
  EXPECT_EQ(text.find("DTSTAMP:20240101T000000Z"), std::string::npos) << "renewed with the change";
  Todo again;
  ASSERT_TRUE(ReadTodo(text, &again, &error));
  EXPECT_TRUE(SameValues(again.values, changed));

  // A change of the recurrence writes a rule of the program's own.
  changed.pattern.Interval = 2;
  const std::string rewritten = WriteTodo(text, again.values, changed, read.uid);
  EXPECT_EQ(rewritten.find("BYMONTHDAY=1,15"), std::string::npos);
  EXPECT_NE(rewritten.find("X-OTHER-APP"), std::string::npos);
}

TEST(TodoFileTest, RulesOfOtherProgramsReadAsPatterns) {
  const struct {
    const char* rule;
    LONG type, interval, mask, day, instance, month;
    bool held;
    DATE end;
  } cases[] = {
      {"FREQ=WEEKLY;BYDAY=MO,WE", kRecursWeekly, 1, 2 | 8, 0, 0, 0, true, kNoDate},
      {"FREQ=WEEKLY", kRecursWeekly, 1, 4, 0, 0, 0, true, kNoDate},  // the base date's Tuesday
      {"FREQ=MONTHLY;BYDAY=-1FR", kRecursMonthNth, 1, 32, 0, 5, 0, true, kNoDate},
      {"FREQ=MONTHLY;BYDAY=2TU;INTERVAL=3", kRecursMonthNth, 3, 4, 0, 2, 0, true, kNoDate},
      {"FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=9", kRecursYearly, 1, 0, 9, 0, 6, true, kNoDate},
      {"FREQ=DAILY;COUNT=3", kRecursDaily, 1, 0, 0, 0, 0, true, MakeDate(2031, 3, 6)},
      {"FREQ=DAILY;UNTIL=20310310", kRecursDaily, 1, 0, 0, 0, 0, true, MakeDate(2031, 3, 10)},
      {"FREQ=HOURLY;INTERVAL=4", kRecursDaily, 4, 0, 0, 0, 0, false, kNoDate},
      {"FREQ=YEARLY;BYWEEKNO=20", kRecursYearly, 1, 0, 4, 0, 3, false, kNoDate},
  };
  for (const auto& c : cases) {
    const std::string text = std::string("BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:r\r\nDUE;VALUE=DATE:20310304\r\nRRULE:") +
                             c.rule + "\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";
    Todo read;
    std::string error;
    ASSERT_TRUE(ReadTodo(text, &read, &error)) << c.rule << ": " << error;
    const RecurrencePattern& p = read.values.pattern;
    EXPECT_EQ(p.RecurrenceType, c.type) << c.rule;
    EXPECT_EQ(p.Interval, c.interval) << c.rule;
    EXPECT_EQ(p.DayOfWeekMask, c.mask) << c.rule;
    if (c.day) {
      EXPECT_EQ(p.DayOfMonth, c.day) << c.rule;
    }
    EXPECT_EQ(p.Instance, c.instance) << c.rule;
    if (c.month) {
      EXPECT_EQ(p.MonthOfYear, c.month) << c.rule;
    }
    EXPECT_EQ(!read.custom_rule, c.held) << c.rule;
    EXPECT_EQ(p.NoEndDate ? kNoDate : p.PatternEndDate, c.end) << c.rule;
  }
}

TEST(TodoFileTest, FilesThatAreNotOneTaskAreRefusedInWords) {
  const struct {
    std::string text;
    const char* says;
  } cases[] = {
      {"this is not a calendar", "not an iCalendar file"},
      {"BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:e\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n", "event"},
      {"BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:a\r\nEND:VTODO\r\nBEGIN:VTODO\r\nUID:b\r\nEND:VTODO\r\nEND:VCALENDAR\r\n",
       "holds 2 tasks"},
      {"BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nSUMMARY:x\r\nEND:VTODO\r\nEND:VCALENDAR\r\n", "no UID"},
      {"BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:big\r\nDESCRIPTION:" + std::string(10u << 20, 'x') +
           "\r\nEND:VTODO\r\nEND:VCALENDAR\r\n",
       "10 MB"},
  };
  for (const auto& c : cases) {
    Todo read;
    std::string error;
    EXPECT_FALSE(ReadTodo(c.text, &read, &error)) << c.says;
    EXPECT_NE(error.find(c.says), std::string::npos) << error;
  }
}

}  // namespace
}  // namespace velmo::sync
