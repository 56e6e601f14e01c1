#include "tests/store/store_fixture.h"

#include "platform/device.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "store/store_session.h"
#include "store/task_table.h"

namespace velmo::testing {

Props& Props::Text(CEPROPID id, const std::wstring& text) {
  values_.push_back(RawText(id, texts_.emplace_back(text).c_str()));
  return *this;
}

Props& Props::Int(CEPROPID id, LONG value) {
  const bool i2 = TypeFromPropID(id) == CEVT_I2;
  values_.push_back(i2 ? RawI2(id, static_cast<SHORT>(value)) : RawI4(id, value));
  return *this;
}

Props& Props::Date(CEPROPID id, DATE date) {
  CEPROPVAL v{id, 0, 0, {}};
  DateToFileTime(date, &v.val.filetime);
  values_.push_back(v);
  return *this;
}

Props& Props::Blob(CEPROPID id, const std::string& bytes) {
  CEPROPVAL v{id, 0, 0, {}};
  std::string& kept = blobs_.emplace_back(bytes);
  v.val.blob = CEBLOB{static_cast<DWORD>(kept.size()), reinterpret_cast<BYTE*>(kept.data())};
  values_.push_back(v);
  return *this;
}

void StoreTest::SetUp() {
  ASSERT_TRUE(device::EnsureRoot() && cedb::EnsureDeviceVolume()) << cedb::LastFailure();
  CurrentSettings() = Settings{};
  CurrentSettings().path = L"/opt/velmo/bin/velmo-todo";
  Store() = StoreConnection{};
  ASSERT_TRUE(OpenTasksDatabaseHandle(nullptr, false, 0)) << cedb::LastFailure();
}

void StoreTest::TearDown() {
  FreeTaskTable();
  CloseConnection();
  Store() = StoreConnection{};
}

CEOID StoreTest::AddRecord(Props props) {
  auto& values = props.values();
  const CEOID oid = CeWriteRecordProps(Store().tasks_db, 0, static_cast<WORD>(values.size()), values.data());
  EXPECT_NE(oid, 0u) << cedb::LastFailure();
  return oid;
}

Task StoreTest::Read(CEOID oid) {
  Task task;
  EXPECT_TRUE(ReadTaskRecord(&task, oid));
  return task;
}

}  // namespace velmo::testing
