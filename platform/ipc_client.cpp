// The sending side of the hand-over channel: finding another instance's window
// and delivering a message to it, waiting for its answer at most a timeout.
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "platform/ipc.h"
#include "platform/ipc_internal.h"
#include "platform/ipc_wire.h"
#include "platform/lasterror.h"

namespace velmo::ipc {
namespace {

using internal::ErrorFromErrno;

// Handles of other instances' windows are small even numbers above this base:
// entry i of RemoteSockets() is kRemoteBase + 2 * (i + 1).
constexpr std::uintptr_t kRemoteBase = 0x7E100000;
constexpr int kFindTimeoutMs = 2000;

std::vector<std::string>& RemoteSockets() {
  static std::vector<std::string> sockets;
  return sockets;
}

const std::string* SocketOf(HWND window) {
  const std::uintptr_t value = reinterpret_cast<std::uintptr_t>(window) & ~std::uintptr_t{1};
  if (value <= kRemoteBase || (value - kRemoteBase) % 2 != 0) return nullptr;
  const std::uintptr_t index = (value - kRemoteBase) / 2 - 1;
  if (index >= RemoteSockets().size()) return nullptr;
  return &RemoteSockets()[index];
}

HWND HandleFor(const std::string& socket_path) {
  std::vector<std::string>& sockets = RemoteSockets();
  size_t index = 0;
  while (index < sockets.size() && sockets[index] != socket_path) ++index;
  if (index == sockets.size()) sockets.push_back(socket_path);
  return reinterpret_cast<HWND>(kRemoteBase + 2 * (index + 1));
}

// Connects to a listening instance of this user, waiting at most timeout_ms for
// room in its queue. The connected socket is non-blocking. -1 with the last error
// set on failure.
int ConnectToInstance(const std::string& path, int timeout_ms) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    SetLastError(ErrorFromErrno(ENAMETOOLONG));
    return -1;
  }
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (fd < 0) {
    SetLastError(ErrorFromErrno(errno));
    return -1;
  }
  // A blocking connect waits for room in a full queue; the send timeout bounds it.
  const timeval limit{timeout_ms / 1000, (timeout_ms % 1000) * 1000};
  setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
  int rc;
  while ((rc = connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address)) != 0 &&
         errno == EINTR) {
  }
  int error = rc != 0 ? errno : 0;
  uid_t peer = 0;
  if (rc == 0 && (!internal::PeerUid(fd, &peer) || peer != geteuid())) {
    internal::Log("refused to hand over to user " + std::to_string(peer));
    error = EACCES;
  }
  if (error == 0 && fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK) != 0) error = errno;
  if (error != 0) {
    close(fd);
    SetLastError(ErrorFromErrno(error));
    return -1;
  }
  return fd;
}

// Delivers one request to the window's instance and waits for the answer.
bool Exchange(HWND window, wire::Kind kind, std::uint32_t data, const void* payload,
              std::uint32_t size, int timeout_ms, LRESULT* result) {
  const std::string* path = SocketOf(window);
  if (!path) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return false;
  }
  const int fd = ConnectToInstance(*path, timeout_ms);
  if (fd < 0) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);  // the instance has gone
    return false;
  }
  const internal::Deadline deadline = internal::DeadlineIn(timeout_ms);
  wire::Header header;
  header.kind = kind;
  header.data = data;
  header.size = size;
  const wire::HeaderBytes raw = wire::Encode(header);
  wire::HeaderBytes answer;
  int error = internal::WriteFull(fd, raw.data(), raw.size(), deadline);
  if (!error && size) error = internal::WriteFull(fd, payload, size, deadline);
  if (!error) error = internal::ReadFull(fd, answer.data(), answer.size(), deadline);
  close(fd);
  wire::Header reply;
  std::string why;
  if (error) {
    SetLastError(ErrorFromErrno(error == ECONNRESET ? EACCES : error));
    return false;
  }
  if (!wire::Decode(answer, 0, &reply, &why) || reply.kind != wire::Kind::kReply) {
    internal::Log("malformed answer to a hand-over: " + (why.empty() ? "not a reply" : why));
    SetLastError(ERROR_INVALID_DATA);
    return false;
  }
  *result = static_cast<LONG>(reply.data);
  SetLastError(ERROR_SUCCESS);
  return true;
}

}  // namespace

bool IsRemoteWindow(HWND window) { return SocketOf(window) != nullptr; }

BOOL SetForegroundWindow(HWND window) {
  if (!IsRemoteWindow(window)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  return TRUE;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM, LPARAM lparam, int timeout_ms) {
  const auto* record = reinterpret_cast<const COPYDATASTRUCT*>(lparam);
  if (message != WM_COPYDATA || !record || record->cbData > kMaxPayload ||
      record->dwData > 0xFFFFFFFFu || (record->cbData && !record->lpData)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  LRESULT result = 0;
  Exchange(window, wire::Kind::kCopyData, static_cast<std::uint32_t>(record->dwData),
           record->lpData, record->cbData, timeout_ms, &result);
  return result;
}

BOOL DismissDialogs(HWND window, int timeout_ms) {
  LRESULT result = 0;
  return Exchange(window, wire::Kind::kDismissDialogs, 0, nullptr, 0, timeout_ms, &result)
             ? TRUE
             : FALSE;
}

}  // namespace velmo::ipc

HWND FindWindowW(LPCWSTR class_name, LPCWSTR window_name) {
  if (!class_name || !*class_name || window_name) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return nullptr;
  }
  const std::string path = velmo::ipc::WindowSocketPath(class_name);
  const int fd = velmo::ipc::ConnectToInstance(path, velmo::ipc::kFindTimeoutMs);
  if (fd < 0) return nullptr;
  close(fd);
  SetLastError(ERROR_SUCCESS);
  return velmo::ipc::HandleFor(path);
}
