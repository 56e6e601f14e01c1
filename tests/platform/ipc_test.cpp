#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/device.h"
#include "platform/ipc.h"
#include "platform/ipc_wire.h"
#include "platform/lasterror.h"
#include "tests/support/temp_root.h"

namespace velmo::ipc {
namespace {

constexpr const wchar_t* kClass = L"Velmo ToDo List";
constexpr const wchar_t* kMutexName = L"_VELMO_TODO_MUTEX_";

// A socket connected to the path, or -1.
int ConnectTo(const std::string& path) {
  const int fd = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strcpy(address.sun_path, path.c_str());
  return connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 ? fd : -1;
}

// Every test gets a fresh device root and its own runtime folder, and collects
// what the channel logs.
class IpcTest : public testing::DeviceTest {
 protected:
  void SetUp() override {
    runtime_ = root().string() + "/run";
    mkdir(runtime_.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", runtime_.c_str(), 1);
    SetLogSink([this](const std::string& line) { log_ += line + "\n"; });
  }
  void TearDown() override {
    SetLogSink(nullptr);
    unsetenv("XDG_RUNTIME_DIR");
  }

  // Connects a raw socket to the listener, sends bytes and closes.
  void SendRaw(const Listener& listener, const std::vector<BYTE>& bytes) {
    const int fd = ConnectTo(listener.socket_path());
    ASSERT_GE(fd, 0);
    ASSERT_EQ(send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
    close(fd);
  }

  // A message: the header, then payload bytes.
  static std::vector<BYTE> frame(wire::Header h, size_t payload) {
    const wire::HeaderBytes raw = wire::Encode(h);
    std::vector<BYTE> bytes(raw.begin(), raw.end());
    bytes.resize(bytes.size() + payload, 'x');
    return bytes;
  }

  std::string runtime_;
  std::string log_;
};

TEST_F(IpcTest, MutexExistsWhileAnotherProcessHoldsIt) {
  int ready[2], release[2];
  ASSERT_EQ(pipe(ready), 0);
  ASSERT_EQ(pipe(release), 0);
  const pid_t child = fork();
  if (child == 0) {
    HANDLE mine = CreateMutexW(nullptr, FALSE, kMutexName);
    const char status = mine && GetLastError() == ERROR_SUCCESS ? 'y' : 'n';
    (void)!write(ready[1], &status, 1);
    char c;
    (void)!read(release[0], &c, 1);
    _exit(0);
  }
  char status = 0;
  ASSERT_EQ(read(ready[0], &status, 1), 1);
  EXPECT_EQ(status, 'y');

  HANDLE second = CreateMutexW(nullptr, FALSE, kMutexName);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
  EXPECT_TRUE(CloseHandle(second));

  // Once the holder has ended, the next creator is first again.
  (void)!write(release[1], "x", 1);
  int wstatus = 0;
  waitpid(child, &wstatus, 0);
  HANDLE third = CreateMutexW(nullptr, FALSE, kMutexName);
  ASSERT_NE(third, nullptr);
  EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
  EXPECT_TRUE(CloseHandle(third));
  for (int fd : {ready[0], ready[1], release[0], release[1]}) close(fd);
}

TEST_F(IpcTest, MutexHandlesInOneProcess) {
  HANDLE first = CreateMutexW(nullptr, FALSE, kMutexName);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
  // An existing mutex grants no initial ownership; one not waited on is not owned.
  HANDLE again = CreateMutexW(nullptr, TRUE, kMutexName);
  EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
  EXPECT_FALSE(ReleaseMutex(again));
  EXPECT_EQ(GetLastError(), ERROR_NOT_OWNER);
  HANDLE other = CreateMutexW(nullptr, TRUE, L"another");
  EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
  EXPECT_TRUE(ReleaseMutex(other));
  for (HANDLE h : {again, other, first}) EXPECT_TRUE(CloseHandle(h));
  EXPECT_FALSE(CloseHandle(first));
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
  // Closing the first handle ends the mutex.
  HANDLE fresh = CreateMutexW(nullptr, FALSE, kMutexName);
  EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
  CloseHandle(fresh);
}

TEST_F(IpcTest, FilesAreOnlyTheUsersAndPerRoot) {
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  struct stat st;
  ASSERT_EQ(stat(listener.socket_path().c_str(), &st), 0);
  EXPECT_TRUE(S_ISSOCK(st.st_mode));
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  ASSERT_EQ(stat(RuntimeDirectory().c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0700u);
  EXPECT_EQ(RuntimeDirectory(), runtime_ + "/velmo-todo");

  // Another root has other files; the same root reached through a symbolic link
  // has the same ones.
  const std::string here = WindowSocketPath(kClass);
  std::filesystem::create_symlink(root(), root().string() + "-link");
  device::SetRoot(root().string() + "-link");
  EXPECT_EQ(WindowSocketPath(kClass), here);
  device::SetRoot(root() / "other");
  EXPECT_NE(WindowSocketPath(kClass), here);
  EXPECT_NE(MutexLockPath(kMutexName), here);
  device::SetRoot(root());
  std::filesystem::remove(root().string() + "-link");
}

TEST_F(IpcTest, RuntimeFolderOpenToOthersIsClosedOrRefused) {
  mkdir((runtime_ + "/velmo-todo").c_str(), 0777);
  chmod((runtime_ + "/velmo-todo").c_str(), 0777);
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  struct stat st;
  ASSERT_EQ(stat(RuntimeDirectory().c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0700u);
  listener.Close();
  if (geteuid() != 0) GTEST_SKIP() << "needs root to hand the folder to another user";
  ASSERT_EQ(chown(RuntimeDirectory().c_str(), 65534, 65534), 0);
  EXPECT_FALSE(listener.Open(kClass));
  EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
  EXPECT_EQ(CreateMutexW(nullptr, FALSE, kMutexName), nullptr);
  EXPECT_NE(log_.find("not a folder of this user"), std::string::npos) << log_;
}

// Without a runtime folder of the session, the shared temporary folder's name
// may have been taken by another user first: the user's own cache folder
// serves instead, and the program still starts.
TEST_F(IpcTest, AFolderNameTakenByAnotherUserIsAvoided) {
  if (geteuid() != 0) GTEST_SKIP() << "needs root to make a folder of another user";
  unsetenv("XDG_RUNTIME_DIR");
  const std::string tmp = root().string() + "/tmp", home = root().string() + "/home";
  const char* old_home = std::getenv("HOME");
  const std::string kept_home = old_home ? old_home : "";
  mkdir(tmp.c_str(), 0777);
  setenv("TMPDIR", tmp.c_str(), 1);
  setenv("HOME", home.c_str(), 1);
  unsetenv("XDG_CACHE_HOME");
  const std::string taken = tmp + "/velmo-" + std::to_string(geteuid());
  EXPECT_EQ(RuntimeDirectory(), taken);
  mkdir(taken.c_str(), 0777);
  ASSERT_EQ(chown(taken.c_str(), 65534, 65534), 0);
  EXPECT_EQ(RuntimeDirectory(), home + "/.cache/velmo-todo/run");
  HANDLE mutex = CreateMutexW(nullptr, FALSE, kMutexName);
  EXPECT_NE(mutex, nullptr) << log_;
  struct stat st;
  ASSERT_EQ(stat(RuntimeDirectory().c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0700u);
  CloseHandle(mutex);
  unsetenv("TMPDIR");
  setenv("HOME", kept_home.c_str(), 1);
}

TEST_F(IpcTest, FindWindowAnswersOnlyWhileAnInstanceListens) {
  EXPECT_EQ(FindWindowW(kClass, nullptr), nullptr);
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  HWND window = FindWindowW(kClass, nullptr);
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(IsRemoteWindow(window));
  EXPECT_TRUE(SetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) | 1)));
  EXPECT_EQ(FindWindowW(L"tray", L"tray"), nullptr);
  EXPECT_EQ(FindWindowW(L"tray", nullptr), nullptr);
  EXPECT_EQ(FindWindowW(kClass, L"some title"), nullptr);
  EXPECT_FALSE(IsRemoteWindow(nullptr));
  EXPECT_FALSE(SetForegroundWindow(nullptr));
  // A second listener for the same class and root is refused.
  Listener second;
  EXPECT_FALSE(second.Open(kClass));
  EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
  // The look-ups themselves are no messages and leave nothing in the log.
  EXPECT_EQ(listener.Service({}), 0);
  EXPECT_EQ(listener.WatchedFds(), std::vector<int>{listener.fd()});
  EXPECT_EQ(log_, "");
  listener.Close();
  EXPECT_EQ(FindWindowW(kClass, nullptr), nullptr);
}

TEST_F(IpcTest, StaleSocketOfADeadInstanceIsReplaced) {
  const pid_t child = fork();
  if (child == 0) {
    Listener dying;
    _exit(dying.Open(kClass) ? 0 : 1);  // ends without Close: the file stays
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(std::filesystem::exists(WindowSocketPath(kClass)));
  EXPECT_EQ(FindWindowW(kClass, nullptr), nullptr);
  Listener listener;
  EXPECT_TRUE(listener.Open(kClass));
  EXPECT_NE(FindWindowW(kClass, nullptr), nullptr);
}

TEST_F(IpcTest, SenderRefusesBadRecordsAndGivesUpOnAHungReceiver) {
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  HWND window = FindWindowW(kClass, nullptr);
  ASSERT_NE(window, nullptr);
  COPYDATASTRUCT oversize{0, kMaxPayload + 1, &listener};
  COPYDATASTRUCT no_bytes{0, 4, nullptr};
  struct Case { HWND window; UINT message; const COPYDATASTRUCT* record; } cases[] = {
      {nullptr, WM_COPYDATA, &no_bytes}, {window, WM_COMMAND, &oversize},
      {window, WM_COPYDATA, nullptr},    {window, WM_COPYDATA, &oversize},
      {window, WM_COPYDATA, &no_bytes},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(SendMessageW(c.window, c.message, 0, reinterpret_cast<LPARAM>(c.record), 200), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
  }
  COPYDATASTRUCT empty{3, 0, nullptr};
  EXPECT_EQ(SendMessageW(nullptr, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&empty), 200), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);

  // Nobody receives: the sender waits its timeout and no longer.
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&empty), 300), 0);
  EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST_F(IpcTest, MalformedMessagesAreRefusedAndTheReceiverGoesOn) {
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  int calls = 0;
  Handlers handlers;
  handlers.copy_data = [&](ULONG_PTR, DWORD, const BYTE*) -> LRESULT { return ++calls; };
  handlers.dismiss_dialogs = [&] { ++calls; };

  // A default header with one field changed.
  auto with = [](auto change) {
    wire::Header h;
    change(h);
    return h;
  };
  struct Case { std::vector<BYTE> bytes; const char* logged; } cases[] = {
      {frame(with([](auto& h) { h.magic = 0x12345678; }), 0), "bad magic"},
      {frame(with([](auto& h) { h.version = 9; }), 0), "unsupported version 9"},
      {frame(with([](auto& h) { h.kind = static_cast<wire::Kind>(7); }), 0), "unknown kind 7"},
      {frame(with([](auto& h) { h.kind = wire::Kind::kReply; }), 0), "a reply is no request"},
      {frame(with([](auto& h) { h.size = kMaxPayload + 1; }), 0), "exceeds"},
      {frame(with([](auto& h) { h.size = 20; }), 10), "payload shorter"},
      {frame(with([](auto& h) { h.kind = wire::Kind::kDismissDialogs, h.size = 4; }), 4),
       "unexpected payload"},
      {{1, 2, 3}, "incomplete header"},
  };
  for (const Case& c : cases) {
    log_.clear();
    SendRaw(listener, c.bytes);
    EXPECT_EQ(listener.Service(handlers), 0);
    EXPECT_NE(log_.find(c.logged), std::string::npos) << "expected '" << c.logged << "' in: " << log_;
  }
  EXPECT_EQ(calls, 0);

  // A well-formed message still arrives.
  SendRaw(listener, frame(wire::Header{}, 0));
  EXPECT_EQ(listener.Service(handlers), 1);
  EXPECT_EQ(calls, 1);
}

// The receiver reads what has arrived and goes back to its loop: a sender that
// says nothing, or sends its message in pieces, holds nothing up, and one that
// never finishes is dropped when its time is up.
TEST_F(IpcTest, ReadingNeverWaitsOnASender) {
  int calls = 0;
  Handlers handlers;
  handlers.copy_data = [&](ULONG_PTR data, DWORD size, const BYTE*) -> LRESULT {
    ++calls;
    return static_cast<LRESULT>(data + size);
  };
  {
    Listener listener(60000);  // a receiver that waited would wait a minute
    ASSERT_TRUE(listener.Open(kClass));
    const int silent = ConnectTo(listener.socket_path());
    const int halting = ConnectTo(listener.socket_path());
    ASSERT_GE(silent, 0);
    ASSERT_GE(halting, 0);
    SendRaw(listener, frame(wire::Header{}, 0));
    wire::Header h;
    h.data = 40;
    h.size = 2;
    const std::vector<BYTE> message = frame(h, 2);
    ASSERT_EQ(send(halting, message.data(), wire::kHeaderSize + 1, 0), static_cast<ssize_t>(wire::kHeaderSize + 1));

    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(listener.Service(handlers), 1);  // the complete one, past the other two
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(listener.WatchedFds().size(), 3u);  // the two unfinished are watched

    ASSERT_EQ(send(halting, message.data() + wire::kHeaderSize + 1, 1, 0), 1);
    EXPECT_EQ(listener.Service(handlers), 1);
    wire::HeaderBytes answer;
    ASSERT_EQ(recv(halting, answer.data(), answer.size(), MSG_WAITALL), static_cast<ssize_t>(answer.size()));
    wire::Header reply;
    std::string why;
    ASSERT_TRUE(wire::Decode(answer, 0, &reply, &why)) << why;
    EXPECT_EQ(reply.data, 42u);
    EXPECT_EQ(calls, 2);
    close(silent);
    close(halting);
  }
  Listener listener(100);
  ASSERT_TRUE(listener.Open(kClass));
  const int silent = ConnectTo(listener.socket_path());
  EXPECT_EQ(listener.Service(handlers), 0);
  EXPECT_EQ(listener.WatchedFds().size(), 2u);
  std::this_thread::sleep_for(std::chrono::milliseconds(150));
  EXPECT_EQ(listener.Service(handlers), 0);
  EXPECT_EQ(listener.WatchedFds().size(), 1u);
  EXPECT_NE(log_.find("not complete within 100 ms"), std::string::npos) << log_;
  close(silent);
}

// The lock file goes with the handle that made it; what an instance that was
// killed left behind is swept, and nothing else in the folder.
TEST_F(IpcTest, LockFilesGoWithTheirHoldersAndStaleOnesAreSwept) {
  namespace fs = std::filesystem;
  HANDLE mine = CreateMutexW(nullptr, FALSE, kMutexName);
  const std::string lock = MutexLockPath(kMutexName);
  EXPECT_TRUE(fs::exists(lock));
  EXPECT_EQ(MutexHolderProcess(kMutexName), getpid());
  HANDLE second = CreateMutexW(nullptr, FALSE, kMutexName);
  CloseHandle(second);
  EXPECT_TRUE(fs::exists(lock));  // only the creator's close removes it
  CloseHandle(mine);
  EXPECT_FALSE(fs::exists(lock));

  device::SetRoot(root() / "killed");
  const std::string killed_lock = MutexLockPath(kMutexName), killed_socket = WindowSocketPath(kClass);
  const pid_t child = fork();
  if (child == 0) {
    Listener listener;
    const bool made = CreateMutexW(nullptr, FALSE, kMutexName) && listener.Open(kClass);
    _exit(made ? 0 : 1);  // as if killed: nothing closed
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 0);
  device::SetRoot(root());
  ASSERT_TRUE(fs::exists(killed_lock));
  ASSERT_TRUE(fs::exists(killed_socket));

  HANDLE running = CreateMutexW(nullptr, FALSE, kMutexName);
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  const std::string other_file = RuntimeDirectory() + "/notes.lock";
  std::ofstream(other_file) << "not ours";
  EXPECT_EQ(RemoveStaleFiles(), 2);
  EXPECT_FALSE(fs::exists(killed_lock));
  EXPECT_FALSE(fs::exists(killed_socket));
  for (const std::string& kept : {MutexLockPath(kMutexName), listener.socket_path(), other_file})
    EXPECT_TRUE(fs::exists(kept)) << kept;
  CloseHandle(running);
}

TEST_F(IpcTest, AnotherUsersConnectionIsRefused) {
  if (geteuid() != 0) GTEST_SKIP() << "needs root to connect as another user";
  Listener listener;
  ASSERT_TRUE(listener.Open(kClass));
  // Open the way for the other user, so that only the peer check stands.
  for (const std::string& dir : {root().string(), runtime_, RuntimeDirectory()})
    chmod(dir.c_str(), 0711);
  chmod(listener.socket_path().c_str(), 0666);
  const pid_t child = fork();
  if (child == 0) {
    if (setgid(65534) != 0 || setuid(65534) != 0) _exit(2);
    const int fd = ConnectTo(listener.socket_path());
    if (fd < 0) _exit(3);
    const wire::HeaderBytes raw = wire::Encode(wire::Header{});
    (void)!send(fd, raw.data(), raw.size(), MSG_NOSIGNAL);
    char answer[16];
    _exit(recv(fd, answer, sizeof answer, 0) > 0 ? 4 : 0);  // no answer expected
  }
  int calls = 0;
  Handlers handlers;
  handlers.copy_data = [&](ULONG_PTR, DWORD, const BYTE*) -> LRESULT { return ++calls; };
  pollfd p{listener.fd(), POLLIN, 0};
  ASSERT_GT(poll(&p, 1, 5000), 0);
  EXPECT_EQ(listener.Service(handlers), 0);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(calls, 0);
  EXPECT_NE(log_.find("refused a hand-over from user 65534"), std::string::npos) << log_;
}

}  // namespace
}  // namespace velmo::ipc
