// Coordination between instances of the program on one device root: the named
// mutex that makes one instance the first, finding the running instance's main
// window, and handing a request over to it (WM_COPYDATA, or the dismissal of its
// open dialogs).
//
// Backed by files of the user's runtime folder ($XDG_RUNTIME_DIR/velmo-todo, else
// /tmp/velmo-<uid>, mode 0700): a lock file per mutex name held with flock, and a
// Unix-domain socket (mode 0600) per window class that the running instance
// listens on. Both names carry a hash of the canonical device root, so every root
// and every user has its own pair. A connection from another user is refused.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/wintypes.h"

// Creates or opens the named mutex of this device root and user. The last error
// is ERROR_ALREADY_EXISTS when another handle (in any process) already holds it,
// else ERROR_SUCCESS. The first handle keeps the mutex in existence until it is
// closed or its process ends. Null on failure (last error set).
HANDLE CreateMutexW(void* security, BOOL initial_owner, LPCWSTR name);
// Gives up ownership; FALSE with ERROR_NOT_OWNER when the handle does not own it
// (a mutex created without initial ownership is not owned: nothing waits on it).
BOOL ReleaseMutex(HANDLE mutex);
// Closes a handle of this module; FALSE with ERROR_INVALID_HANDLE for any other.
BOOL CloseHandle(HANDLE handle);

// The running instance's top-level window of that class on this device root and
// user, as a handle standing for it, when its hand-over socket answers; else null.
// Windows of other processes are known by their class only: a lookup that names a
// title finds none.
HWND FindWindowW(LPCWSTR class_name, LPCWSTR window_name);

namespace velmo::ipc {

// A handle returned by FindWindowW (the lowest bit, the platform's "with owned
// windows" mark, is ignored).
bool IsRemoteWindow(HWND window);

// Brings another instance's window forward: a terminal program cannot raise
// another terminal, so this only checks the handle. TRUE for a remote handle.
BOOL SetForegroundWindow(HWND window);

// Sends a message to another instance's window and waits for its answer, at most
// timeout_ms (a hung receiver cannot hang the sender). Only WM_COPYDATA travels
// (lParam: a COPYDATASTRUCT whose payload may live on the sender's stack); it
// returns the receiver's result. 0 with the last error set when nothing was
// delivered: a null or unknown window (ERROR_INVALID_WINDOW_HANDLE), another
// message (ERROR_INVALID_PARAMETER), no answer in time (ERROR_TIMEOUT).
constexpr int kDefaultSendTimeoutMs = 10000;
LRESULT SendMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                     int timeout_ms = kDefaultSendTimeoutMs);

// Asks another instance to dismiss its open dialogs (WM_COMMAND IDCANCEL along the
// owner chain of its top-level windows, up to its main window) and waits for it
// like SendMessageW. FALSE with the last error set when nothing was delivered.
BOOL DismissDialogs(HWND window, int timeout_ms = kDefaultSendTimeoutMs);

// What one hand-over message asks of the receiving instance.
enum class RequestKind : WORD { kCopyData = 1, kDismissDialogs = 2 };

// The receiving side's handlers. copy_data receives the record's dwData, cbData
// and exactly cbData bytes (null when cbData is 0) and returns the result sent
// back; dismiss_dialogs does the dismissal.
struct Handlers {
  std::function<LRESULT(ULONG_PTR data, DWORD size, const BYTE* bytes)> copy_data;
  std::function<void()> dismiss_dialogs;
};

// The largest payload a hand-over message may carry.
constexpr DWORD kMaxPayload = 64 * 1024;

// The running instance's end of the hand-over channel, for one window class.
// Single-threaded and never blocking: the program's message loop watches
// WatchedFds() and calls Service() whenever one of them is readable, and now and
// then besides, so that connections that never complete are dropped. A sender
// that connects and says nothing holds nothing but its own connection.
class Listener {
 public:
  // How long a connection may take to deliver its whole message.
  static constexpr int kDefaultReadTimeoutMs = 5000;
  // Connections being read at once; beyond it the oldest is dropped.
  static constexpr size_t kMaxPending = 32;

  explicit Listener(int read_timeout_ms = kDefaultReadTimeoutMs)
      : read_timeout_ms_(read_timeout_ms) {}
  ~Listener();
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  // Starts listening for the window class on this device root. Call it in the
  // instance that holds the mutex: a socket left behind by an instance that died
  // is replaced; one that still answers gives ERROR_ALREADY_EXISTS. FALSE with the
  // last error set on failure.
  BOOL Open(LPCWSTR class_name);
  // Stops listening, drops the connections being read and removes the socket.
  void Close();
  bool IsOpen() const { return fd_ >= 0; }

  // The listening socket (non-blocking).
  int fd() const { return fd_; }
  // The listening socket and every connection whose message is still arriving.
  std::vector<int> WatchedFds() const;

  // Accepts the waiting connections and reads what has arrived on each, without
  // waiting. Every complete message is handed to the handlers and answered. A
  // sender of another user, a malformed or oversized message, or one not
  // complete within the read timeout is refused and logged. Returns the number
  // of messages handled.
  int Service(const Handlers& handlers);

  const std::string& socket_path() const { return path_; }

 private:
  struct Pending {
    int fd;
    std::chrono::steady_clock::time_point deadline;
    std::vector<BYTE> bytes;
  };
  void Accept();
  // Reads what the connection has; true when it is finished with (its message
  // handled, or refused), false while more is to come.
  bool Advance(Pending& connection, const Handlers& handlers, bool* handled);

  int fd_ = -1;
  int read_timeout_ms_;
  std::string path_;
  std::vector<Pending> pending_;
};

// Where refusals and failures of the channel are reported (default: standard
// error, one line each). The terminal UI redirects it while it owns the screen.
void SetLogSink(std::function<void(const std::string& line)> sink);

// The process that holds the named mutex (it writes its number into the lock
// file), or 0 when none is known.
pid_t MutexHolderProcess(std::wstring_view mutex_name);

// Removes what instances that have ended left in the runtime folder: lock
// files nobody holds, and sockets of device roots whose lock nobody holds.
// Returns the number of files removed.
int RemoveStaleFiles();

// The files of this device root and user (for tests and diagnostics).
std::string RuntimeDirectory();
std::string MutexLockPath(std::wstring_view mutex_name);
std::string WindowSocketPath(std::wstring_view class_name);

}  // namespace velmo::ipc
