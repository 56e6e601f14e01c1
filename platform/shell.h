// Shell execution: a file or an address opened with the desktop's application
// for it, and programs started from an argument vector. Nothing here ever goes
// through a shell's command line, so no text is read as shell syntax.
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"


struct SHELLEXECUTEINFO {
  DWORD cbSize;
  ULONG fMask;
  HWND hwnd;
  LPCWSTR lpVerb;        // "open" or null
  LPCWSTR lpFile;        // a file, or an address such as mailto: or https:
  LPCWSTR lpParameters;  // must be null or empty: arguments are never parsed from text
  LPCWSTR lpDirectory;   // ignored
  int nShow;             // SW_SHOWNORMAL; a started program shows itself as it likes
  void* hInstApp;
};

// Opens lpFile with the desktop's opener ($VELMO_OPENER, else "xdg-open") as
// {opener, lpFile}; a lpFile that begins with "-" is given as "./-...", so that
// the opener never reads it as an option. FALSE with the last error ERROR_INVALID_PARAMETER for a
// missing file, another verb or parameters, ERROR_FILE_NOT_FOUND when the opener
// cannot be started.
BOOL ShellExecuteEx(SHELLEXECUTEINFO* info);

namespace velmo::shell {

// Starts argv[0] (looked up in PATH) with the other elements as its arguments,
// in a session of its own, with standard input and output on /dev/null, and
// never waits for it. FALSE with the last error ERROR_INVALID_PARAMETER for an
// empty vector or an empty program, ERROR_FILE_NOT_FOUND when it cannot be
// started (no such program, not executable), ERROR_NOT_ENOUGH_MEMORY when no
// process can be made.
BOOL Spawn(const std::vector<std::wstring>& argv);

}  // namespace velmo::shell
