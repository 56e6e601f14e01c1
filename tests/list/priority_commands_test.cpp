#include <gtest/gtest.h>

#include "list/priority_commands.h"

namespace velmo {
namespace {

TEST(PriorityCommands, StepsAndSetsFromEveryPriority) {
  using R = PriorityRequest;
  struct Case {
    UINT command;
    LONG from;
    LONG to;
  } cases[] = {
      {kCmdPriorityUp, 0, 1},     {kCmdPriorityUp, 1, 2},     {kCmdPriorityUp, 2, 2},
      {kCmdPriorityUp, 7, 1},     {kCmdPriorityUp, -1, 1},    {kCmdPriorityCycle, 2, 0},
      {kCmdPriorityCycle, 0, 1},  {kCmdPriorityCycle, 9, 1},  {kCmdPriorityDown, 2, 1},
      {kCmdPriorityDown, 1, 0},   {kCmdPriorityDown, 0, 0},   {kCmdPriorityDown, 5, 1},
      {kCmdPriorityHigh, 0, 2},   {kCmdPriorityNormal, 1, 1}, {kCmdPriorityLow, 2, 0},
      {kCmdPriorityLow, 6, 0},
  };
  for (const Case& c : cases) {
    R request{};
    bool wrap = false;
    ASSERT_TRUE(PriorityCommandRequest(c.command, &request, &wrap));
    EXPECT_EQ(NextPriority(c.from, request, wrap), c.to) << c.command << " from " << c.from;
  }
  EXPECT_EQ(NextPriority(0, R::kStepDown, true), 2);  // a wrapping step down
  R request{};
  bool wrap = false;
  EXPECT_FALSE(PriorityCommandRequest(40016, &request, &wrap));
}

}  // namespace
}  // namespace velmo
