// The program file registered for the after-synchronisation start.
#include <filesystem>
#include <system_error>

#include "platform/wstr.h"
#include "settings/settings.h"

namespace velmo {
namespace {
std::wstring g_path_override;
}

std::wstring ProgramFilePath() {
  if (!g_path_override.empty()) return g_path_override;
  std::error_code ec;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::wstring() : FromUtf8(exe.string());
}

void SetProgramFilePath(const std::wstring& path) { g_path_override = path; }

}  // namespace velmo
