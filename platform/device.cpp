#include "platform/device.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <set>
#include <system_error>

#include "platform/lasterror.h"
#include "platform/wstr.h"

namespace velmo::device {
namespace {
std::optional<std::filesystem::path> g_root_override;

std::filesystem::path RootFromEnvironment() {
  if (const char* root = std::getenv("VELMO_ROOT"); root && *root) return root;
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data)
    return std::filesystem::path(data) / "velmo-todo";
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home && *home ? home : "/tmp") / ".local/share/velmo-todo";
}
}  // namespace

std::filesystem::path Root() {
  return g_root_override ? *g_root_override : RootFromEnvironment();
}

void SetRoot(const std::filesystem::path& root) { g_root_override = root; }

std::filesystem::path MapPlatformPath(const std::wstring& platform_path) {
  std::string relative = velmo::ToUtf8(platform_path);
  for (char& c : relative)
    if (c == '\\') c = '/';
  while (!relative.empty() && relative.front() == '/') relative.erase(0, 1);
  return Root() / relative;
}

namespace {

constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;  // what the device's files are made with

thread_local std::string t_root_failure;
std::set<std::string>& TightenedRoots() {
  static auto* roots = new std::set<std::string>;
  return *roots;
}

bool RefuseRoot(const std::string& why) {
  t_root_failure = "the device folder " + Root().string() + " " + why;
  SetLastError(ERROR_ACCESS_DENIED);
  return false;
}

// Takes group and other permissions away from what lies under the root, the
// root itself included (what the owner may do stays); links are not followed.
void Tighten(const std::filesystem::path& root) {
  auto tighten = [](const std::filesystem::path& path) {
    struct stat st;
    if (::lstat(path.c_str(), &st) == 0 && (S_ISDIR(st.st_mode) || S_ISREG(st.st_mode)) &&
        (st.st_mode & 077) != 0)
      ::chmod(path.c_str(), st.st_mode & 0700);
  };
  tighten(root);
  std::error_code ec;
  for (auto it = std::filesystem::recursive_directory_iterator(root, ec);
       !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec))
    tighten(it->path());
}

}  // namespace

std::string RootFailure() { return t_root_failure; }

bool MakePrivateFolder(const std::filesystem::path& folder) {
  std::error_code ec;
  if (std::filesystem::is_directory(folder, ec)) return true;
  if (folder.has_parent_path() && folder.parent_path() != folder &&
      !MakePrivateFolder(folder.parent_path()))
    return false;
  return ::mkdir(folder.c_str(), kFolderMode) == 0 || errno == EEXIST;
}

bool MakePrivateFile(const std::filesystem::path& file) {
  const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kFileMode);
  if (fd < 0) return errno == EEXIST;
  ::close(fd);
  return true;
}

bool EnsureRoot() {
  const std::filesystem::path root = Root();
  std::error_code ec;
  const auto status = std::filesystem::status(root, ec);
  if (std::filesystem::exists(status) && !std::filesystem::is_directory(status))
    return RefuseRoot("is a file, not a folder");
  if (!MakePrivateFolder(root)) return RefuseRoot(std::string("cannot be made (") + std::strerror(errno) + ")");
  // A folder that cannot be written may still be read: each write says so.
  if (::access(root.c_str(), X_OK) != 0) return RefuseRoot("cannot be entered");
  if (TightenedRoots().insert(root.string()).second) Tighten(root);
  t_root_failure.clear();
  return true;
}

}  // namespace velmo::device
