#include "links/phone_library.h"

#include <optional>
#include <vector>

#include "app/shortcut_apps.h"
#include "links/link_uris.h"
#include "platform/desktop_apps.h"
#include "platform/lasterror.h"
#include "platform/shell.h"

namespace velmo {
namespace {

std::optional<bool> g_present;

// The dial command with the number and name put in ("--name=%2" keeps a name
// that begins with "-" from reading as an option); an argument that was only
// "%2" is left out when there is no name.
std::vector<std::wstring> DialArguments(const std::vector<std::wstring>& argv,
                                        const std::wstring& number, const std::wstring& name) {
  std::vector<std::wstring> out;
  bool has_number = false;
  for (const std::wstring& a : argv) {
    if (a == L"%2" && name.empty()) continue;
    std::wstring filled;
    for (size_t i = 0; i < a.size(); ++i) {
      if (a[i] == L'%' && i + 1 < a.size() && (a[i + 1] == L'1' || a[i + 1] == L'2')) {
        has_number |= a[i + 1] == L'1';
        filled += a[++i] == L'1' ? number : name;
      } else {
        filled.push_back(a[i]);
      }
    }
    out.push_back(filled);
  }
  if (!has_number) out.push_back(number);
  return out;
}

}  // namespace

void LoadPhoneLibrary() {
  g_present = !ReadLaunchCommand(kDialCommandName).empty() ||
              !shell::DefaultApplication(kTelHandlerType).empty();
}

bool PhoneLibraryPresent() {
  if (!g_present) LoadPhoneLibrary();
  return *g_present;
}

BOOL PhoneMakeCall(const std::wstring& number, const std::wstring& name) {
  if (number.empty() || !PhoneLibraryPresent()) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  std::vector<std::wstring> dial = ReadLaunchCommand(kDialCommandName);
  if (!dial.empty()) return shell::Spawn(DialArguments(dial, number, name));
  return shell::StartDefaultApplication(kTelHandlerType, TelUri(number));
}

}  // namespace velmo
