// The bridge between a device's tasks database and a folder of task files,
// on a real device in a temporary root.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/device_store.h"
#include "platform/cedb.h"
#include "store/connection.h"
#include "sync/bridge.h"
#include "sync/sync_state.h"
#include "sync/task_records.h"
#include "sync/todo.h"
#include "tests/support/temp_root.h"

namespace velmo::sync {
namespace {

namespace fs = std::filesystem;
using poom::TaskValues;

class BridgeTest : public testing::DeviceTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(cli::OpenDeviceStore("test", false));
    folder_ = root() / "tasks";
    fs::create_directories(folder_);
  }
  void TearDown() override { cli::CloseDeviceStore(); }

  TasksDatabase Tasks() const { return {Store().volume, Store().tasks_db, Store().tasks_db_oid}; }

  BridgeReport Run() {
    BridgeReport report;
    EXPECT_TRUE(RunBridge(Tasks(), folder_, &report)) << (report.problems.empty() ? "" : report.problems[0]);
    return report;
  }

  // A task as the program makes it: its values, no UID.
  CEOID Add(const std::wstring& subject) {
    TaskValues v;
    v.subject = subject;
    v.due = MakeDate(2031, 3, 4);
    poom::EncodedProps props;
    poom::EncodeTask(v, poom::kAllFields, &props);
    return CeWriteRecordProps(Store().tasks_db, 0, static_cast<WORD>(props.values.size()), props.values.data());
  }
  void SetSubject(CEOID oid, const std::wstring& subject) {
    CEPROPVAL v{0x0037001F, 0, 0, {}};
    std::wstring text = subject;
    v.val.lpwstr = text.data();
    ASSERT_EQ(CeWriteRecordProps(Store().tasks_db, oid, 1, &v), oid);
  }
  std::vector<SyncRecord> Records() {
    std::vector<SyncRecord> records;
    EXPECT_TRUE(ReadAllSyncRecords(Store().tasks_db, &records));
    return records;
  }
  std::vector<std::string> FileNames() {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(folder_)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  std::string FileOf(const SyncRecord& r) { return testing::ReadFileBytes(folder_ / (r.uid + ".ics")); }
  // Rewrites a file's SUMMARY as another program would, a second later.
  void EditFile(const fs::path& file, const std::string& from, const std::string& to) {
    std::string text = testing::ReadFileBytes(file);
    text.replace(text.find(from), from.size(), to);
    const auto stamp = text.find("LAST-MODIFIED:");
    if (stamp != std::string::npos) text.replace(stamp + 14, 16, "20991231T000000Z");
    testing::WriteFileBytes(file, text);
  }

  fs::path folder_;
};

TEST_F(BridgeTest, ChangesTravelBothWaysAndARunWithoutChangesDoesNothing) {
  const CEOID milk = Add(L"Milk");
  Add(L"Bread");
  BridgeReport first = Run();
  EXPECT_EQ(first.to_folder, 2);
  ASSERT_EQ(FileNames().size(), 2u);
  const BridgeReport idle = Run();
  EXPECT_EQ(idle.to_folder + idle.to_database + idle.files_removed + idle.tasks_removed, 0);

  // A change in the database reaches the file, other lines untouched.
  std::vector<SyncRecord> records = Records();
  const fs::path milk_file = folder_ / (records[0].uid + ".ics");
  std::string text = testing::ReadFileBytes(milk_file);
  text.insert(text.find("END:VTODO"), "X-KEEP-ME:yes\r\n");
  testing::WriteFileBytes(milk_file, text);
  EXPECT_EQ(Run().to_database, 1) << "the file's new line is taken in";
  SetSubject(milk, L"Oat milk");
  EXPECT_EQ(Run().to_folder, 1);
  text = testing::ReadFileBytes(milk_file);
  EXPECT_NE(text.find("SUMMARY:Oat milk"), std::string::npos);
  EXPECT_NE(text.find("X-KEEP-ME:yes\r\n"), std::string::npos);

  // A change in the folder reaches the database.
  EditFile(milk_file, "SUMMARY:Oat milk", "SUMMARY:Soy milk");
  EXPECT_EQ(Run().to_database, 1);
  EXPECT_EQ(Records()[0].values.subject, L"Soy milk");

  // A file removed removes its task; a task removed removes its file.
  fs::remove(milk_file);
  EXPECT_EQ(Run().tasks_removed, 1);
  ASSERT_EQ(Records().size(), 1u);
  ASSERT_TRUE(CeDeleteRecord(Store().tasks_db, Records()[0].oid));
  EXPECT_EQ(Run().files_removed, 1);
  EXPECT_TRUE(FileNames().empty());
}

TEST_F(BridgeTest, AChangeOnBothSidesKeepsTheNewerAndTheOlderAsATask) {
  const CEOID oid = Add(L"Call Ann");
  Run();
  const SyncRecord r = Records()[0];
  SetSubject(oid, L"Call Ann at nine");
  EditFile(folder_ / (r.uid + ".ics"), "SUMMARY:Call Ann", "SUMMARY:Call Ann at ten");
  EXPECT_EQ(Run().conflicts, 1);
  std::vector<std::wstring> subjects;
  for (const SyncRecord& s : Records()) subjects.push_back(s.values.subject);
  std::sort(subjects.begin(), subjects.end());
  EXPECT_EQ(subjects, (std::vector<std::wstring>{L"Call Ann at nine", L"Call Ann at ten"}));
  EXPECT_EQ(Records()[0].values.subject, L"Call Ann at ten") << "the file's change was the newer";
  EXPECT_EQ(FileNames().size(), 2u);
  const BridgeReport idle = Run();
  EXPECT_EQ(idle.to_folder + idle.to_database + idle.conflicts, 0);
}

TEST_F(BridgeTest, ADeletionAgainstAChangeKeepsTheChangedTask) {
  const CEOID a = Add(L"Kept from the database");
  Add(L"Kept from the folder");
  Run();
  std::vector<SyncRecord> records = Records();
  // The first: changed here, its file removed there.
  SetSubject(a, L"Kept from the database, changed");
  fs::remove(folder_ / (records[0].uid + ".ics"));
  // The second: its record removed here, its file changed there.
  ASSERT_TRUE(CeDeleteRecord(Store().tasks_db, records[1].oid));
  EditFile(folder_ / (records[1].uid + ".ics"), "SUMMARY:Kept from the folder", "SUMMARY:Folder changed");
  Run();
  records = Records();
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0].values.subject, L"Kept from the database, changed");
  EXPECT_EQ(records[1].values.subject, L"Folder changed");
  EXPECT_EQ(FileNames().size(), 2u);
}

TEST_F(BridgeTest, ARunCutShortIsCompletedWithoutDoubles) {
  Add(L"One");
  Add(L"Two");
  Run();
  // Stopped after the files were written but before the state was: the state is gone.
  fs::remove(StateFile());
  const BridgeReport again = Run();
  EXPECT_EQ(again.conflicts + again.to_database + again.to_folder, 0);
  EXPECT_EQ(Records().size(), 2u);
  EXPECT_EQ(FileNames().size(), 2u);
  SetSubject(Records()[0].oid, L"One, changed");
  EXPECT_EQ(Run().to_folder, 1);
  EXPECT_EQ(FileNames().size(), 2u);
  EXPECT_NE(FileOf(Records()[0]).find("SUMMARY:One\\, changed"), std::string::npos);
}

TEST_F(BridgeTest, BadFilesAreLeftAloneAndNamed) {
  const struct {
    const char* name;
    std::string text;
    const char* says;
  } cases[] = {
      {"broken.ics", "BEGIN:VCALENDAR\r\nBEGIN:VTO", "not an iCalendar file"},
      {"event.ics", "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:e\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n", "event"},
      {"huge.ics", "BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:h\r\nDESCRIPTION:" + std::string(10u << 20, 'x') +
                       "\r\nEND:VTODO\r\nEND:VCALENDAR\r\n", "MB"},
  };
  for (const auto& c : cases) testing::WriteFileBytes(folder_ / c.name, c.text);
  testing::WriteFileBytes(folder_ / "odd.ics",
                          "BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:../../escape\r\nSUMMARY:Odd\r\n"
                          "END:VTODO\r\nEND:VCALENDAR\r\n");
  BridgeReport report;
  ASSERT_TRUE(RunBridge(Tasks(), folder_, &report));
  for (const auto& c : cases) {
    const bool named = std::any_of(report.problems.begin(), report.problems.end(), [&](const std::string& p) {
      return p.find(c.name) != std::string::npos && p.find(c.says) != std::string::npos;
    });
    EXPECT_TRUE(named) << c.name;
    EXPECT_EQ(testing::ReadFileBytes(folder_ / c.name), c.text) << c.name;
  }
  ASSERT_EQ(Records().size(), 1u);
  EXPECT_EQ(Records()[0].uid, "../../escape");
  // Written back under a name of its own making, inside the folder.
  SetSubject(Records()[0].oid, L"Odd, changed");
  Run();
  EXPECT_NE(testing::ReadFileBytes(folder_ / "odd.ics").find("Odd\\, changed"), std::string::npos);
  EXPECT_FALSE(fs::exists(root() / "escape.ics"));
}

TEST_F(BridgeTest, AMissingFolderChangesNothing) {
  Add(L"Stays");
  Run();
  fs::rename(folder_, root() / "elsewhere");
  BridgeReport report;
  EXPECT_FALSE(RunBridge(Tasks(), folder_, &report));
  ASSERT_FALSE(report.problems.empty());
  EXPECT_NE(report.problems[0].find(folder_.string()), std::string::npos);
  fs::rename(root() / "elsewhere", folder_);
  EXPECT_EQ(Records().size(), 1u);
  const BridgeReport idle = Run();
  EXPECT_EQ(idle.tasks_removed + idle.files_removed, 0);
}

}  // namespace
}  // namespace velmo::sync
