#include "res/strings.h"

#include <algorithm>
#include <cwchar>
#include <fstream>
#include <unordered_map>

#include "platform/ui/resource_strings.h"
#include "platform/wstr.h"

namespace velmo::res {
namespace {

struct Entry {
  UINT id;
  const wchar_t* text;
};

constexpr Entry kTable[] = {
#include "res/strings_app.inc"
#include "res/strings_store.inc"
#include "res/strings_settings.inc"
#include "res/strings_list.inc"
#include "res/strings_editor.inc"
#include "res/strings_task_editor.inc"
#include "res/strings_reminders.inc"
#include "res/strings_categories.inc"
#include "res/strings_links.inc"
#include "res/strings_format.inc"
#include "res/strings_cli.inc"
#include "res/strings_ui.inc"
#include "res/strings_views.inc"
#include "res/strings_notes.inc"
#include "res/strings_settings_pages.inc"
};

using Table = std::unordered_map<UINT, std::wstring>;

Table BuiltInTable() {
  Table table;
  for (const Entry& e : kTable) table.emplace(e.id, e.text);
  return table;
}

Table& ActiveTable() {
  static Table table = BuiltInTable();
  return table;
}

std::wstring Unescape(std::wstring_view text) {
  std::wstring out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    switch (text[++i]) {
      case L'r': out += L'\r'; break;
      case L'n': out += L'\n'; break;
      case L't': out += L'\t'; break;
      default: out += text[i]; break;
    }
  }
  return out;
}

}  // namespace

const wchar_t* String(UINT id) {
  const Table& table = ActiveTable();
  auto it = table.find(id);
  return it == table.end() ? nullptr : it->second.c_str();
}

// The window system's own controls read their texts from this table.
[[maybe_unused]] const bool kHandedToWindowSystem = (ui::SetStringLookup(&String), true);

std::wstring Text(UINT id) {
  const wchar_t* s = String(id);
  return s ? s : L"";
}

std::wstring Format(std::wstring_view pattern, std::initializer_list<std::wstring_view> inserts) {
  std::wstring out;
  out.reserve(pattern.size());
  for (size_t i = 0; i < pattern.size(); ++i) {
    const wchar_t c = pattern[i];
    if (c == L'%' && i + 1 < pattern.size()) {
      const wchar_t n = pattern[i + 1];
      if (n == L'%') {
        out += L'%';
        ++i;
        continue;
      }
      if (n >= L'1' && n <= L'9' && static_cast<size_t>(n - L'1') < inserts.size()) {
        out += *(inserts.begin() + (n - L'1'));
        ++i;
        continue;
      }
    }
    out += c;
  }
  return out;
}

std::wstring FormatId(UINT id, std::initializer_list<std::wstring_view> inserts) {
  return Format(Text(id), inserts);
}

std::vector<UINT> DuplicateStringIds() {
  std::vector<UINT> ids;
  for (const Entry& e : kTable) ids.push_back(e.id);
  std::sort(ids.begin(), ids.end());
  std::vector<UINT> duplicates;
  for (size_t i = 1; i < ids.size(); ++i)
    if (ids[i] == ids[i - 1] && (duplicates.empty() || duplicates.back() != ids[i]))
      duplicates.push_back(ids[i]);
  return duplicates;
}

bool LoadLanguageFile(const std::string& path) {
  if (path.empty()) {
    ActiveTable() = BuiltInTable();
    return true;
  }
  std::ifstream in(path);
  if (!in) return false;
  Table table;
  std::string line;
  while (std::getline(in, line)) {
    const size_t tab = line.find('\t');
    if (tab == std::string::npos || tab == 0) continue;
    char* end = nullptr;
    const unsigned long id = std::strtoul(line.c_str(), &end, 10);
    if (end != line.c_str() + tab) continue;
    table[static_cast<UINT>(id)] = Unescape(FromUtf8(line.substr(tab + 1)));
  }
  ActiveTable() = std::move(table);
  return true;
}

}  // namespace velmo::res

int LoadStringW(void*, UINT id, wchar_t* buffer, int max) {
  const wchar_t* text = velmo::res::String(id);
  if (!text || !buffer || max <= 0) return 0;
  const size_t n = std::min(std::wcslen(text), static_cast<size_t>(max - 1));
  std::wmemcpy(buffer, text, n);
  buffer[n] = L'\0';
  return static_cast<int>(n);
}
