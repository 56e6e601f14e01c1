#include <gtest/gtest.h>

#include "list/priority_commands.h"
#include "platform/poom_props.h"
#include "tests/platform/poom_fixture.h"

namespace velmo::testing {
namespace {

TEST(PriorityCommands, StepsFromValuesOutsideTheScaleLandOnNormal) {
  struct Case { PriorityRequest request; bool wrap; LONG from, to; } cases[] = {
      {PriorityRequest::kStepUp, false, 7, 1},   {PriorityRequest::kStepUp, true, -1, 1},
      {PriorityRequest::kStepDown, false, 5, 1}, {PriorityRequest::kStepDown, true, 0, 2},
      {PriorityRequest::kLow, false, 6, 0},
  };
  for (const Case& c : cases) EXPECT_EQ(NextPriority(c.from, c.request, c.wrap), c.to) << c.from;
}

using PriorityOnItemTest = PoomTest;

TEST_F(PriorityOnItemTest, SavedOnlyWhenChangedWithTheReminderKeptPending) {
  CEOID oid = NewTask(L"Stepped");
  Task record;
  record.reminder_time = MakeDate(2025, 3, 14, 8);
  // The record's encoding of importance: 1 high, 2 normal, 3 low.
  struct Step { UINT command; HRESULT result; LONG stored; } steps[] = {
      {kCmdPriorityNormal, S_FALSE, 2}, {kCmdPriorityUp, S_OK, 1},    {kCmdPriorityUp, S_FALSE, 1},
      {kCmdPriorityCycle, S_OK, 3},     {kCmdPriorityDown, S_FALSE, 3}, {kCmdPriorityHigh, S_OK, 1},
      {kCmdPriorityDown, S_OK, 2},
  };
  for (const Step& s : steps) {
    record.pending_reminder_time = kNoDate;
    PriorityRequest request{};
    bool wrap = false;
    ASSERT_TRUE(PriorityCommandRequest(s.command, &request, &wrap));
    Ref<ITask> item;
    ASSERT_EQ(app_->GetItemFromOid(oid, &item), S_OK);
    EXPECT_EQ(SetTaskPriority(item.p, &record, request, wrap), s.result) << s.command;
    EXPECT_EQ(record.pending_reminder_time, s.result == S_OK ? record.reminder_time : kNoDate);
    auto raw = Raw(oid);
    EXPECT_EQ(raw.count(poom::kPropImportance) ? raw[poom::kPropImportance].number : 2, s.stored);
  }
}

}  // namespace
}  // namespace velmo::testing
