// The file "Save As..." writes: a new file (0600) that never replaces an
// existing one unless the user said so, at a path the user typed ("~/" is
// the home folder, a relative path is taken from it).
#pragma once

#include <string>

namespace velmo::app {

enum class FileWrite { kWritten, kExists, kFailed };

// Writes the bytes; kExists when the file is there and replace is false;
// kFailed with *error the system's error number.
FileWrite WriteTaskFile(const std::string& path, const std::string& bytes, bool replace, int* error);

// The full path of what the user typed.
std::string ExpandUserPath(const std::string& typed);

// "~/<subject>.txt": the subject's first 60 characters, "/" and control
// characters made "_"; "Task.txt" for an empty subject.
std::wstring DefaultTaskFileName(const std::wstring& subject);

}  // namespace velmo::app
