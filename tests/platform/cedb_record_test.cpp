// Properties in and out of records: every value type, chosen properties, the
// growing read buffer, deletion of properties, large and damaged records.
#include <sqlite3.h>

#include <cstring>
#include <limits>

#include "platform/cedb_in_place.h"
#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {
namespace {

using RecordTest = CedbTest;

// expected_text: what a string reads back as (null: the same text).
struct TypeCase { const char* name; CEPROPVAL value; const wchar_t* expected_text; };

CEPROPVAL Value(WORD type, void (*set)(CEVALUNION*)) {
  CEPROPVAL v{};
  v.propid = PROPID(0, type);
  set(&v.val);
  return v;
}

std::vector<BYTE> g_blob_bytes = {0, 1, 0, 255, 13, 10, 0, 0};
wchar_t g_lone_surrogate[] = {L'a', static_cast<wchar_t>(0xD800), L'b', 0};

std::vector<TypeCase> TypeCases() {
  return {
      {"I2 minimum", Value(CEVT_I2, [](CEVALUNION* u) { u->iVal = -32768; }), nullptr},
      {"UI2 maximum", Value(CEVT_UI2, [](CEVALUNION* u) { u->uiVal = 65535; }), nullptr},
      {"I4 minimum", Value(CEVT_I4, [](CEVALUNION* u) { u->lVal = std::numeric_limits<LONG>::min(); }), nullptr},
      {"UI4 maximum", Value(CEVT_UI4, [](CEVALUNION* u) { u->ulVal = 0xFFFFFFFFu; }), nullptr},
      {"BOOL", Value(CEVT_BOOL, [](CEVALUNION* u) { u->boolVal = TRUE; }), nullptr},
      {"R8", Value(CEVT_R8, [](CEVALUNION* u) { u->dblVal = -1.25e300; }), nullptr},
      {"FILETIME", Value(CEVT_FILETIME, [](CEVALUNION* u) { u->filetime = {0xFFFFFFFFu, 0x7FFFFFFFu}; }), nullptr},
      {"empty string", Value(CEVT_LPWSTR, [](CEVALUNION* u) { u->lpwstr = const_cast<wchar_t*>(L""); }), nullptr},
      {"string beyond the basic plane",
       Value(CEVT_LPWSTR, [](CEVALUNION* u) { u->lpwstr = const_cast<wchar_t*>(L"Gr\u00FC\u00DFe \U0001F600 \U0010FFFF"); }),
       nullptr},
      {"lone surrogate", Value(CEVT_LPWSTR, [](CEVALUNION* u) { u->lpwstr = g_lone_surrogate; }), L"a\uFFFDb"},
      {"empty blob", Value(CEVT_BLOB, [](CEVALUNION* u) { u->blob = CEBLOB{0, nullptr}; }), nullptr},
      {"blob with zero bytes",
       Value(CEVT_BLOB, [](CEVALUNION* u) { u->blob = CEBLOB{static_cast<DWORD>(g_blob_bytes.size()), g_blob_bytes.data()}; }),
       nullptr},
  };
}

void ExpectSameValue(const TypeCase& c, const CEPROPVAL& got) {
  const CEVALUNION& want = c.value.val;
  EXPECT_EQ(got.propid, c.value.propid);
  EXPECT_EQ(got.wFlags, 0);
  switch (TypeFromPropID(got.propid)) {
    case CEVT_I2: EXPECT_EQ(got.val.iVal, want.iVal); break;
    case CEVT_UI2: EXPECT_EQ(got.val.uiVal, want.uiVal); break;
    case CEVT_I4: EXPECT_EQ(got.val.lVal, want.lVal); break;
    case CEVT_UI4: EXPECT_EQ(got.val.ulVal, want.ulVal); break;
    case CEVT_BOOL: EXPECT_EQ(got.val.boolVal, want.boolVal); break;
    case CEVT_R8: EXPECT_EQ(got.val.dblVal, want.dblVal); break;
    case CEVT_FILETIME:
      EXPECT_EQ(got.val.filetime.dwLowDateTime, want.filetime.dwLowDateTime);
      EXPECT_EQ(got.val.filetime.dwHighDateTime, want.filetime.dwHighDateTime);
      break;
    case CEVT_LPWSTR:
      ASSERT_NE(got.val.lpwstr, nullptr);
      EXPECT_EQ(std::wstring(got.val.lpwstr), std::wstring(c.expected_text ? c.expected_text : want.lpwstr));
      break;
    case CEVT_BLOB:
      ASSERT_EQ(got.val.blob.dwCount, want.blob.dwCount);
      if (want.blob.dwCount) {
        EXPECT_EQ(std::memcmp(got.val.blob.lpb, want.blob.lpb, want.blob.dwCount), 0);
      }
      EXPECT_EQ(got.val.blob.lpb[want.blob.dwCount], 0) << "a zero byte follows the blob";
      break;
    default: ADD_FAILURE() << "unexpected type";
  }
}

class EveryTypeTest : public RecordTest {
 protected:
  // One record with every case, each under its own identifier.
  CEOID WriteEveryType(std::vector<TypeCase>* cases) {
    std::vector<CEPROPVAL> values;
    for (size_t i = 0; i < cases->size(); ++i) {
      (*cases)[i].value.propid |= static_cast<CEPROPID>(i + 1) << 16;
      values.push_back((*cases)[i].value);
    }
    return Write(0, values);
  }
};

TEST_F(EveryTypeTest, ReadsBackAsWritten) {
  std::vector<TypeCase> cases = TypeCases();
  CEOID oid = WriteEveryType(&cases);
  ASSERT_NE(oid, 0u);
  // Seeking to the record and the first record of a fresh handle: both read it.
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_CEOID, oid, nullptr), oid);
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(Read(&props), oid);
  ASSERT_EQ(props.size(), cases.size());
  for (size_t i = 0; i < cases.size(); ++i) {
    SCOPED_TRACE(cases[i].name);
    ExpectSameValue(cases[i], props[i]);
  }
}

// A property read in place as the read buffer would hold it: texts and blobs
// copied into `room` (a blob with a zero byte after it).
CEPROPVAL FromStored(const velmo::cedb::StoredProp& p, std::vector<std::wstring>* room) {
  CEPROPVAL v{};
  v.propid = p.propid;
  switch (TypeFromPropID(p.propid)) {
    case CEVT_LPWSTR:
      velmo::cedb::AssignText(p, &room->emplace_back());
      v.val.lpwstr = room->back().data();
      break;
    case CEVT_BLOB: {
      std::wstring& bytes = room->emplace_back(p.size / sizeof(wchar_t) + 1, L'\0');
      std::memcpy(bytes.data(), p.data, p.size);
      v.val.blob = CEBLOB{p.size, reinterpret_cast<BYTE*>(bytes.data())};
      break;
    }
    default: std::memcpy(&v.val, p.data, p.size); break;
  }
  return v;
}

TEST_F(EveryTypeTest, ReadsBackInPlaceAsWritten) {
  std::vector<TypeCase> cases = TypeCases();
  CEOID oid = WriteEveryType(&cases);
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr), oid);
  velmo::cedb::StoredRecord record;
  ASSERT_EQ(velmo::cedb::ReadRecordInPlace(db_, &record), oid);
  std::vector<std::wstring> room;
  room.reserve(cases.size());
  velmo::cedb::StoredProp prop;
  for (const TypeCase& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_TRUE(record.Next(&prop));
    ExpectSameValue(c, FromStored(prop, &room));
  }
  EXPECT_FALSE(record.Next(&prop));
  EXPECT_EQ(velmo::cedb::ReadRecordInPlace(db_, &record), 0u) << "the handle moved on";
  EXPECT_EQ(GetLastError(), ERROR_NO_MORE_ITEMS);
}

TEST_F(RecordTest, ChangesReplaceInPlaceAddAtTheEndAndDelete) {
  CEOID oid = Write(0, {PropI2(1, 10), PropString(2, L"subject"), PropI4(3, 30)});
  ASSERT_EQ(Write(oid, {PropString(2, L"changed"), PropI4(4, 40), PropDelete(PROPID(1, CEVT_I2)),
                        PropDelete(PROPID(9, CEVT_I2))}), oid);
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_CEOID, oid, nullptr), oid);
  ASSERT_EQ(Read(&props), oid);
  ASSERT_EQ(props.size(), 3u);
  EXPECT_EQ(props[0].propid, PROPID(2, CEVT_LPWSTR));
  EXPECT_STREQ(props[0].val.lpwstr, L"changed");
  EXPECT_EQ(props[1].propid, PROPID(3, CEVT_I4));
  EXPECT_EQ(props[2].propid, PROPID(4, CEVT_I4));
  EXPECT_EQ(props[2].val.lVal, 40);
}

TEST_F(RecordTest, ChosenPropertiesComeInTheAskedOrderWithMissingOnesFlagged) {
  CEOID oid = Write(0, {PropI2(1, 7), PropString(2, L"x")});
  std::vector<CEPROPVAL> props;
  // 0x0001 asked with another type is a different property.
  std::vector<CEPROPID> ids = {PROPID(2, CEVT_LPWSTR), PROPID(5, CEVT_I4), PROPID(1, CEVT_I4),
                               PROPID(1, CEVT_I2)};
  ASSERT_EQ(Read(&props, ids), oid);
  ASSERT_EQ(props.size(), 4u);
  EXPECT_STREQ(props[0].val.lpwstr, L"x");
  for (int i : {1, 2}) {
    EXPECT_EQ(props[i].propid, ids[i]);
    EXPECT_EQ(props[i].wFlags, CEDB_PROPNOTFOUND);
  }
  EXPECT_EQ(props[3].wFlags, 0);
  EXPECT_EQ(props[3].val.iVal, 7);
}

TEST_F(RecordTest, AllowReallocGrowsTheCallersBuffer) {
  std::vector<BYTE> big(100000, 0xAB);
  CEOID small = Write(0, {PropI2(1, 1)});
  CEOID large = Write(0, {PropBlob(1, &big)});
  buffer_ = static_cast<BYTE*>(LocalAlloc(LMEM_FIXED, 4));
  buffer_size_ = 4;
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(Read(&props), small);
  DWORD after_small = buffer_size_;
  EXPECT_GE(after_small, sizeof(CEPROPVAL));
  ASSERT_EQ(Read(&props), large);
  EXPECT_GT(buffer_size_, big.size());
  EXPECT_EQ(props[0].val.blob.dwCount, big.size());
  EXPECT_EQ(props[0].val.blob.lpb[99999], 0xAB);
  // A smaller record fits in the grown buffer, which stays as it is.
  DWORD grown = buffer_size_;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr), small);
  ASSERT_EQ(Read(&props), small);
  EXPECT_EQ(buffer_size_, grown);
}

TEST_F(RecordTest, WithoutReallocATooSmallBufferReportsTheSizeAndDoesNotMoveOn) {
  CEOID first = Write(0, {PropString(1, L"a string longer than the buffer")});
  BYTE small[16];
  BYTE* buffer = small;
  DWORD size = sizeof small;
  WORD count = 0;
  EXPECT_EQ(CeReadRecordProps(db_, 0, &count, nullptr, &buffer, &size), 0u);
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  EXPECT_GT(size, sizeof small);
  std::vector<BYTE> enough(size);
  buffer = enough.data();
  EXPECT_EQ(CeReadRecordProps(db_, 0, &count, nullptr, &buffer, &size), first);
  EXPECT_STREQ(reinterpret_cast<CEPROPVAL*>(buffer)->val.lpwstr, L"a string longer than the buffer");
}

TEST_F(RecordTest, AOneMegabyteBlobRoundTrips) {
  std::vector<BYTE> blob(1 << 20);
  for (size_t i = 0; i < blob.size(); ++i) blob[i] = static_cast<BYTE>(i * 7);
  CEOID oid = Write(0, {PropString(1, L"before"), PropBlob(2, &blob), PropI2(3, 3)});
  ASSERT_NE(oid, 0u);
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(Read(&props), oid);
  ASSERT_EQ(props.size(), 3u);
  ASSERT_EQ(props[1].val.blob.dwCount, blob.size());
  EXPECT_EQ(std::memcmp(props[1].val.blob.lpb, blob.data(), blob.size()), 0);
  EXPECT_EQ(props[1].val.blob.lpb[blob.size()], 0);
  EXPECT_EQ(props[2].val.iVal, 3);
  EXPECT_EQ(Info().dwSize, blob.size() + 2 * 6 + 2 + 3 * 8);
}

TEST_F(RecordTest, BadWritesChangeNothing) {
  CEOID oid = Write(0, {PropI2(1, 1)});
  CEPROPVAL unknown_type{};
  unknown_type.propid = PROPID(2, 0x77);
  CEPROPVAL null_string = PropString(3, nullptr);
  struct Case { const char* name; CEOID target; CEPROPVAL value; } cases[] = {
      {"unknown type", oid, unknown_type},
      {"null string", oid, null_string},
      {"record of no database", 0x7FFFFFF0, PropI2(1, 2)},
      {"new record with an unknown type", 0, unknown_type},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Write(c.target, {PropI2(1, 99), c.value}), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  }
  EXPECT_EQ(Walk(), std::vector<CEOID>{oid});
  std::vector<CEPROPVAL> props;
  CeSeekDatabase(db_, CEDB_SEEK_CEOID, oid, nullptr);
  ASSERT_EQ(Read(&props), oid);
  EXPECT_EQ(props.size(), 1u);
  EXPECT_EQ(props[0].val.iVal, 1);
}

TEST_F(RecordTest, ADamagedRecordFailsAndTheWalkGoesOn) {
  CEOID first = Write(0, {PropI2(1, 1)});
  CEOID damaged = Write(0, {PropI2(1, 2)});
  CEOID last = Write(0, {PropI2(1, 3)});
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(VolumeFile().c_str(), &raw), SQLITE_OK);
  std::string sql = "UPDATE records SET props=x'01020304FFFFFF' WHERE oid=" + std::to_string(damaged);
  ASSERT_EQ(sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(raw);

  std::vector<CEPROPVAL> props;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr), first);
  EXPECT_EQ(Read(&props), first);
  EXPECT_EQ(Read(&props), 0u);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_DATA);
  EXPECT_NE(velmo::cedb::LastFailure().find("damaged"), std::string::npos);
  EXPECT_EQ(Read(&props), last);
  // Read in place, the damage shows when the record is stepped through.
  velmo::cedb::StoredRecord record;
  velmo::cedb::StoredProp prop;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr), first);
  EXPECT_EQ(velmo::cedb::ReadRecordInPlace(db_, &record), first);
  EXPECT_TRUE(record.Next(&prop) && !record.Next(&prop) && !record.damaged());
  EXPECT_EQ(velmo::cedb::ReadRecordInPlace(db_, &record), damaged);
  EXPECT_FALSE(record.Next(&prop));
  EXPECT_TRUE(record.damaged());
  EXPECT_EQ(velmo::cedb::ReadRecordInPlace(db_, &record), last);
  // Writing into it is refused rather than overwriting what is left.
  EXPECT_EQ(Write(damaged, {PropI2(1, 5)}), 0u);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_DATA);
}

// Keeps what each visit was given: the identifier and the first property's
// 16-bit value, -1 for a damaged record.
struct VisitRecorder : velmo::cedb::RecordVisitor {
  void Visit(const velmo::cedb::InPlaceRecord& record) override {
    velmo::cedb::StoredRecord props = record.props;
    velmo::cedb::StoredProp first{};
    const bool has_first = props.Next(&first);
    seen.emplace_back(record.oid, has_first ? velmo::cedb::Int16Of(first) : -1);
    EXPECT_EQ(props.damaged(), !has_first);
  }
  std::vector<std::pair<CEOID, int>> seen;
};

TEST_F(RecordTest, AVisitHandsOverRecordsFromThePositionAndMovesPastThem) {
  std::vector<CEOID> oids;
  for (SHORT i = 1; i <= 5; ++i) oids.push_back(Write(0, {PropI2(1, i)}));
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(VolumeFile().c_str(), &raw), SQLITE_OK);
  std::string sql = "UPDATE records SET props=x'0200010004000000' WHERE oid=" + std::to_string(oids[2]);
  ASSERT_EQ(sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(raw);

  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 1, nullptr), oids[1]);
  VisitRecorder visits;
  EXPECT_EQ(velmo::cedb::VisitRecordsInPlace(db_, 3, &visits), 3u);
  EXPECT_EQ(visits.seen, (std::vector<std::pair<CEOID, int>>{{oids[1], 2}, {oids[2], -1}, {oids[3], 4}}));
  std::vector<CEPROPVAL> props;
  EXPECT_EQ(Read(&props), oids[4]) << "the visit moved the handle past its last record";
  visits.seen.clear();
  EXPECT_EQ(velmo::cedb::VisitRecordsInPlace(db_, 10, &visits), 0u);
  EXPECT_EQ(GetLastError(), ERROR_NO_MORE_ITEMS);
  EXPECT_TRUE(visits.seen.empty());
}

}  // namespace
}  // namespace velmo::testing
