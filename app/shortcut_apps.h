// The "App:" actions: each command names a program of the Start menu (by its
// shortcut's name), and the user's launch command for that name starts it. The
// launch commands live under the settings key, in the sub-key "Applications":
// one value per name, a REG_MULTI_SZ argument vector (program, then arguments)
// or a REG_SZ program without arguments. A name without a value gets its
// default command written there on first use (the desktop's own program for
// it); an empty value does nothing. A command whose program is
// "desktop-default" starts the desktop's default application for the type that
// follows it ("desktop-default", "text/calendar").
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"
#include "settings/settings.h"

namespace velmo {

constexpr const wchar_t* kApplicationsSubKey = L"Applications";
constexpr const wchar_t* kDesktopDefault = L"desktop-default";

constexpr UINT kFirstAppCommand = 39970;
constexpr UINT kLastAppCommand = 39981;

bool IsAppCommand(UINT command);

// The Start-menu shortcut an "App:" command names, as the platform's major
// version has it ("\Calendar.lnk"), or nullptr for a command that names none.
const wchar_t* AppShortcutFile(UINT command, DWORD major_version = kPlatformMajorVersion);

// The name its launch command is stored under: the shortcut's file name
// without the folder and ".lnk" ("Calendar"); empty for none.
std::wstring AppLaunchName(UINT command, DWORD major_version = kPlatformMajorVersion);

// The launch command stored for a name; empty when none is set (or the value
// is of another type, or holds no program).
std::vector<std::wstring> ReadLaunchCommand(const std::wstring& name);
LONG WriteLaunchCommand(const std::wstring& name, const std::vector<std::wstring>& argv);

// Whether a value is stored for the name (even an empty one), and the command
// used when none is.
bool LaunchCommandSet(const std::wstring& name);
std::vector<std::wstring> DefaultLaunchCommand(const std::wstring& name);

// Starts the program of an "App:" command. FALSE when the command names no
// program, none is set for it, or it cannot be started; the caller reports
// nothing.
BOOL StartAppShortcut(UINT command);

}  // namespace velmo
