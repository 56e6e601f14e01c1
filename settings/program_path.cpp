// The program file registered for the after-synchronisation start.
#include <filesystem>
#include <system_error>

#include "platform/wstr.h"
#include "settings/settings.h"

namespace velmo {
namespace {
std::wstring g_path_for_testing;
}

std::wstring ProgramFilePath() {
  if (!g_path_for_testing.empty()) return g_path_for_testing;
  std::error_code ec;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::wstring() : FromUtf8(exe.string());
}

void SetProgramFilePathForTesting(const std::wstring& path) { g_path_for_testing = path; }

}  // namespace velmo
