// The running instance's end of the hand-over channel: a listening Unix socket
// (mode 0600, in the user's 0700 runtime folder), one connection per message,
// each answered once the handlers are done, so the sender's wait is synchronous.
// Connections are read as their bytes arrive: the message loop never waits on one.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
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
  for (const Pending& connection : pending_) close(connection.fd);
  pending_.clear();
  if (fd_ < 0) return;
  close(fd_);
  unlink(path_.c_str());
  fd_ = -1;
  path_.clear();
}

std::vector<int> Listener::WatchedFds() const {
  std::vector<int> fds;
  if (fd_ < 0) return fds;
  fds.push_back(fd_);
  for (const Pending& connection : pending_) fds.push_back(connection.fd);
  return fds;
}

void Listener::Accept() {
  for (;;) {
    const int accepted = accept4(fd_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (accepted < 0) {
      if (errno == EINTR || errno == ECONNABORTED) continue;
      return;  // none waiting (or out of descriptors: they wait in the queue)
    }
    uid_t peer = 0;
    if (!internal::PeerUid(accepted, &peer) || peer != geteuid()) {
      Log("refused a hand-over from user " + std::to_string(peer));
      close(accepted);
      continue;
    }
    if (pending_.size() >= kMaxPending) {
      Log("dropped a hand-over connection: " + std::to_string(kMaxPending) +
          " connections were waiting to be read");
      close(pending_.front().fd);
      pending_.erase(pending_.begin());
    }
    pending_.push_back({accepted, internal::DeadlineIn(read_timeout_ms_), {}});
  }
}

bool Listener::Advance(Pending& connection, const Handlers& handlers, bool* handled) {
  // Read what is there, never more than one message.
  bool ended = false;
  for (;;) {
    size_t wanted = wire::kHeaderSize;
    if (connection.bytes.size() >= wire::kHeaderSize) {
      wire::HeaderBytes raw;
      std::copy_n(connection.bytes.begin(), raw.size(), raw.begin());
      wire::Header header;
      std::string why;
      if (!wire::Decode(raw, kMaxPayload, &header, &why) || header.kind == wire::Kind::kReply) {
        Log("refused a hand-over: " + (why.empty() ? std::string("a reply is no request") : why));
        return true;
      }
      wanted += header.size;
      if (connection.bytes.size() == wanted) {
        std::vector<BYTE> payload(connection.bytes.begin() + wire::kHeaderSize,
                                  connection.bytes.end());
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
        // A fresh connection has room for the answer; a sender that has given
        // up waiting is its own affair. Either way nothing here waits.
        (void)!send(connection.fd, answer.data(), answer.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        *handled = true;
        return true;
      }
      if (ended) {
        Log("refused a hand-over: payload shorter than its " + std::to_string(header.size) +
            " bytes");
        return true;
      }
    } else if (ended) {
      if (!connection.bytes.empty())  // no bytes at all: FindWindowW only looked
        Log("refused a hand-over: incomplete header");
      return true;
    }
    const size_t have = connection.bytes.size();
    connection.bytes.resize(wanted);
    const ssize_t n = recv(connection.fd, connection.bytes.data() + have, wanted - have,
                           MSG_DONTWAIT);
    const int error = n < 0 ? errno : 0;
    connection.bytes.resize(have + static_cast<size_t>(std::max<ssize_t>(n, 0)));
    if (error == EAGAIN || error == EWOULDBLOCK) break;  // nothing more for now
    if (n == 0 || (error != 0 && error != EINTR)) ended = true;
  }
  if (std::chrono::steady_clock::now() < connection.deadline) return false;
  Log("refused a hand-over: the message was not complete within " +
      std::to_string(read_timeout_ms_) + " ms");
  return true;
}

int Listener::Service(const Handlers& handlers) {
  if (fd_ < 0) return 0;
  Accept();
  int handled = 0;
  // A handler may run a nested message loop that comes back here: each
  // connection leaves the list before its message is handed over.
  for (size_t i = 0; i < pending_.size();) {
    Pending connection = std::move(pending_[i]);
    pending_.erase(pending_.begin() + static_cast<std::ptrdiff_t>(i));
    bool done_one = false;
    if (Advance(connection, handlers, &done_one)) {
      close(connection.fd);
      handled += done_one ? 1 : 0;
    } else {
      const size_t at = std::min(i, pending_.size());
      pending_.insert(pending_.begin() + static_cast<std::ptrdiff_t>(at), std::move(connection));
      i = at + 1;
    }
  }
  return handled;
}

}  // namespace velmo::ipc
