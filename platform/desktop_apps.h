// The desktop's default application for a MIME type or URI scheme
// ("x-scheme-handler/tel"), found the way the desktop finds it: the
// mimeapps.list files of the configuration and data folders, then
// defaults.list and mimeinfo.cache, then the MimeType lines of the desktop
// entries themselves. Only files are read; no program is run to ask.
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"

namespace velmo::shell {

// The path of the desktop entry that handles `mime_type`, or empty when the
// desktop has none.
std::string DefaultApplication(const std::string& mime_type);

// The argument vector of a desktop entry's Exec line, its quoting undone, with
// `target` (a URI or a path) in place of the %u, %U, %f or %F field code and
// the other field codes dropped; with an empty target the file codes are
// dropped too. Empty when the file has no Exec line, or a bad one.
std::vector<std::wstring> ApplicationCommand(const std::string& desktop_file,
                                             const std::wstring& target);

// The same from the text of an Exec value (without "Exec=").
std::vector<std::wstring> ExecArguments(const std::wstring& exec, const std::wstring& target);

// Starts the default application of `mime_type`, on `target` when it is not
// empty. FALSE with ERROR_FILE_NOT_FOUND when there is none or it cannot be
// started; the program never waits for it.
BOOL StartDefaultApplication(const std::string& mime_type, const std::wstring& target);

}  // namespace velmo::shell
