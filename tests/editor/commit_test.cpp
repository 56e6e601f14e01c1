// Done in the editor on a real device: every refusal explained by its rule,
// the past-reminder question, the notes copy, the deferred completion and the
// reminder the record keeps.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <string>
#include <vector>

#include "editor/commit.h"
#include "platform/device.h"
#include "platform/wstr.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "store/store_session.h"
#include "tests/store/store_fixture.h"

namespace velmo::testing {
namespace {

// The clock of StoreTest: 15 May 2024, 12:00.
const DATE kJune1 = MakeDate(2024, 6, 1);
const DATE kJune10 = MakeDate(2024, 6, 10);

class CommitTest : public StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    ASSERT_TRUE(LogOnObjectModel(nullptr));
  }

  CommitHooks Hooks() {
    CommitHooks h;
    h.confirm_past_reminder = [this] { return ++asked_, answer_; };
    h.show_failure = [this](const SaveFailureMessage& m) { failures_.push_back(m); };
    h.focus_reminder = [this] { ++focused_; };
    h.saved = [this](CEOID oid, bool deferred) { saved_oid_ = oid, deferred_ = deferred; };
    return h;
  }
  HRESULT Commit(const EditorValues& v, CEOID oid = 0) { return CommitTaskById(Store().app, oid, v, Hooks()); }

  // A task saved through the commit: "Plan", from 1 to 10 June.
  CEOID SavedTask(const std::function<void(EditorValues&)>& change = {}) {
    EditorValues v;
    v.subject = L"Plan";
    v.start = kJune1;
    v.due = kJune10;
    v.notes = L"first notes";
    if (change) change(v);
    EXPECT_EQ(Commit(v), S_OK);
    const CEOID oid = saved_oid_;
    saved_oid_ = 0;
    return oid;
  }
  ITask* Item(CEOID oid) {
    ITask* item = nullptr;
    EXPECT_EQ(Store().app->GetItemFromOid(oid, &item), S_OK);
    return item;
  }
  template <typename T>
  T Get(CEOID oid, HRESULT (ITask::*get)(T*)) {
    ITask* item = Item(oid);
    T value{};
    if (item) (item->*get)(&value), item->Release();
    return value;
  }
  bool answer_ = false;
  int asked_ = 0, focused_ = 0;
  std::vector<SaveFailureMessage> failures_;
  CEOID saved_oid_ = 0;
  bool deferred_ = false;
};

void DamageRecord(CEOID oid) {
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(device::MapPlatformPath(cedb::kDefaultVolumePath).c_str(), &raw), SQLITE_OK);
  const std::string sql = "UPDATE records SET props=x'1F0037000300000041' WHERE oid=" + std::to_string(oid);
  ASSERT_EQ(sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(raw);
}

TEST_F(CommitTest, EachRefusalIsExplainedByItsRuleAndNothingIsWritten) {
  using Values = void (*)(EditorValues&);
  const struct Case {
    const char* rule;
    Values values;
    LONG reminder_delta;
    void (*before_commit)(CEOID);  // what happens to the record while it is edited
    UINT caption;
    std::wstring text;
  } cases[] = {
      {"1 too many", [](EditorValues& v) { v.occurs_choice = 1, v.recurrence_end = MakeDate(2027, 6, 1); }, 0,
       nullptr, 358, L"Too many Occurrences."},
      {"2 no due", [](EditorValues& v) { v.start = v.due = kNoDate, v.reminder = kJune1 + 0.375; }, 0, nullptr,
       358, L"ReminderTime needs a DueDate"},
      {"3 after due", [](EditorValues& v) { v.start = kNoDate, v.reminder = kJune10 + 2.375; }, 0, nullptr, 358,
       L"ReminderTime after DueDate"},
      {"4 start only", [](EditorValues& v) { v.due = kNoDate; }, 0, nullptr, 358, L"StartDate needs a DueDate"},
      {"5 backwards", [](EditorValues& v) { v.start = kJune10, v.due = kJune1; }, 0, nullptr, 358,
       L"DueDate before StartDate"},
      {"6 before start",
       [](EditorValues& v) {
         v.start = MakeDate(2024, 8, 1), v.due = MakeDate(2024, 8, 10), v.reminder = kJune1 + 0.375;
       },
       0, nullptr, 358, L"ReminderTime < StartDate - 45 Days"},
      {"7 before due", [](EditorValues& v) { v.start = kNoDate, v.due = MakeDate(2024, 8, 10), v.reminder = kJune1; },
       0, nullptr, 358, L"ReminderTime < DueDate - 45 Days"},
      // 44 days before the due date, stored 46 days before it: two days of
      // difference to the desktop move it out of reach.
      {"8 moved out",
       [](EditorValues& v) { v.start = kNoDate, v.due = MakeDate(2024, 8, 10), v.reminder = v.due - 44 + 0.5; },
       48, nullptr, 358, L"Invalid Reminder Time."},
      // A due date past the platform's last day is refused by the item, which
      // keeps its own, earlier than the new start.
      {"9 dates", [](EditorValues& v) { v.start = MakeDate(2024, 6, 20), v.due = 3000000.0; }, 0, nullptr, 358,
       L"Invalid Dates."},
      {"10 gone", [](EditorValues&) {}, 0, [](CEOID oid) { CeDeleteRecord(Store().tasks_db, oid); }, 329,
       L"This task could not be modified.\r\nTry to synchronize it."},
      {"11 damaged", [](EditorValues&) {}, 0, DamageRecord, 329, L"Error -2147024883"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rule);
    CurrentSettings().reminder_delta = 0;
    const CEOID oid = SavedTask();
    EditorValues v;
    v.subject = L"Changed";
    v.start = kJune1;
    v.due = kJune10;
    c.values(v);
    CurrentSettings().reminder_delta = c.reminder_delta;
    ITask* item = Item(oid);
    if (c.before_commit) c.before_commit(oid);
    Store().task_saved = false;
    failures_.clear();

    EXPECT_TRUE(FAILED(CommitTask(v, item, false, Hooks())));
    ASSERT_EQ(failures_.size(), 1u);
    EXPECT_EQ(failures_[0].caption_id, c.caption);
    EXPECT_EQ(failures_[0].text, c.text);
    EXPECT_EQ(saved_oid_, 0u);
    EXPECT_FALSE(Store().task_saved);
    EXPECT_EQ(Store().pending_reminder_time, kNoDate);
    if (!c.before_commit) {
      EXPECT_EQ(Read(oid).subject, L"Plan");
    }
  }
}

TEST_F(CommitTest, ATaskGoneBeforeDoneCannotBeModified) {
  const CEOID oid = SavedTask();
  ASSERT_TRUE(CeDeleteRecord(Store().tasks_db, oid));
  EditorValues v;
  v.due = kJune10;
  EXPECT_EQ(Commit(v, oid), E_INVALIDARG);
  ASSERT_EQ(failures_.size(), 1u);
  EXPECT_EQ(failures_[0].text, L"This task could not be modified.\r\nTry to synchronize it.");
}

TEST_F(CommitTest, APastReminderIsDroppedOnlyWhenTheUserAgrees) {
  EditorValues v;
  v.subject = L"Call back";
  v.due = MakeDate(2024, 5, 20);
  v.reminder = MakeDate(2024, 5, 14, 9, 0);

  answer_ = false;
  EXPECT_EQ(Commit(v), static_cast<HRESULT>(0x80040068u));
  EXPECT_EQ(asked_, 1);
  EXPECT_EQ(focused_, 1);
  EXPECT_TRUE(failures_.empty()) << "a declined question shows nothing more";
  CEDBASEINFOEX info{};
  info.wVersion = CEDBASEINFOEX_VERSION;
  ASSERT_TRUE(ReadTasksDatabaseInfo(&info));
  EXPECT_EQ(info.dwNumRecords, 0u) << "nothing saved";

  answer_ = true;
  ASSERT_EQ(Commit(v), S_OK);
  EXPECT_EQ(Get(saved_oid_, &ITask::get_ReminderSet), VARIANT_FALSE);
  EXPECT_NEAR(Get(saved_oid_, &ITask::get_ReminderTime), MakeDate(2024, 5, 14, 9, 0), 1e-6)
      << "the time is still written";
}

TEST_F(CommitTest, NotesEditedOnTheDeviceReplaceTheTaskByACopy) {
  const struct {
    bool is_new;
    DWORD notes_synchro;
    const wchar_t* notes;
    bool copied;
  } cases[] = {
      {false, 1, L"second notes", true},
      {false, 1, L"first notes", false},   // unchanged
      {false, 1, L"First notes", true},    // the comparison minds case
      {false, 0, L"second notes", false},  // no notes synchronisation
      {true, 1, L"second notes", false},   // a new task is never copied
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.notes);
    const CEOID oid = SavedTask([](EditorValues& v) { v.categories = L"Work"; });
    CurrentSettings().notes_synchro = c.notes_synchro;
    EditorValues v;
    v.subject = L"Plan";
    v.start = kJune1;
    v.due = kJune10;
    v.notes = c.notes;
    v.categories = L"Home";
    ASSERT_EQ(CommitTask(v, Item(oid), c.is_new, Hooks()), S_OK);
    EXPECT_EQ(saved_oid_ != oid, c.copied);
    Task old_record;
    EXPECT_EQ(ReadTaskRecord(&old_record, oid), c.copied ? FALSE : TRUE) << "the edited task goes";
    EXPECT_EQ(Read(saved_oid_).categories, L"Home") << "written into the task that stays";
    BSTR body = nullptr;
    ITask* item = Item(saved_oid_);
    item->get_Body(&body);
    item->Release();
    EXPECT_STREQ(body, c.notes);
    SysFreeString(body);
    CurrentSettings().notes_synchro = 1;
  }
}

TEST_F(CommitTest, CompletingARecurringTaskIsLeftToTheMainWindow) {
  const struct {
    const char* name;
    int choice;
    DATE end;
    bool deferred;
  } cases[] = {
      {"weekly, no end", 2, kNoDate, true},
      {"weekly, two to come", 2, kJune1 + 7, true},
      {"weekly, the last one", 2, kJune1, false},
      {"once", 0, kNoDate, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const CEOID oid = SavedTask([&](EditorValues& v) {
      v.due = kJune1;
      v.occurs_choice = c.choice;
      v.recurrence_end = c.end;
      v.reminder = kJune1 + 0.375;
    });
    EditorValues v;
    v.start = v.due = kJune1;
    v.occurs_choice = c.choice;
    v.recurrence_end = c.end;
    v.reminder = kJune1 + 0.375;
    v.notes = L"first notes";  // unchanged: the task is not replaced by a copy
    v.completed = true;
    ASSERT_EQ(Commit(v, oid), S_OK);
    EXPECT_EQ(deferred_, c.deferred);
    EXPECT_EQ(Read(oid).complete, c.deferred ? 0 : 1);
    // "DelReminderOnComplete" takes the reminder of a task completed now.
    EXPECT_EQ(Read(oid).reminder_set, c.deferred ? 1 : 0);
  }
}

TEST_F(CommitTest, TheReminderTheRecordKeeps) {
  const DATE no = kNoDate;
  const struct {
    const char* name;
    DATE start, due, reminder, remembered;
    LONG delta;
    DATE stored;   // the item's reminder time after the save
    DATE pending;  // the pending full reminder left for the re-read
  } cases[] = {
      {"before the due day", no, kJune10, kJune10 - 1 + 0.5, no, 0, kJune10 - 1 + 0.5, 0.0},
      {"moved back by the difference", no, kJune10, kJune10 - 1 + 0.5, no, 2, kJune10 - 1 + 0.5 - 2 / 24.0, 0.0},
      {"on the due day: a bare date", no, kJune10, kJune10 + 0.4, no, 0, kJune10, kJune10 + 0.4},
      {"empty picker: remembered within 45 days", no, kJune10, no, kJune10 - 45 + 0.25, 0, kJune10 - 45 + 0.25,
       0.0},
      // The due day at the new-task time, kept for the re-read as a due-day reminder is.
      {"empty picker: remembered too early", no, kJune10, no, kJune10 - 46 + 0.25, 0, kJune10, kJune10 + 8 / 24.0},
      {"empty picker: remembered near the start", kJune10 - 50, kJune10, no, kJune10 - 52 + 0.25, 0,
       kJune10 - 52 + 0.25, 0.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CurrentSettings().reminder_delta = c.delta;
    EditorValues v;
    v.start = c.start;
    v.due = c.due;
    v.reminder = c.reminder;
    v.remembered_reminder = c.remembered;
    ASSERT_EQ(Commit(v), S_OK) << (failures_.empty() ? "" : ToUtf8(failures_.back().text));
    EXPECT_NEAR(Get(saved_oid_, &ITask::get_ReminderTime), c.stored, 1e-6);
    EXPECT_EQ(Get(saved_oid_, &ITask::get_ReminderSet), c.reminder != no ? VARIANT_TRUE : VARIANT_FALSE);
    EXPECT_NEAR(Store().pending_reminder_time, c.pending, 1e-6);
  }
}

TEST_F(CommitTest, EveryFieldIsSavedAndTheSaveAnnounced) {
  EditorValues v;
  v.subject = L"Trip";
  v.priority_index = 2;
  v.start = kJune1 + 0.7;  // the time of day goes
  v.due = kJune10;
  v.occurs_choice = 7;     // day 1 of every month
  v.compact_layout = true;
  v.private_checked = true;
  v.sensitivity_index = 0;  // the full layout's list does not count in the compact one
  v.team_task = true;
  v.categories = L"Travel,Work";
  Store().task_saved = false;
  ASSERT_EQ(Commit(v), S_OK);
  EXPECT_TRUE(Store().task_saved);
  EXPECT_FALSE(deferred_);
  const Task t = Read(saved_oid_);
  EXPECT_EQ(t.subject, L"Trip");
  EXPECT_EQ(t.importance, kImportanceHigh);
  EXPECT_EQ(t.start_date, kJune1);
  EXPECT_EQ(t.sensitivity, kSensitivityPrivate);
  EXPECT_EQ(t.team_task, 1);
  EXPECT_EQ(t.categories, L"Travel,Work");
  EXPECT_EQ(t.recurring, 1);
}

}  // namespace
}  // namespace velmo::testing
