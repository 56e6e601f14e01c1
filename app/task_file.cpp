#include "app/task_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace velmo::app {
namespace {

constexpr size_t kMaxNameChars = 60;

std::string Home() {
  const char* home = std::getenv("HOME");
  return home && *home ? home : "/";
}

}  // namespace

FileWrite WriteTaskFile(const std::string& path, const std::string& bytes, bool replace, int* error) {
  const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | (replace ? O_TRUNC : O_EXCL);
  const int fd = open(path.c_str(), flags, 0600);
  if (fd < 0) {
    if (errno == EEXIST && !replace) return FileWrite::kExists;
    *error = errno;
    return FileWrite::kFailed;
  }
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      *error = n < 0 ? errno : EIO;
      close(fd);
      return FileWrite::kFailed;
    }
    done += static_cast<size_t>(n);
  }
  if (close(fd) != 0) {
    *error = errno;
    return FileWrite::kFailed;
  }
  return FileWrite::kWritten;
}

std::string ExpandUserPath(const std::string& typed) {
  if (typed == "~") return Home();
  if (typed.rfind("~/", 0) == 0) return Home() + typed.substr(1);
  if (!typed.empty() && typed[0] == '/') return typed;
  return Home() + "/" + typed;
}

std::wstring DefaultTaskFileName(const std::wstring& subject) {
  std::wstring name;
  for (wchar_t c : subject.substr(0, kMaxNameChars)) name.push_back(c == L'/' || c < 0x20 || c == 0x7F ? L'_' : c);
  while (!name.empty() && (name.back() == L' ' || name.back() == L'.')) name.pop_back();
  if (name.empty() || name[0] == L'.') name.insert(0, L"Task");
  return L"~/" + name + L".txt";
}

}  // namespace velmo::app
