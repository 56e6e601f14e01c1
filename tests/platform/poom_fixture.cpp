#include "tests/platform/poom_fixture.h"

#include <cstdlib>

#include "platform/localmem.h"
#include "platform/oletime.h"

namespace velmo::testing {

void PoomTest::SetUp() {
  ASSERT_EQ(CreatePOutlookApp(&app_), S_OK);
  ASSERT_EQ(app_->Logon(nullptr), S_OK);
  ASSERT_TRUE(CeMountDBVol(&volume_, cedb::kDefaultVolumePath, OPEN_EXISTING));
  CEOID oid = 0;
  db_ = CeOpenDatabaseEx(&volume_, &oid, cedb::kTasksDatabaseName, 0, 0, nullptr);
  ASSERT_NE(db_, INVALID_HANDLE_VALUE);
}

void PoomTest::TearDown() {
  if (db_ != INVALID_HANDLE_VALUE) CeCloseHandle(db_);
  CeUnmountDBVol(&volume_);
  if (app_) {
    app_->Logoff();
    app_->Release();
  }
}

CEOID PoomTest::NewTask(const wchar_t* subject, DATE start, DATE due) {
  ITask* item = Fresh();
  item->put_Subject(subject);
  item->put_StartDate(start);
  item->put_DueDate(due);
  EXPECT_EQ(item->Save(), S_OK);
  const CEOID oid = OidOf(item);
  item->Release();
  return oid;
}

ITask* PoomTest::Item(CEOID oid) {
  ITask* item = nullptr;
  EXPECT_EQ(app_->GetItemFromOid(oid, &item), S_OK) << "record " << oid;
  return item;
}

ITask* PoomTest::Fresh() {
  ITask* item = nullptr;
  EXPECT_EQ(app_->CreateItem(olTaskItem, &item), S_OK);
  if (!item) std::abort();  // nothing else can run without an item
  return item;
}

std::map<CEPROPID, RawProp> PoomTest::Raw(CEOID oid) {
  std::map<CEPROPID, RawProp> out;
  if (CeSeekDatabase(db_, CEDB_SEEK_CEOID, oid, nullptr) != oid) return out;
  BYTE* buffer = nullptr;
  DWORD size = 0;
  WORD count = 0;
  if (CeReadRecordProps(db_, CEDB_ALLOWREALLOC, &count, nullptr, &buffer, &size) == oid) {
    const auto* props = reinterpret_cast<const CEPROPVAL*>(buffer);
    for (WORD i = 0; i < count; ++i) {
      const CEPROPVAL& v = props[i];
      RawProp p;
      p.propid = v.propid;
      switch (TypeFromPropID(v.propid)) {
        case CEVT_I2: p.number = v.val.iVal; break;
        case CEVT_I4: p.number = v.val.lVal; break;
        case CEVT_LPWSTR: p.text = v.val.lpwstr; break;
        case CEVT_BLOB: p.bytes.assign(reinterpret_cast<const char*>(v.val.blob.lpb), v.val.blob.dwCount); break;
        case CEVT_FILETIME: FileTimeToDate(v.val.filetime, &p.date); break;
        default: break;
      }
      out[v.propid] = p;
    }
  }
  LocalFree(buffer);
  return out;
}

CEOID PoomTest::WriteRaw(CEOID oid, std::vector<CEPROPVAL> props) {
  return CeWriteRecordProps(db_, oid, static_cast<WORD>(props.size()), props.data());
}

std::vector<CEOID> PoomTest::Records() {
  std::vector<CEOID> out;
  for (CEOID oid = CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr); oid != 0;
       oid = CeSeekDatabase(db_, CEDB_SEEK_CURRENT, 1, nullptr))
    out.push_back(oid);
  return out;
}

std::wstring TextOf(HRESULT (ITask::*get)(BSTR*), ITask* item) {
  BSTR text = nullptr;
  EXPECT_EQ((item->*get)(&text), S_OK);
  std::wstring out = text ? text : L"";
  SysFreeString(text);
  return out;
}

CEOID OidOf(ITask* item) {
  CEOID oid = 0;
  item->get_Oid(&oid);
  return oid;
}

DATE ReminderOf(ITask* item) {
  DATE reminder = 0;
  item->get_ReminderTime(&reminder);
  return reminder;
}

}  // namespace velmo::testing
