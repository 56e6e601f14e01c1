#include "tests/platform/cedb_fixture.h"

#include <cwchar>

#include "platform/device.h"

namespace velmo::testing {

CEPROPVAL RawI2(CEPROPID id, SHORT value) { CEPROPVAL v{id, 0, 0, {}}; v.val.iVal = value; return v; }
CEPROPVAL RawI4(CEPROPID id, LONG value) { CEPROPVAL v{id, 0, 0, {}}; v.val.lVal = value; return v; }
CEPROPVAL RawText(CEPROPID id, const wchar_t* text) {
  CEPROPVAL v{id, 0, 0, {}};
  v.val.lpwstr = const_cast<wchar_t*>(text);
  return v;
}

CEPROPVAL PropBlob(WORD id, std::vector<BYTE>* bytes) {
  CEPROPVAL v{PROPID(id, CEVT_BLOB), 0, 0, {}};
  v.val.blob = CEBLOB{static_cast<DWORD>(bytes->size()), bytes->data()};
  return v;
}

CEPROPVAL PropDelete(CEPROPID propid) { return CEPROPVAL{propid, 0, CEDB_PROPDELETE, {}}; }

void CedbTest::SetUp() {
  ASSERT_TRUE(CeMountDBVol(&volume_, kTestVolume, OPEN_ALWAYS)) << velmo::cedb::LastFailure();
  db_oid_ = CreateDatabase(L"Tasks Database");
  ASSERT_NE(db_oid_, 0u);
  db_ = OpenDatabase(L"Tasks Database");
  ASSERT_NE(db_, INVALID_HANDLE_VALUE);
}

void CedbTest::TearDown() {
  LocalFree(buffer_);
  if (db_ != INVALID_HANDLE_VALUE) CeCloseHandle(db_);
  CeUnmountDBVol(&volume_);
}

CEOID CedbTest::CreateDatabase(const wchar_t* name) {
  CEDBASEINFO info{};
  info.dwFlags = CEDB_VALIDNAME;
  std::wcsncpy(info.szDbaseName, name, CEDB_MAXDBASENAMELEN - 1);
  return CeCreateDatabaseEx(&volume_, &info);
}

HANDLE CedbTest::OpenDatabase(const wchar_t* name, DWORD flags, CENOTIFYREQUEST* request) {
  CEOID oid = 0;
  return CeOpenDatabaseEx(&volume_, &oid, name, 0, flags, request);
}

CEOID CedbTest::Write(CEOID oid, std::vector<CEPROPVAL> props, HANDLE db) {
  return CeWriteRecordProps(db ? db : db_, oid, static_cast<WORD>(props.size()), props.data());
}

CEOID CedbTest::Read(std::vector<CEPROPVAL>* props, std::vector<CEPROPID> ids, HANDLE db) {
  WORD count = static_cast<WORD>(ids.size());
  CEOID oid = CeReadRecordProps(db ? db : db_, CEDB_ALLOWREALLOC, &count,
                                ids.empty() ? nullptr : ids.data(), &buffer_, &buffer_size_);
  props->clear();
  if (oid) {
    auto* values = reinterpret_cast<CEPROPVAL*>(buffer_);
    props->assign(values, values + count);
  }
  return oid;
}

std::vector<CEOID> CedbTest::Walk(HANDLE db) {
  std::vector<CEOID> oids;
  std::vector<CEPROPVAL> props;
  if (!CeSeekDatabase(db ? db : db_, CEDB_SEEK_BEGINNING, 0, nullptr)) return oids;
  while (CEOID oid = Read(&props, {}, db)) oids.push_back(oid);
  EXPECT_EQ(GetLastError(), ERROR_NO_MORE_ITEMS);
  return oids;
}

CEDBASEINFOEX CedbTest::Info(CEOID oid) {
  CEOIDINFOEX info{};
  EXPECT_TRUE(CeOidGetInfoEx(&volume_, oid ? oid : db_oid_, &info));
  EXPECT_EQ(info.wObjType, OBJTYPE_DATABASE);
  return info.infDatabase;
}

std::string CedbTest::VolumeFile() const { return device::MapPlatformPath(kTestVolume).string(); }

}  // namespace velmo::testing
