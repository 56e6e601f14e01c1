#include <gtest/gtest.h>

#include "app/command_line.h"

namespace velmo::app {
namespace {

TEST(CommandLine, ParsesEveryForm) {
  struct Case { const wchar_t* line; LONG request; CEOID oid; } cases[] = {
      {L"", kNoRequest, 0},
      {L"AppRunAfterSync", kAfterSyncRequest, 0},
      // Only the exact text is the after-synchronisation request.
      {L"apprunaftersync", kNoRequest, 0},            {L"APPRUNAFTERSYNC", kNoRequest, 0},
      {L"AppRunAfterSync ", kNoRequest, 0},           {L"AppRunAfterSync -today", kCmdTodayView, 0},
      {L"12345", kNoRequest, 12345},                  {L"  42abc", kNoRequest, 42},
      // A number wins over any option after it.
      {L"12345 -new", kNoRequest, 12345},        {L"4294967295", kNoRequest, 4294967295u},
      {L"3000000000", kNoRequest, 3000000000u},  {L"0 -new", kCmdNewTask, 0},
      {L"-default", kCmdDefaultView, 0},         {L"-today", kCmdTodayView, 0},
      {L"-new", kCmdNewTask, 0},                 {L"-TODAY", kCmdTodayView, 0},
      // The order default, today, new decides, not the order on the line.
      {L"-new -today", kCmdTodayView, 0},             {L"-today -new", kCmdTodayView, 0},
      {L"-new -today -default", kCmdDefaultView, 0},
      // Options may stand anywhere, even inside other text.
      {L"x-newer", kCmdNewTask, 0},  {L"abc", kNoRequest, 0},       {L"-", kNoRequest, 0},
      // The number is read like atol: sign, leading zeros, modulo 2^32.
      {L"+0012", kNoRequest, 12},                {L"-5", kNoRequest, 4294967291u},
      {L"- 5 -new", kCmdNewTask, 0},             {L"4294967296 -today", kCmdTodayView, 0},
  };
  for (const Case& c : cases) {
    const StartRequest start = ParseCommandLine(c.line);
    EXPECT_EQ(start.request, c.request) << "line: '" << c.line << "'";
    EXPECT_EQ(start.task_oid, c.oid) << "line: '" << c.line << "'";
  }
}

}  // namespace
}  // namespace velmo::app
