// The check that the string resources in force are the program's own. A
// language-resource file of another build (left beside the program file, or named
// by VELMO_LANGUAGE_FILE) would give every text of the program a wrong number.
#pragma once

#include <string>

namespace velmo::app {

// The language-resource file beside the program file: the program file's path
// followed by ".0409.mui".
std::wstring LanguageFileBeside(const std::wstring& program_file);

// Puts the language-resource file in force, if there is one: the file named by
// $VELMO_LANGUAGE_FILE, else the one beside the program file when it exists.
// Without one the built-in string table stays. False when the named file cannot
// be read (the built-in table stays).
bool LoadLanguageResources(const std::wstring& program_file);

// Empty when string 121 is the program's own name; else the message to show:
// "Restart the device" (a foreign table is in force but no file lies beside the
// program), the bad-installation message naming that file, or "Restart the
// device or Reinstall" when not even string 120 loads.
std::wstring CheckStringResources(const std::wstring& program_file);

}  // namespace velmo::app
