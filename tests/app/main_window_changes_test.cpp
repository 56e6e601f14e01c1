#include "app/change_pump.h"
#include "platform/cedb.h"
#include "platform/ui/virtual_keys.h"
#include "store/connection.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

constexpr CEPROPID kSubject = 0x0037001F;

// The main window's connection to the device's tasks database, and a second
// handle that changes records the way another program would.
class ChangesTest : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    ASSERT_TRUE(cedb::EnsureDeviceVolume());
    ASSERT_TRUE(OpenTasksDatabaseHandle(window_, true, kTasksNotifyParam));
    OpenOther();
  }
  void TearDown() override {
    CeCloseHandle(other_);
    CeUnmountDBVol(&volume_);
    CloseTasksDatabase();
    MainWindowTest::TearDown();
  }
  void OpenOther() {
    ASSERT_TRUE(CeMountDBVol(&volume_, cedb::kDefaultVolumePath, OPEN_EXISTING));
    other_ = CeOpenDatabaseEx(&volume_, &other_oid_, cedb::kTasksDatabaseName, 0, 0, nullptr);
    ASSERT_NE(other_, INVALID_HANDLE_VALUE);
  }
  CEOID Write(CEOID oid, const wchar_t* subject) {
    CEPROPVAL value{kSubject, 0, 0, {}};
    value.val.lpwstr = const_cast<wchar_t*>(subject);
    return CeWriteRecordProps(other_, oid, 1, &value);
  }
  // The loop's look at the journal, then the messages it posted.
  void Sync() {
    app::PumpDatabaseChanges();
    Pump();
  }

  CEGUID volume_{};
  CEOID other_oid_ = 0;
  HANDLE other_ = INVALID_HANDLE_VALUE;
};

TEST_F(ChangesTest, RecordsMadeChangedAndDeletedElsewhereReachTheList) {
  const CEOID milk = Write(0, L"Buy milk");
  Write(0, L"Call home");
  Sync();
  EXPECT_EQ(Title(), L"Tasks [2]");
  EXPECT_TRUE(screen_.Contains(L"Buy milk"));
  Write(milk, L"Buy bread");
  Sync();
  EXPECT_TRUE(screen_.Contains(L"Buy bread"));
  EXPECT_FALSE(screen_.Contains(L"Buy milk"));
  ASSERT_TRUE(CeDeleteRecord(other_, milk));
  Sync();
  EXPECT_EQ(Title(), L"Tasks [1]");
  EXPECT_EQ(Tasks().size(), 1u);
}

TEST_F(ChangesTest, ADatabaseThatGoesAwayIsReportedOnceAndComesBack) {
  Write(0, L"Keep me");
  Sync();
  ASSERT_TRUE(CeDeleteDatabaseEx(&volume_, other_oid_));
  int reports = 0;
  screen_.AddIdleStep([&] {
    reports += screen_.Contains(cedb::kTasksDatabaseName);
    screen_.TypeKey(VK_RETURN);
  });
  Sync();
  Sync();
  EXPECT_EQ(reports, 1);
  EXPECT_EQ(Title(), L"Tasks [0]");

  CeCloseHandle(other_);
  CeUnmountDBVol(&volume_);
  ASSERT_TRUE(cedb::EnsureDeviceVolume());
  OpenOther();
  Write(0, L"Back again");
  SendMessageW(window_, WM_TIMER, app::kReloadTimer, 0);  // its 5 s are up
  Pump();
  EXPECT_EQ(Title(), L"Tasks [1]");
  EXPECT_TRUE(screen_.Contains(L"Back again"));
  Write(0, L"And more");
  Sync();
  EXPECT_EQ(Title(), L"Tasks [2]") << "changes are followed again";
}

}  // namespace
}  // namespace velmo::testing
