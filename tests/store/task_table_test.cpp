// Loading, finding and freeing the task table; the direct reads and writes;
// categories of the other databases.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "categories/category_filter.h"
#include "categories/category_state.h"
#include "cli/demo_tasks.h"
#include "platform/cedb.h"
#include "platform/device.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "store/other_categories.h"
#include "store/record_reader.h"
#include "store/store_session.h"
#include "store/task_props.h"
#include "store/task_table.h"
#include "tests/store/store_fixture.h"

namespace velmo::testing {
namespace {

class TaskTableTest : public StoreTest {
 protected:
  std::vector<CEOID> AddTasks(int count) {
    std::vector<CEOID> oids;
    cedb::BeginWriteBatch(&Store().volume);
    for (int i = 0; i < count; ++i)
      oids.push_back(AddRecord(Props().Text(kPropSubject, L"task " + std::to_wstring(i))));
    cedb::EndWriteBatch(&Store().volume);
    return oids;
  }
};

TEST_F(TaskTableTest, LoadKeepsDatabaseOrderUpToTheCap) {
  const std::vector<CEOID> oids = AddTasks(3000);
  ASSERT_TRUE(LoadTaskTable());
  ASSERT_EQ(Tasks().size(), kMaxTasks);
  EXPECT_EQ(Tasks().front()->oid, oids.front());
  EXPECT_EQ(Tasks().back()->subject, L"task 2549");
  EXPECT_EQ(FindTask(oids[2549]), 2549);
  EXPECT_EQ(FindTask(oids[2550]), -1);

  EXPECT_FALSE(LoadTaskTable()) << "the reload flag was cleared";
  EXPECT_EQ(Tasks().size(), kMaxTasks);
  FreeTaskTable();
  EXPECT_TRUE(Tasks().empty());

  CEDBASEINFOEX info{};
  ASSERT_TRUE(ReadTasksDatabaseInfo(&info));
  Settings reloaded;
  LoadSettings(reloaded);
  EXPECT_EQ(reloaded.last_modified.dwLowDateTime, info.ftLastModified.dwLowDateTime);
  EXPECT_EQ(reloaded.last_modified.dwHighDateTime, info.ftLastModified.dwHighDateTime);
}

// Every field, so that a load and a one-by-one read can be compared.
auto FieldsOf(const Task& t) {
  return std::make_tuple(t.oid, t.subject, t.categories, t.phone_number, t.date_completed, t.due_date,
                         t.start_date, t.reminder_time, t.importance, t.sensitivity, t.complete,
                         t.recurring, t.reminder_set, t.notes_state, t.team_task, t.web_link_count,
                         t.mail_link_count, t.search_match, t.pending_reminder_time,
                         t.reminder_base_flag, t.reminder_minutes, t.reminder_options,
                         t.notification_handle, t.reminder_sound);
}

std::vector<std::pair<std::wstring, WORD>> CatalogueMarks() {
  std::vector<std::pair<std::wstring, WORD>> marks;
  for (const CategoryEntry& e : CategoryCatalogue().entries) marks.emplace_back(e.name, e.marks);
  return marks;
}

// A reload fills its tasks on two threads; each task must come out as a read of
// its record alone gives it, and the categories marked as a one-thread pass
// marks them. Demo tasks have every kind of field, links and categories.
TEST_F(TaskTableTest, AReloadFillsEachTaskAsAOneByOneReadDoes) {
  ASSERT_TRUE(LogOnObjectModel(nullptr));
  cli::DemoTaskMaker maker(600, MakeDate(2024, 5, 15));
  cedb::BeginWriteBatch(&Store().volume);
  for (int i = 0; i < 600; ++i) ASSERT_EQ(cli::SaveDemoTask(maker.Next(), Store().app), S_OK);
  cedb::EndWriteBatch(&Store().volume);
  for (int load = 0; load < 3; ++load) {  // the first load checks reminders one by one
    Store().reload = true;
    ASSERT_TRUE(LoadTaskTable());
  }
  ASSERT_EQ(Tasks().size(), 600u);
  const auto marks = CatalogueMarks();
  for (const auto& task : Tasks()) {
    Task alone;
    ASSERT_TRUE(ReadTaskRecord(&alone, task->oid));
    ASSERT_EQ(FieldsOf(*task), FieldsOf(alone)) << "task " << task->oid;
  }
  size_t with_links = 0;
  for (const auto& task : Tasks()) with_links += !task->phone_number.empty() || task->web_link_count > 0;
  EXPECT_GT(with_links, 100u) << "the demo tasks hold links";
  MarkCategoryUse(Tasks());
  EXPECT_EQ(CatalogueMarks(), marks);
  LogOffObjectModel();
}

TEST_F(TaskTableTest, ADamagedRecordIsLeftOutAndTheRestLoads) {
  const std::vector<CEOID> oids = AddTasks(3);
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(device::MapPlatformPath(cedb::kDefaultVolumePath).c_str(), &raw), SQLITE_OK);
  const std::string sql = "UPDATE records SET props=x'1F0037000300000041' WHERE oid=" + std::to_string(oids[1]);
  ASSERT_EQ(sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(raw);
  // The first load after the change checks reminders record by record; the
  // reload reads them all in one go.
  for (const char* load : {"checking load", "plain reload"}) {
    SCOPED_TRACE(load);
    Store().reload = true;
    ASSERT_TRUE(LoadTaskTable());
    ASSERT_EQ(Tasks().size(), 2u);
    EXPECT_EQ(Tasks()[0]->subject, L"task 0");
    EXPECT_EQ(Tasks()[1]->subject, L"task 2");
  }
}

TEST_F(TaskTableTest, WithoutTheVolumeEverythingFailsQuietly) {
  AddTasks(3);
  CloseTasksDatabase();
  CurrentSettings().db_path = L"\\Storage\\missing.vol";
  EXPECT_FALSE(OpenTasksDatabaseHandle(nullptr, false, 0));
  EXPECT_TRUE(CHECK_INVALIDGUID(&Store().volume));
  Store().reload = true;
  EXPECT_TRUE(LoadTaskTable());
  EXPECT_TRUE(Tasks().empty());
  EXPECT_EQ(ReadNotificationHandle(1), 0u);
}

TEST_F(TaskTableTest, ReminderHandleWriteTouchesOnlyItsTwoProperties) {
  const CEOID oid = AddRecord(Props().Text(kPropSubject, L"keep me").Text(kPropCategories, L"Home")
                                  .Int(kPropReminderMinutes, 15).Int(kPropNotificationHandle, 3));
  EXPECT_EQ(ReadNotificationHandle(oid), 3u);
  Task task = Read(oid);
  task.notification_handle = 9;
  task.reminder_minutes = -30;
  task.subject = L"not written";
  ASSERT_EQ(WriteReminderHandle(task), S_OK);
  const Task stored = Read(oid);
  EXPECT_EQ(stored.notification_handle, 9u);
  EXPECT_EQ(stored.reminder_minutes, -30);
  EXPECT_EQ(stored.subject, L"keep me");
  EXPECT_EQ(stored.categories, L"Home");

  task.oid = oid + 1000;
  EXPECT_EQ(WriteReminderHandle(task), HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER));
  EXPECT_EQ(ReadNotificationHandle(oid + 1000), 0u);
}

TEST_F(TaskTableTest, CategoriesOfContactsAndAppointments) {
  CEGUID volume = Store().volume;
  const auto fill = [&](const wchar_t* name, std::vector<const wchar_t*> values) {
    CEOID db = 0;
    HANDLE h = CeOpenDatabaseEx(&volume, &db, name, 0, 0, nullptr);
    ASSERT_NE(h, INVALID_HANDLE_VALUE);
    for (const wchar_t* v : values) {
      CEPROPVAL p{v ? kPropCategories : kPropSubject, 0, 0, {}};
      p.val.lpwstr = const_cast<wchar_t*>(v ? v : L"no categories");
      ASSERT_NE(CeWriteRecordProps(h, 0, 1, &p), 0u);
    }
    CeCloseHandle(h);
  };
  fill(L"Contacts Database", {L"Friends,Work", nullptr, L""});
  fill(L"Appointments Database", {L"Holiday"});
  const auto gather = [](OtherDatabase which) {
    std::vector<std::wstring> seen;
    EXPECT_TRUE(ReadOtherDatabaseCategories(which, [&](std::wstring_view v) { seen.emplace_back(v); }));
    return seen;
  };
  EXPECT_EQ(gather(OtherDatabase::kContacts), (std::vector<std::wstring>{L"Friends,Work", L""}));
  EXPECT_EQ(gather(OtherDatabase::kAppointments), (std::vector<std::wstring>{L"Holiday"}));
  EXPECT_EQ(Store().other_db, INVALID_HANDLE_VALUE);
}

}  // namespace
}  // namespace velmo::testing
