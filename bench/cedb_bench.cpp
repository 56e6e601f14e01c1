// The CE property database: a table load of 2,550 task-like records through the
// platform calls against reading the same rows' bytes with one SQLite
// statement; database information and record writes on a 100,000-record database.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/cedb.h"
#include "platform/device.h"
#include "platform/localmem.h"

namespace {

// A device root of its own, made once per benchmark binary.
const std::filesystem::path& BenchRoot() {
  static const std::filesystem::path root = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-bench-XXXXXX").string();
    std::filesystem::path made = mkdtemp(pattern.data());
    velmo::device::SetRoot(made);
    std::atexit([] { std::filesystem::remove_all(BenchRoot()); });
    return made;
  }();
  return root;
}

FILETIME Ft(std::uint64_t ticks) { return FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)}; }

// The properties of a task as the tasks database holds them, of varied sizes.
class TaskMaker {
 public:
  std::vector<CEPROPVAL> Next() {
    subject_ = L"Call the garage about the winter tyres #" + std::to_wstring(random_() % 100000);
    subject_.resize(20 + random_() % 40, L'x');
    categories_ = (random_() % 3) ? L"Business, Phone" : L"";
    notes_.assign(random_() % 600, 0);
    for (BYTE& b : notes_) b = static_cast<BYTE>('a' + random_() % 26);
    std::uint64_t base = 133000000000000000ull + (random_() % 1000) * 864000000000ull;
    std::vector<CEPROPVAL> props;
    auto add = [&](CEPROPID id, auto set) {
      CEPROPVAL v{};
      v.propid = id;
      set(v.val);
      props.push_back(v);
    };
    add(0x0037001F, [&](CEVALUNION& u) { u.lpwstr = subject_.data(); });
    add(0x00170041, [&](CEVALUNION& u) { u.blob = CEBLOB{static_cast<DWORD>(notes_.size()), notes_.data()}; });
    add(0x4500001F, [&](CEVALUNION& u) { u.lpwstr = categories_.data(); });
    add(0x41040040, [&](CEVALUNION& u) { u.filetime = Ft(base); });
    add(0x41050040, [&](CEVALUNION& u) { u.filetime = Ft(base + 3 * 864000000000ull); });
    add(0x410F0040, [&](CEVALUNION& u) { u.filetime = Ft(0x0B2D9D9D4D6B0000ull); });
    add(0x410F0002, [&](CEVALUNION& u) { u.iVal = 0; });
    add(0x41260002, [&](CEVALUNION& u) { u.iVal = 0; });
    add(0x00260003, [&](CEVALUNION& u) { u.lVal = 2; });
    add(0x00040002, [&](CEVALUNION& u) { u.iVal = 0; });
    add(0x00050002, [&](CEVALUNION& u) { u.iVal = 0; });
    add(0x45030002, [&](CEVALUNION& u) { u.iVal = 1; });
    add(0x45010003, [&](CEVALUNION& u) { u.lVal = 900; });
    add(0x00030002, [&](CEVALUNION& u) { u.iVal = 1; });
    add(0x450A0003, [&](CEVALUNION& u) { u.lVal = -1; });
    add(0x4509001F, [&](CEVALUNION& u) { u.lpwstr = const_cast<wchar_t*>(L"Alarm1.wav"); });
    add(0x00020003, [&](CEVALUNION& u) { u.lVal = 0; });
    return props;
  }

 private:
  std::mt19937 random_{17};
  std::wstring subject_, categories_;
  std::vector<BYTE> notes_;
};

// A mounted volume holding one tasks database of n records.
struct TaskVolume {
  CEGUID guid{};
  CEOID db = 0;
  HANDLE handle = INVALID_HANDLE_VALUE;
  std::string file;

  TaskVolume(const wchar_t* path, int n) {
    BenchRoot();
    CeMountDBVol(&guid, path, CREATE_ALWAYS);
    CEDBASEINFO info{};
    info.dwFlags = CEDB_VALIDNAME;
    std::wcscpy(info.szDbaseName, L"Tasks Database");
    db = CeCreateDatabaseEx(&guid, &info);
    handle = CeOpenDatabaseEx(&guid, &db, nullptr, 0, CEDB_AUTOINCREMENT, nullptr);
    TaskMaker maker;
    velmo::cedb::BeginWriteBatch(&guid);
    for (int i = 0; i < n; ++i) {
      std::vector<CEPROPVAL> props = maker.Next();
      CeWriteRecordProps(handle, 0, static_cast<WORD>(props.size()), props.data());
    }
    velmo::cedb::EndWriteBatch(&guid);
    file = velmo::device::MapPlatformPath(path).string();
  }
};

TaskVolume& Tasks2550() {
  static TaskVolume volume(L"\\IPSM\\bench2550.vol", 2550);
  return volume;
}

TaskVolume& Tasks100k() {
  static TaskVolume volume(L"\\IPSM\\bench100k.vol", 100000);
  return volume;
}

void BM_CedbLoad2550(benchmark::State& state) {
  TaskVolume& v = Tasks2550();
  BYTE* buffer = nullptr;
  DWORD size = 0;
  for (auto _ : state) {
    long sum = 0;
    CeSeekDatabase(v.handle, CEDB_SEEK_BEGINNING, 0, nullptr);
    for (int i = 0; i < 2550; ++i) {
      WORD count = 0;
      if (!CeReadRecordProps(v.handle, CEDB_ALLOWREALLOC, &count, nullptr, &buffer, &size))
        state.SkipWithError("read failed");
      sum += count;
    }
    benchmark::DoNotOptimize(sum);
  }
  LocalFree(buffer);
  state.SetItemsProcessed(state.iterations() * 2550);
}
BENCHMARK(BM_CedbLoad2550)->Unit(benchmark::kMillisecond);

// The floor: the same rows' bytes, one statement, nothing decoded.
void BM_RawSqliteLoad2550(benchmark::State& state) {
  TaskVolume& v = Tasks2550();
  sqlite3* db = nullptr;
  sqlite3_open_v2(v.file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db, "SELECT oid, props FROM records WHERE db=?1 ORDER BY oid", -1, &stmt, nullptr);
  sqlite3_bind_int64(stmt, 1, v.db);
  for (auto _ : state) {
    std::size_t bytes = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      const void* data = sqlite3_column_blob(stmt, 1);
      bytes += static_cast<std::size_t>(sqlite3_column_bytes(stmt, 1)) + (data != nullptr);
    }
    sqlite3_reset(stmt);
    benchmark::DoNotOptimize(bytes);
  }
  sqlite3_finalize(stmt);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * 2550);
}
BENCHMARK(BM_RawSqliteLoad2550)->Unit(benchmark::kMillisecond);

void BM_OidGetInfo100k(benchmark::State& state) {
  TaskVolume& v = Tasks100k();
  CEOIDINFOEX info{};
  for (auto _ : state) {
    CeOidGetInfoEx(&v.guid, v.db, &info);
    benchmark::DoNotOptimize(info.infDatabase.dwNumRecords);
  }
}
BENCHMARK(BM_OidGetInfo100k)->Unit(benchmark::kMicrosecond);

// What an after-synchronisation run does before it finds nothing changed:
// mount, open by name, read the database information, close, unmount.
void BM_MountOpenInfoClose100k(benchmark::State& state) {
  TaskVolume& v = Tasks100k();
  CeCloseHandle(v.handle);
  CeUnmountDBVol(&v.guid);
  for (auto _ : state) {
    CEGUID guid;
    CEOID oid = 0;
    CEOIDINFOEX info{};
    CeMountDBVol(&guid, L"\\IPSM\\bench100k.vol", OPEN_EXISTING);
    HANDLE h = CeOpenDatabaseEx(&guid, &oid, L"Tasks Database", 0, CEDB_AUTOINCREMENT, nullptr);
    CeOidGetInfoEx(&guid, oid, &info);
    benchmark::DoNotOptimize(info.infDatabase.ftLastModified);
    CeCloseHandle(h);
    CeUnmountDBVol(&guid);
  }
  CeMountDBVol(&v.guid, L"\\IPSM\\bench100k.vol", OPEN_EXISTING);
  v.handle = CeOpenDatabaseEx(&v.guid, &v.db, nullptr, 0, CEDB_AUTOINCREMENT, nullptr);
}
BENCHMARK(BM_MountOpenInfoClose100k)->Unit(benchmark::kMicrosecond);

// The two properties of a reminder's direct write: its notification handle and
// its minutes.
CEOID WriteReminder(HANDLE db, CEOID oid, LONG handle) {
  CEPROPVAL props[2] = {};
  props[0].propid = 0x00020003;
  props[0].val.lVal = handle;
  props[1].propid = 0x45010003;
  props[1].val.lVal = 60;
  return CeWriteRecordProps(db, oid, 2, props);
}

// One direct write of two properties (the reminder's handle and minutes) into
// an existing record of the large database.
void BM_WriteTwoProps100k(benchmark::State& state) {
  TaskVolume& v = Tasks100k();
  CEOID first = CeSeekDatabase(v.handle, CEDB_SEEK_BEGINNING, 0, nullptr);
  LONG n = 0;
  for (auto _ : state) {
    ++n;
    if (!WriteReminder(v.handle, first + static_cast<CEOID>(n % 1000), n))
      state.SkipWithError("write failed");
  }
}
BENCHMARK(BM_WriteTwoProps100k)->Unit(benchmark::kMicrosecond);

// The same writes grouped 1,000 to a batch (one transaction).
void BM_BatchedWriteTwoProps100k(benchmark::State& state) {
  TaskVolume& v = Tasks100k();
  CEOID first = CeSeekDatabase(v.handle, CEDB_SEEK_BEGINNING, 0, nullptr);
  LONG n = 0;
  velmo::cedb::BeginWriteBatch(&v.guid);
  for (auto _ : state) {
    ++n;
    if (!WriteReminder(v.handle, first + static_cast<CEOID>(n % 100000), n))
      state.SkipWithError("write failed");
    if (n % 1000 == 0) {
      velmo::cedb::EndWriteBatch(&v.guid);
      velmo::cedb::BeginWriteBatch(&v.guid);
    }
  }
  velmo::cedb::EndWriteBatch(&v.guid);
}
BENCHMARK(BM_BatchedWriteTwoProps100k)->Unit(benchmark::kMicrosecond);

}  // namespace

namespace {

// What the message loop pays on each look at an unchanged database.
void BM_PollChangesUnchanged(benchmark::State& state) {
  TaskVolume& v = Tasks2550();
  CENOTIFYREQUEST request{sizeof(CENOTIFYREQUEST), nullptr, CEDB_EXNOTIFICATION, nullptr, 0};
  CEOID oid = v.db;
  HANDLE watcher = CeOpenDatabaseEx(&v.guid, &oid, nullptr, 0, 0, &request);
  std::vector<velmo::cedb::DbChange> changes;
  for (auto _ : state) {
    velmo::cedb::PollChanges(watcher, &changes);
    benchmark::DoNotOptimize(changes.size());
  }
  CeCloseHandle(watcher);
}
BENCHMARK(BM_PollChangesUnchanged)->Unit(benchmark::kMicrosecond);

}  // namespace
