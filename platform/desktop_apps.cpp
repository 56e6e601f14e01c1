// Default applications from the desktop's association files and entries.
#include "platform/desktop_apps.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string_view>

#include "platform/lasterror.h"
#include "platform/shell.h"
#include "platform/wstr.h"

namespace velmo::shell {
namespace {

// Association files and desktop entries are small; anything larger is not one.
constexpr std::streamsize kMaxFileBytes = 1 << 20;
// A folder of applications holds a few hundred entries; the scan stops here.
constexpr int kMaxEntriesScanned = 4096;

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string HomeOr(const char* variable, const char* below_home) {
  std::string value = Env(variable);
  if (!value.empty() && value[0] == '/') return value;
  return Env("HOME") + below_home;
}

std::vector<std::string> SplitOn(std::string_view text, char separator) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find(separator, start);
    if (end == std::string_view::npos) end = text.size();
    if (end > start) parts.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

std::vector<std::string> DirList(const char* variable, const char* fallback) {
  std::string value = Env(variable);
  std::vector<std::string> dirs;
  for (std::string& d : SplitOn(value.empty() ? fallback : value, ':'))
    if (d[0] == '/') dirs.push_back(d);
  return dirs;
}

// The folders of desktop entries, the user's first.
std::vector<std::string> ApplicationDirs() {
  std::vector<std::string> dirs{HomeOr("XDG_DATA_HOME", "/.local/share") + "/applications"};
  for (const std::string& d : DirList("XDG_DATA_DIRS", "/usr/local/share:/usr/share"))
    dirs.push_back(d + "/applications");
  return dirs;
}

bool ReadSmallFile(const std::string& path, std::string* text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  text->assign(static_cast<size_t>(kMaxFileBytes), '\0');
  in.read(text->data(), kMaxFileBytes);
  text->resize(static_cast<size_t>(in.gcount()));
  return true;
}

// The value of `key` in `section` of a desktop-style key file; empty if none.
std::string KeyFileValue(const std::string& text, std::string_view section, std::string_view key) {
  std::istringstream lines(text);
  bool in_section = false;
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      in_section = line == "[" + std::string(section) + "]";
      continue;
    }
    if (!in_section) continue;
    const size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    std::string_view name(line.data(), equals);
    while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
    if (name != key) continue;
    size_t start = equals + 1;
    while (start < line.size() && line[start] == ' ') ++start;
    return line.substr(start);
  }
  return {};
}

std::string FindDesktopFile(const std::string& id) {
  if (id.empty() || id.find('/') != std::string::npos) return {};
  for (const std::string& dir : ApplicationDirs()) {
    const std::string path = dir + "/" + id;
    struct stat st;
    if (stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode)) return path;
  }
  return {};
}

// The first listed entry that exists, from `section` of each file in order.
std::string FromListFiles(const std::vector<std::string>& files, std::string_view section,
                          const std::string& mime_type) {
  for (const std::string& file : files) {
    std::string text;
    if (!ReadSmallFile(file, &text)) continue;
    for (const std::string& id : SplitOn(KeyFileValue(text, section, mime_type), ';')) {
      std::string path = FindDesktopFile(id);
      if (!path.empty()) return path;
    }
  }
  return {};
}

bool ListsType(const std::string& types, const std::string& mime_type) {
  for (const std::string& t : SplitOn(types, ';'))
    if (t == mime_type) return true;
  return false;
}

// The first entry, by folder and then by name, whose MimeType lists the type.
std::string FromEntries(const std::string& mime_type) {
  int scanned = 0;
  for (const std::string& dir : ApplicationDirs()) {
    DIR* folder = opendir(dir.c_str());
    if (!folder) continue;
    std::vector<std::string> names;
    while (dirent* e = readdir(folder)) {
      std::string_view name(e->d_name);
      if (name.size() > 8 && name.substr(name.size() - 8) == ".desktop") names.emplace_back(name);
      if (++scanned > kMaxEntriesScanned) break;
    }
    closedir(folder);
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) {
      std::string text;
      if (!ReadSmallFile(dir + "/" + name, &text)) continue;
      if (ListsType(KeyFileValue(text, "Desktop Entry", "MimeType"), mime_type) &&
          KeyFileValue(text, "Desktop Entry", "Hidden") != "true")
        return dir + "/" + name;
    }
  }
  return {};
}

// Undoes the key file's escapes (\s \n \t \r \\); others stay as written.
std::wstring UnescapeValue(const std::wstring& value) {
  std::wstring out;
  for (size_t i = 0; i < value.size(); ++i) {
    if (value[i] != L'\\' || i + 1 == value.size()) {
      out.push_back(value[i]);
      continue;
    }
    switch (value[++i]) {
      case L's': out.push_back(L' '); break;
      case L'n': out.push_back(L'\n'); break;
      case L't': out.push_back(L'\t'); break;
      case L'r': out.push_back(L'\r'); break;
      case L'\\': out.push_back(L'\\'); break;
      default: out.push_back(L'\\'); out.push_back(value[i]); break;
    }
  }
  return out;
}

// Splits the Exec value into words: blanks separate, double quotes group, and
// inside them a backslash keeps the next character. False for an unclosed quote.
bool SplitExec(const std::wstring& exec, std::vector<std::wstring>* words) {
  std::wstring word;
  bool in_word = false, quoted = false;
  for (size_t i = 0; i < exec.size(); ++i) {
    const wchar_t c = exec[i];
    if (quoted) {
      if (c == L'"') {
        quoted = false;
      } else if (c == L'\\' && i + 1 < exec.size()) {
        word.push_back(exec[++i]);
      } else {
        word.push_back(c);
      }
    } else if (c == L' ' || c == L'\t' || c == L'\n') {
      if (in_word) words->push_back(word);
      word.clear();
      in_word = false;
    } else {
      in_word = true;
      if (c == L'"') {
        quoted = true;
      } else {
        word.push_back(c);
      }
    }
  }
  if (quoted) return false;
  if (in_word) words->push_back(word);
  return true;
}

}  // namespace

std::string DefaultApplication(const std::string& mime_type) {
  if (mime_type.empty()) return {};
  std::vector<std::string> lists{HomeOr("XDG_CONFIG_HOME", "/.config") + "/mimeapps.list"};
  for (const std::string& d : DirList("XDG_CONFIG_DIRS", "/etc/xdg")) lists.push_back(d + "/mimeapps.list");
  const std::vector<std::string> app_dirs = ApplicationDirs();
  for (const std::string& d : app_dirs) lists.push_back(d + "/mimeapps.list");
  std::string found = FromListFiles(lists, "Default Applications", mime_type);
  if (found.empty()) found = FromListFiles(lists, "Added Associations", mime_type);
  std::vector<std::string> defaults, caches;
  for (const std::string& d : app_dirs) {
    defaults.push_back(d + "/defaults.list");
    caches.push_back(d + "/mimeinfo.cache");
  }
  if (found.empty()) found = FromListFiles(defaults, "Default Applications", mime_type);
  if (found.empty()) found = FromListFiles(caches, "MIME Cache", mime_type);
  if (found.empty()) found = FromEntries(mime_type);
  return found;
}

std::vector<std::wstring> ExecArguments(const std::wstring& exec, const std::wstring& target) {
  std::vector<std::wstring> words, argv;
  if (!SplitExec(UnescapeValue(exec), &words)) return {};
  for (const std::wstring& word : words) {
    const bool file_code = word == L"%u" || word == L"%U" || word == L"%f" || word == L"%F";
    if (file_code) {
      if (!target.empty()) argv.push_back(target);
      continue;
    }
    // Other field codes stand alone in a word or are dropped from it; %% is a %.
    std::wstring out;
    for (size_t i = 0; i < word.size(); ++i) {
      if (word[i] != L'%' || i + 1 == word.size()) {
        out.push_back(word[i]);
      } else if (word[++i] == L'%') {
        out.push_back(L'%');
      }
    }
    if (!out.empty()) argv.push_back(out);
  }
  return argv;
}

std::vector<std::wstring> ApplicationCommand(const std::string& desktop_file,
                                             const std::wstring& target) {
  std::string text;
  if (!ReadSmallFile(desktop_file, &text)) return {};
  const std::string exec = KeyFileValue(text, "Desktop Entry", "Exec");
  return exec.empty() ? std::vector<std::wstring>{} : ExecArguments(FromUtf8(exec), target);
}

BOOL StartDefaultApplication(const std::string& mime_type, const std::wstring& target) {
  const std::string entry = DefaultApplication(mime_type);
  std::vector<std::wstring> argv = entry.empty() ? std::vector<std::wstring>{}
                                                 : ApplicationCommand(entry, target);
  if (argv.empty()) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return FALSE;
  }
  return Spawn(argv);
}

}  // namespace velmo::shell
