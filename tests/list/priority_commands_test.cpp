#include <gtest/gtest.h>

#include "list/priority_commands.h"
#include "platform/poom_props.h"
#include "tests/platform/poom_fixture.h"

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

namespace velmo::testing {
namespace {

using PriorityOnItemTest = PoomTest;

TEST_F(PriorityOnItemTest, ChangedPrioritySavesAndKeepsTheReminderPending) {
  CEOID oid = NewTask(L"Stepped");
  Task record;
  record.reminder_time = MakeDate(2025, 3, 14, 8);
  struct Step { UINT command; HRESULT result; LONG stored; } steps[] = {
      {kCmdPriorityNormal, S_FALSE, 2},  // already Normal: no save
      {kCmdPriorityUp, S_OK, 1},         // the record's encoding: 1 high
      {kCmdPriorityUp, S_FALSE, 1},
      {kCmdPriorityCycle, S_OK, 3},      // High wraps to Low (3)
      {kCmdPriorityDown, S_FALSE, 3},
  };
  for (const Step& s : steps) {
    record.pending_reminder_time = kNoDate;
    PriorityRequest request{};
    bool wrap = false;
    PriorityCommandRequest(s.command, &request, &wrap);
    Ref<ITask> item;
    ASSERT_EQ(app_->GetItemFromOid(oid, &item), S_OK);
    EXPECT_EQ(SetTaskPriority(item.p, &record, request, wrap), s.result) << s.command;
    EXPECT_EQ(record.pending_reminder_time, s.result == S_OK ? record.reminder_time : kNoDate);
    auto raw = Raw(oid);
    LONG stored = raw.count(poom::kPropImportance) ? raw[poom::kPropImportance].number : 2;
    EXPECT_EQ(stored, s.stored) << s.command;
  }
  EXPECT_EQ(SetTaskPriority(nullptr, &record, PriorityRequest::kHigh, false), E_POINTER);
}

}  // namespace
}  // namespace velmo::testing
