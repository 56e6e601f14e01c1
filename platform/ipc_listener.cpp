// The running instance's end of the hand-over channel: a listening Unix socket
// (mode 0600, in the user's 0700 runtime folder), one connection per message,
// each answered once the handlers are done, so the sender's wait is synchronous.
#include <sys/socket.h>
#include <sys/stat.h>
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
using internal::Log;

bool MakeAddress(const std::string& path, sockaddr_un* address) {
  *address = sockaddr_un{};
  address->sun_family = AF_UNIX;
  if (path.size() >= sizeof address->sun_path) return false;
  std::memcpy(address->sun_path, path.c_str(), path.size() + 1);
  return true;
}

// True when a process listens on the socket at path.
bool SomeoneListens(const sockaddr_un& address) {
  const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (fd < 0) return false;
  const bool answers =
      connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(fd);
  return answers;
}

// Closes the connection when it leaves scope.
struct Connection {
  int fd;
  ~Connection() { close(fd); }
};

}  // namespace

Listener::~Listener() { Close(); }

BOOL Listener::Open(LPCWSTR class_name) {
  Close();
  if (!class_name || !*class_name) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  if (!internal::EnsureRuntimeDirectory()) return FALSE;
  const std::string path = WindowSocketPath(class_name);
  sockaddr_un address;
  if (!MakeAddress(path, &address)) {
    Log("socket path too long: " + path);
    SetLastError(ErrorFromErrno(ENAMETOOLONG));
    return FALSE;
  }
  if (SomeoneListens(address)) {
    SetLastError(ERROR_ALREADY_EXISTS);
    return FALSE;
  }
  unlink(path.c_str());  // left behind by an instance that ended without closing
  const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (fd < 0) {
    SetLastError(ErrorFromErrno(errno));
    return FALSE;
  }
  // The socket is born 0600: no moment exists in which another user could connect.
  const mode_t previous = umask(0177);
  const int bound = bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  const int bind_error = errno;
  umask(previous);
  if (bound != 0 || listen(fd, 16) != 0) {
    const int error = bound != 0 ? bind_error : errno;
    Log("cannot listen on " + path + ": " + std::strerror(error));
    close(fd);
    SetLastError(ErrorFromErrno(error));
    return FALSE;
  }
  fd_ = fd;
  path_ = path;
  return TRUE;
}

void Listener::Close() {
  if (fd_ < 0) return;
  close(fd_);
  unlink(path_.c_str());
  fd_ = -1;
  path_.clear();
}

bool Listener::ReceiveOne(const Handlers& handlers, int read_timeout_ms) {
  if (fd_ < 0) return false;
  const int accepted = accept4(fd_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
  if (accepted < 0) return false;
  Connection connection{accepted};

  uid_t peer = 0;
  if (!internal::PeerUid(connection.fd, &peer) || peer != geteuid()) {
    Log("refused a hand-over from user " + std::to_string(peer));
    return false;
  }

  const internal::Deadline deadline = internal::DeadlineIn(read_timeout_ms);
  wire::HeaderBytes raw;
  size_t got = 0;
  if (const int e = internal::ReadFull(connection.fd, raw.data(), raw.size(), deadline, &got)) {
    if (e == ECONNRESET && got == 0) return false;  // FindWindowW only looked
    Log(std::string("refused a hand-over: incomplete header (") + std::strerror(e) + ")");
    return false;
  }
  wire::Header header;
  std::string why;
  if (!wire::Decode(raw, kMaxPayload, &header, &why) || header.kind == wire::Kind::kReply) {
    Log("refused a hand-over: " + (why.empty() ? std::string("a reply is no request") : why));
    return false;
  }
  std::vector<BYTE> payload(header.size);
  if (const int e = internal::ReadFull(connection.fd, payload.data(), payload.size(), deadline)) {
    Log("refused a hand-over: payload shorter than its " + std::to_string(header.size) +
        " bytes (" + std::strerror(e) + ")");
    return false;
  }

  LRESULT result = 0;
  if (header.kind == wire::Kind::kCopyData) {
    if (handlers.copy_data)
      result = handlers.copy_data(header.data, header.size,
                                  payload.empty() ? nullptr : payload.data());
  } else if (handlers.dismiss_dialogs) {
    handlers.dismiss_dialogs();
  }

  wire::Header reply;
  reply.kind = wire::Kind::kReply;
  reply.data = static_cast<std::uint32_t>(result);
  const wire::HeaderBytes answer = wire::Encode(reply);
  // The sender may have given up waiting; that is its affair.
  internal::WriteFull(connection.fd, answer.data(), answer.size(), internal::DeadlineIn(read_timeout_ms));
  return true;
}

}  // namespace velmo::ipc
