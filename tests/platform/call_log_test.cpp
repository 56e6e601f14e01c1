// The phone's call history read from GNOME Calls' records.db: newest first,
// kinds from the stamps, bounded, never written, and no call history at all
// from a missing, foreign or damaged file.
#include "platform/call_log.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/platform/call_records.h"

namespace velmo::testing {
namespace {

class CallLogTest : public DeviceTest {
 protected:
  PhoneEnvironment phone_{root()};
};

TEST_F(CallLogTest, NewestFirstWithTheirKindsAndTheFileUntouched) {
  phone_.WriteRecords(kFourCalls);
  const std::string before = ReadFileBytes(phone_.RecordsPath());
  const std::vector<CallRecord> calls = ReadCallLog();
  struct Want { const wchar_t* number; CallKind kind; WORD day, hour, minute, second; };
  const Want want[] = {
      {L"112", CallKind::kMissed, 22, 7, 0, 0},
      {L"0301234567", CallKind::kOutgoing, 21, 18, 30, 5},  // "tel:" taken off
      {L"+49 151 23456789", CallKind::kIncoming, 20, 9, 15, 0},
      {L"0170999", CallKind::kMissed, 19, 10, 0, 0},  // answered at the epoch: never
  };
  ASSERT_EQ(calls.size(), std::size(want));  // no withheld number, no call without a start
  for (size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i].number, want[i].number) << i;
    EXPECT_EQ(calls[i].kind, want[i].kind) << i;
    const SYSTEMTIME& st = calls[i].start;
    EXPECT_EQ(std::vector<WORD>({st.wYear, st.wMonth, st.wDay, st.wHour, st.wMinute, st.wSecond}),
              std::vector<WORD>({2026, 11, want[i].day, want[i].hour, want[i].minute, want[i].second}))
        << i;
  }
  EXPECT_TRUE(CallLogHasEntries());
  EXPECT_EQ(ReadFileBytes(phone_.RecordsPath()), before);
  for (const char* side : {"-journal", "-wal", "-shm"})
    EXPECT_FALSE(std::filesystem::exists(phone_.RecordsPath().string() + side)) << side;
}

TEST_F(CallLogTest, OnlyTheNewestCallsAreRead) {
  std::string sql = "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 249)"
                    " INSERT INTO calls (target, inbound, start, answered) SELECT 'n' || i, 0,"
                    " strftime('%Y-%m-%dT%H:%M:%SZ', '2026-01-01', '+' || i || ' hours'), NULL FROM n;";
  phone_.WriteRecords(sql);
  const std::vector<CallRecord> calls = ReadCallLog();
  ASSERT_EQ(calls.size(), kMaxCallRecords);
  EXPECT_EQ(calls.front().number, L"n249");
  EXPECT_EQ(calls.back().number, L"n50");
}

TEST_F(CallLogTest, MissingForeignOrDamagedFilesAreNoCallHistory) {
  struct Case { const char* name; std::function<void()> make; };
  const auto damage = [this](size_t keep, char fill) {
    phone_.WriteRecords(std::string(kFourCalls) + std::string(kFourCalls) + std::string(kFourCalls));
    std::string bytes = ReadFileBytes(phone_.RecordsPath());
    ASSERT_GT(bytes.size(), keep);
    for (size_t i = keep; i < bytes.size(); ++i) bytes[i] = fill;
    WriteFileBytes(phone_.RecordsPath(), bytes);
  };
  const Case cases[] = {
      {"another program's calls table",
       [this] { phone_.WriteRecords("INSERT INTO calls VALUES (1, '112');", "CREATE TABLE calls (id INTEGER, who TEXT);"); }},
      {"not a database", [this] { WriteFileBytes(phone_.RecordsPath(), std::string(4096, 'x')); }},
      {"pages after the first overwritten", [&] { damage(4096, '\xff'); }},
      {"header only", [this] { WriteFileBytes(phone_.RecordsPath(), "SQLite format 3"); }},
      {"missing", [] {}},
  };
  for (const Case& c : cases) {
    std::filesystem::remove_all(phone_.RecordsPath().parent_path());
    c.make();
    EXPECT_TRUE(ReadCallLog().empty()) << c.name;
    EXPECT_FALSE(CallLogHasEntries()) << c.name;
  }
  EXPECT_FALSE(std::filesystem::exists(phone_.RecordsPath()));  // the last one: reading made nothing
}

}  // namespace
}  // namespace velmo::testing
