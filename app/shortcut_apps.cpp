// "App:" commands: from the command to its Start-menu name, to the launch
// command set for that name, to a started program.
#include "app/shortcut_apps.h"

#include <algorithm>
#include <iterator>
#include <cwchar>
#include <string_view>

#include "platform/lasterror.h"
#include "platform/registry.h"
#include "platform/desktop_apps.h"
#include "platform/shell.h"
#include "platform/wstr.h"

namespace velmo {
namespace {

struct AppShortcut {
  UINT command;
  const wchar_t* file;
  const wchar_t* older_file;  // on platform major versions below `older_below`
  DWORD older_below;
};

constexpr AppShortcut kAppShortcuts[] = {
    {39974, L"\\Calendar.lnk", nullptr, 0},
    {39975, L"\\Contacts.lnk", nullptr, 0},
    {39976, L"\\Messaging.lnk", L"\\Inbox.lnk", 4},
    {39977, L"\\Call History.lnk", nullptr, 0},
    {39978, L"\\Internet Explorer.lnk", nullptr, 0},
    {39979, L"\\Pocket MSN.lnk", L"\\MSN Messenger.lnk", 5},
    {39970, L"\\Voice Notes.lnk", L"\\Notes.lnk", 4},
    {39980, L"\\ActiveSync.lnk", nullptr, 0},
    {39973, L"\\Pictures.lnk", nullptr, 0},
    {39972, L"\\File Explorer.lnk", nullptr, 0},
    {39971, L"\\Calculator.lnk", nullptr, 0},
    {39981, L"\\Settings.lnk", nullptr, 0},
};

// What each name starts until the user sets another command: the desktop's
// default application for a type ("desktop-default" and the type), or a program.
struct DefaultLaunch {
  const wchar_t* name;
  std::vector<std::wstring> argv;
};

const std::vector<DefaultLaunch>& DefaultLaunches() {
  static const std::vector<DefaultLaunch> defaults = {
      {L"Calendar", {kDesktopDefault, L"text/calendar"}},
      {L"Contacts", {kDesktopDefault, L"text/vcard"}},
      {L"Messaging", {kDesktopDefault, L"x-scheme-handler/mailto"}},
      {L"Inbox", {kDesktopDefault, L"x-scheme-handler/mailto"}},
      {L"Call History", {kDesktopDefault, L"x-scheme-handler/tel"}},
      {L"Internet Explorer", {kDesktopDefault, L"x-scheme-handler/https"}},
      {L"Pocket MSN", {kDesktopDefault, L"x-scheme-handler/xmpp"}},
      {L"MSN Messenger", {kDesktopDefault, L"x-scheme-handler/xmpp"}},
      {L"Voice Notes", {kDesktopDefault, L"audio/ogg"}},
      {L"Notes", {kDesktopDefault, L"text/plain"}},
      {L"ActiveSync", {L"velmo", L"sync"}},
      {L"Pictures", {kDesktopDefault, L"image/jpeg"}},
      {L"File Explorer", {kDesktopDefault, L"inode/directory"}},
      {L"Calculator", {L"gnome-calculator"}},
      {L"Settings", {L"gnome-control-center"}},
  };
  return defaults;
}

std::wstring ApplicationsKeyPath() {
  return std::wstring(kSettingsKey) + L"\\" + kApplicationsSubKey;
}

// A REG_MULTI_SZ's strings: each ends at a terminator, the list at an empty one.
std::vector<std::wstring> SplitMultiString(std::wstring_view data) {
  std::vector<std::wstring> parts;
  size_t start = 0;
  while (start < data.size()) {
    size_t end = data.find(L'\0', start);
    if (end == std::wstring_view::npos) end = data.size();
    if (end == start) break;
    parts.emplace_back(data.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

}  // namespace

bool IsAppCommand(UINT command) { return AppShortcutFile(command) != nullptr; }

const wchar_t* AppShortcutFile(UINT command, DWORD major_version) {
  auto it = std::find_if(std::begin(kAppShortcuts), std::end(kAppShortcuts),
                         [command](const AppShortcut& a) { return a.command == command; });
  if (it == std::end(kAppShortcuts)) return nullptr;
  return it->older_file && major_version < it->older_below ? it->older_file : it->file;
}

std::wstring AppLaunchName(UINT command, DWORD major_version) {
  const wchar_t* file = AppShortcutFile(command, major_version);
  if (!file) return {};
  std::wstring_view name(file);
  name.remove_prefix(1);                  // the folder's "\"
  name.remove_suffix(std::wcslen(L".lnk"));
  return std::wstring(name);
}

std::vector<std::wstring> ReadLaunchCommand(const std::wstring& name) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, ApplicationsKeyPath().c_str(), 0, KEY_READ, &key) !=
      ERROR_SUCCESS) {
    return {};
  }
  DWORD type = REG_NONE, size = 0;
  std::vector<std::wstring> argv;
  if (RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size) == ERROR_SUCCESS &&
      (type == REG_SZ || type == REG_MULTI_SZ)) {
    std::wstring data(size / sizeof(wchar_t), L'\0');
    if (RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<LPBYTE>(data.data()),
                         &size) == ERROR_SUCCESS) {
      data.resize(size / sizeof(wchar_t));
      argv = type == REG_MULTI_SZ ? SplitMultiString(data)
                                  : std::vector<std::wstring>{data.substr(0, data.find(L'\0'))};
    }
  }
  RegCloseKey(key);
  if (!argv.empty() && argv[0].empty()) argv.clear();
  return argv;
}

LONG WriteLaunchCommand(const std::wstring& name, const std::vector<std::wstring>& argv) {
  HKEY key = nullptr;
  LONG result = RegCreateKeyExW(HKEY_CURRENT_USER, ApplicationsKeyPath().c_str(), 0, nullptr,
                                REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr);
  if (result != ERROR_SUCCESS) return result;
  std::wstring data;
  for (const std::wstring& a : argv) data.append(a).push_back(L'\0');
  data.push_back(L'\0');
  result = RegSetValueExW(key, name.c_str(), 0, REG_MULTI_SZ,
                          reinterpret_cast<const BYTE*>(data.data()),
                          static_cast<DWORD>(data.size() * sizeof(wchar_t)));
  RegCloseKey(key);
  return result;
}

bool LaunchCommandSet(const std::wstring& name) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, ApplicationsKeyPath().c_str(), 0, KEY_READ, &key) !=
      ERROR_SUCCESS) {
    return false;
  }
  DWORD type = REG_NONE, size = 0;
  const bool set = RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size) == ERROR_SUCCESS;
  RegCloseKey(key);
  return set;
}

std::vector<std::wstring> DefaultLaunchCommand(const std::wstring& name) {
  for (const DefaultLaunch& d : DefaultLaunches())
    if (name == d.name) return d.argv;
  return {};
}

BOOL StartAppShortcut(UINT command) {
  std::wstring name = AppLaunchName(command);
  if (!name.empty() && !LaunchCommandSet(name)) {
    const std::vector<std::wstring> fallback = DefaultLaunchCommand(name);
    if (!fallback.empty()) WriteLaunchCommand(name, fallback);
  }
  std::vector<std::wstring> argv = name.empty() ? std::vector<std::wstring>{}
                                                : ReadLaunchCommand(name);
  if (argv.empty()) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return FALSE;
  }
  if (argv[0] == kDesktopDefault)
    return argv.size() == 2 ? shell::StartDefaultApplication(ToUtf8(argv[1]), L"") : FALSE;
  return shell::Spawn(argv);
}

}  // namespace velmo
