#include "platform/cedb_objects.h"

#include <pthread.h>
#include <unistd.h>

#include <map>
#include <system_error>

#include "platform/cedb_failure.h"
#include "platform/device.h"
#include "platform/wstr.h"

namespace velmo::cedb {
namespace {

constexpr DWORD kGuidMark = 0x43454442;  // "CEDB"

struct Mount {
  std::shared_ptr<Volume> volume;
  std::string file;
  int count = 0;
};

// Everything this process has open. A child made by fork() must not use its
// parent's connections: it starts with empty tables (the inherited ones are
// left alone, never closed, so the parent's locks are not disturbed).
struct State {
  pid_t pid = getpid();
  std::map<DWORD, Mount> mounts;
  DWORD next_mount = 1;
  std::map<std::uintptr_t, std::unique_ptr<DbHandle>> handles;
  std::uintptr_t next_handle = 0x10000;
  State* inherited = nullptr;  // the parent's, kept reachable but never used
};

std::mutex g_lock;
State* g_state = new State;
[[maybe_unused]] const int g_fork_handler =
    pthread_atfork(nullptr, nullptr, [] { g_state = new State{.inherited = g_state}; });

State& Current() { return *g_state; }

std::string FileKey(const std::filesystem::path& file) {
  std::error_code ec;
  auto canonical = std::filesystem::weakly_canonical(file, ec);
  return (ec ? file : canonical).string();
}

}  // namespace

std::unique_lock<std::mutex> LockDatabases() { return std::unique_lock<std::mutex>(g_lock); }

bool MountVolume(const std::wstring& path, DWORD disposition, CEGUID* guid) {
  State& state = Current();
  std::filesystem::path file = device::MapPlatformPath(path);
  std::string key = FileKey(file);
  for (auto& [id, mount] : state.mounts) {
    if (mount.file != key) continue;
    if (disposition == CREATE_NEW) {
      SetFailure(ERROR_ALREADY_EXISTS, "The database volume " + file.string() + " already exists.");
      return false;
    }
    if (disposition == CREATE_ALWAYS && !mount.volume->RemoveAllDatabases()) return false;
    ++mount.count;
    *guid = CEGUID{id, kGuidMark, static_cast<DWORD>(state.pid), 0};
    return true;
  }
  std::shared_ptr<Volume> volume = Volume::Open(file, disposition);
  if (!volume) return false;
  DWORD id = state.next_mount++;
  state.mounts[id] = Mount{std::move(volume), key, 1};
  *guid = CEGUID{id, kGuidMark, static_cast<DWORD>(state.pid), 0};
  return true;
}

bool UnmountVolume(const CEGUID* guid) {
  if (!FindVolume(guid)) return false;
  State& state = Current();
  auto mount = state.mounts.find(guid->Data1);
  if (--mount->second.count == 0) state.mounts.erase(mount);
  return true;
}

std::shared_ptr<Volume> FindVolume(const CEGUID* guid) {
  State& state = Current();
  if (guid && guid->Data2 == kGuidMark && guid->Data3 == static_cast<DWORD>(state.pid)) {
    auto mount = state.mounts.find(guid->Data1);
    if (mount != state.mounts.end()) return mount->second.volume;
  }
  SetFailure(ERROR_INVALID_PARAMETER, guid && CHECK_INVALIDGUID(guid)
                                          ? "The database volume is not mounted."
                                          : "Unknown database volume identifier.");
  return nullptr;
}

HANDLE AddHandle(std::unique_ptr<DbHandle> handle) {
  State& state = Current();
  std::uintptr_t value = state.next_handle++;
  state.handles[value] = std::move(handle);
  return reinterpret_cast<HANDLE>(value);
}

DbHandle* FindHandle(HANDLE handle) {
  State& state = Current();
  auto found = state.handles.find(reinterpret_cast<std::uintptr_t>(handle));
  if (found != state.handles.end()) return found->second.get();
  SetFailure(ERROR_INVALID_HANDLE, "Not an open database handle.");
  return nullptr;
}

bool RemoveHandle(HANDLE handle) {
  if (!FindHandle(handle)) return false;
  Current().handles.erase(reinterpret_cast<std::uintptr_t>(handle));
  return true;
}

std::vector<HANDLE> HandlesWithRequests() {
  std::vector<HANDLE> out;
  for (auto& [value, handle] : Current().handles)
    if (handle->notify) out.push_back(reinterpret_cast<HANDLE>(value));
  return out;
}

}  // namespace velmo::cedb
