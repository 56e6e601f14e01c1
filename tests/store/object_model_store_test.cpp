// The store's use of the object model: recurrence choices written into a task
// item and read back, the welcome task, and the direct writes of an item.
#include <gtest/gtest.h>

#include "editor/recurrence_choices.h"
#include "platform/poom.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "store/store_session.h"
#include "store/task_recurrence.h"
#include "store/task_table.h"
#include "tests/store/store_fixture.h"

namespace velmo::testing {
namespace {

class ObjectModelStoreTest : public StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    ASSERT_TRUE(LogOnObjectModel(nullptr));
    ASSERT_EQ(Store().app->CreateItem(olTaskItem, &item_), S_OK);
    item_->put_Subject(L"Water the plants");
    item_->put_StartDate(MakeDate(2024, 5, 29));  // a Wednesday in the last week
    item_->put_DueDate(MakeDate(2024, 5, 29));
  }
  void TearDown() override {
    if (item_) item_->Release();
    StoreTest::TearDown();
  }
  ITask* item_ = nullptr;
};

TEST_F(ObjectModelStoreTest, ChoicesWrittenAndReadBack) {
  const DATE base = MakeDate(2024, 5, 29);  // a Wednesday in the month's last week
  EXPECT_EQ(WriteRecurrenceToItem(item_, 6, base, MakeDate(2024, 9, 30)), 5);
  bool recurring = false;
  RecurrencePattern p;
  ASSERT_EQ(ReadRecurrenceFromItem(item_, &recurring, &p), S_OK);
  ASSERT_TRUE(recurring);
  EXPECT_EQ(p.RecurrenceType, kRecursMonthNth);
  EXPECT_EQ(p.DayOfWeekMask, WeekdayBit(3));
  EXPECT_EQ(p.Instance, kLastInstance);
  EXPECT_EQ(p.PatternStartDate, base);
  EXPECT_FALSE(p.NoEndDate);

  // The custom pattern keeps its fields; a fixed choice is counted on a scratch item.
  EXPECT_EQ(CountChoiceOccurrences(Store().app, item_, kCustomPattern, base, MakeDate(2024, 12, 31)), 8);
  EXPECT_EQ(CountChoiceOccurrences(Store().app, item_, 1, base, MakeDate(2024, 5, 31)), 3);
  EXPECT_EQ(WriteRecurrenceToItem(item_, 1, base, kNoDate), 0) << "no end";
  WriteRecurrenceToItem(item_, kOccursOnce, base, kNoDate);
  EXPECT_EQ(ReadRecurrenceFromItem(item_, &recurring, &p), S_OK);
  EXPECT_FALSE(recurring);
}

TEST_F(ObjectModelStoreTest, DirectWritesOfAnItem) {
  ASSERT_EQ(item_->Save(), S_OK);
  CEOID oid = 0;
  item_->get_Oid(&oid);
  EXPECT_EQ(WriteTaskCategories(item_, L"Garden,Home", false), S_OK);
  EXPECT_EQ(WriteTaskTeamFlag(item_, 1, false), S_OK);
  std::wstring categories;
  EXPECT_EQ(ReadTaskCategories(item_, &categories), S_OK);
  EXPECT_EQ(categories, L"Garden,Home");
  const Task task = Read(oid);
  EXPECT_EQ(task.team_task, 1);
  EXPECT_EQ(task.subject, L"Water the plants") << "the other properties stay";

  EXPECT_EQ(WriteTaskCategories(item_, nullptr, false), S_OK);
  EXPECT_EQ(Read(oid).categories, L"");
  ASSERT_EQ(item_->Delete(), S_OK);
  EXPECT_TRUE(FAILED(ReadTaskCategories(item_, &categories)));
  EXPECT_EQ(categories, L"");
}

TEST_F(ObjectModelStoreTest, WelcomeTaskOnlyOnTheFirstRun) {
  CloseConnection();
  ASSERT_TRUE(OpenConnection(nullptr));
  ASSERT_EQ(Tasks().size(), 1u);
  const Task& welcome = *Tasks()[0];
  EXPECT_EQ(welcome.oid, Store().welcome_task);
  EXPECT_EQ(welcome.subject, L"Velmo ToDo List");
  EXPECT_EQ(welcome.notes_state, kHasNotes);
  EXPECT_EQ(welcome.start_date, MakeDate(2024, 5, 15));
  EXPECT_EQ(welcome.due_date, MakeDate(2024, 5, 30));
  EXPECT_EQ(welcome.reminder_set, 0);
  CloseConnection();
  ASSERT_TRUE(OpenConnection(nullptr));
  EXPECT_EQ(Tasks().size(), 1u);
}

}  // namespace
}  // namespace velmo::testing
