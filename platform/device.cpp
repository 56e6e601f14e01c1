#include "platform/device.h"

#include <unistd.h>

#include <cstdlib>
#include <optional>
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

bool EnsureRoot() {
  std::error_code ec;
  std::filesystem::create_directories(Root(), ec);
  if (ec || access(Root().c_str(), W_OK | X_OK) != 0) {
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
  }
  return true;
}

}  // namespace velmo::device
