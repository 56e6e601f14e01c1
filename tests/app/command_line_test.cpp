#include <gtest/gtest.h>

#include "app/command_line.h"

namespace velmo::app {
namespace {

TEST(CommandLine, ParsesEveryForm) {
  struct Case {
    const wchar_t* line;
    LONG request;
    CEOID oid;
  } cases[] = {
      {L"", kNoRequest, 0},
      {L"AppRunAfterSync", kAfterSyncRequest, 0},
      // Only the exact text is the after-synchronisation request.
      {L"apprunaftersync", kNoRequest, 0},
      {L"APPRUNAFTERSYNC", kNoRequest, 0},
      {L"AppRunAfterSync ", kNoRequest, 0},
      {L"AppRunAfterSync -today", kCmdTodayView, 0},
      {L"12345", kNoRequest, 12345},
      {L"  42abc", kNoRequest, 42},
      // A number wins over any option after it.
      {L"12345 -new", kNoRequest, 12345},
      {L"4294967295", kNoRequest, 4294967295u},
      {L"3000000000", kNoRequest, 3000000000u},
      {L"0 -new", kCmdNewTask, 0},
      {L"-default", kCmdDefaultView, 0},
      {L"-today", kCmdTodayView, 0},
      {L"-new", kCmdNewTask, 0},
      {L"-TODAY", kCmdTodayView, 0},
      // The order default, today, new decides, not the order on the line.
      {L"-new -today", kCmdTodayView, 0},
      {L"-today -new", kCmdTodayView, 0},
      {L"-new -today -default", kCmdDefaultView, 0},
      // Options may stand anywhere, even inside other text.
      {L"x-newer", kCmdNewTask, 0},
      {L"abc", kNoRequest, 0},
      {L"-", kNoRequest, 0},
  };
  for (const Case& c : cases) {
    const StartRequest start = ParseCommandLine(c.line);
    EXPECT_EQ(start.request, c.request) << "line: '" << c.line << "'";
    EXPECT_EQ(start.task_oid, c.oid) << "line: '" << c.line << "'";
  }
}

TEST(CommandLine, LeadingDecimalReadsLikeAtol) {
  struct Case {
    const wchar_t* text;
    LONG value;
  } cases[] = {{L"", 0},         {L"7", 7},          {L" \t9x", 9},       {L"+12", 12},
               {L"-5", -5},      {L"- 5", 0},        {L"x12", 0},         {L"0012", 12},
               {L"2147483648", static_cast<LONG>(0x80000000u)},
               {L"4294967296", 0}};
  for (const Case& c : cases) EXPECT_EQ(LeadingDecimal(c.text), c.value) << c.text;
}

TEST(CommandLine, JoinsArgumentsWithSpaces) {
  char program[] = "velmo-todo", a[] = "-new", b[] = "t\xc3\xa4sk";
  char* argv[] = {program, a, b, nullptr};
  EXPECT_EQ(JoinArguments(3, argv), L"-new t\u00e4sk");
  EXPECT_EQ(JoinArguments(1, argv), L"");
}

}  // namespace
}  // namespace velmo::app
