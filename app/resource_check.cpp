#include "app/resource_check.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <cwchar>

#include "app/startup.h"
#include "platform/lasterror.h"
#include "platform/wstr.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

// These messages are shown exactly when the string table cannot be trusted, so
// they cannot come from it.
constexpr const wchar_t* kRestartDevice = L"Restart the device";
constexpr const wchar_t* kBadInstallation =
    L"Bad installation.\r\nYou have to remove this file:\r\n%s";
constexpr const wchar_t* kRestartOrReinstall = L"Restart the device or Reinstall";

constexpr UINT kResourcesNameString = 120;
constexpr UINT kProgramNameString = 121;
constexpr int kProgramNameMax = 100;

// SHGetFileInfo with SHGFI_ATTRIBUTES, reduced to what the check uses: the last
// error it leaves for the path.
DWORD FileAttributesError(const std::wstring& path) {
  struct stat st;
  if (stat(ToUtf8(path).c_str(), &st) == 0) return ERROR_SUCCESS;
  switch (errno) {
    case ENOENT: return ERROR_FILE_NOT_FOUND;
    case ENOTDIR: return 3;  // ERROR_PATH_NOT_FOUND
    default: return ERROR_ACCESS_DENIED;
  }
}

}  // namespace

std::wstring LanguageFileBeside(const std::wstring& program_file) {
  return program_file + L".0409.mui";
}

bool LoadLanguageResources(const std::wstring& program_file) {
  if (const char* named = std::getenv("VELMO_LANGUAGE_FILE"); named && *named)
    return res::LoadLanguageFile(named);
  const std::string beside = ToUtf8(LanguageFileBeside(program_file));
  struct stat st;
  if (stat(beside.c_str(), &st) != 0) return true;
  return res::LoadLanguageFile(beside);
}

std::wstring CheckStringResources(const std::wstring& program_file) {
  wchar_t name[kProgramNameMax + 1];
  if (LoadStringW(nullptr, kProgramNameString, name, kProgramNameMax) > 0 &&
      std::wcscmp(name, kMainWindowClass) == 0)
    return L"";
  wchar_t resources[kProgramNameMax + 1];
  if (LoadStringW(nullptr, kResourcesNameString, resources, kProgramNameMax) == 0)
    return kRestartOrReinstall;
  const std::wstring beside = LanguageFileBeside(program_file);
  SetLastError(FileAttributesError(beside));
  if (LastErrorAsHresult() == static_cast<HRESULT>(0x80070002u)) return kRestartDevice;
  std::wstring message = kBadInstallation;
  message.replace(message.find(L"%s"), 2, beside);
  return message;
}

}  // namespace velmo::app
