#include "platform/registry_values.h"

#include <cstring>
#include <string_view>

#include "platform/registry.h"
#include "platform/registry_file.h"
#include "platform/wstr.h"

namespace velmo::registry {

std::vector<std::string> SplitKeyPath(const std::wstring& path) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (start <= path.size()) {
    size_t end = path.find(L'\\', start);
    if (end == std::wstring::npos) end = path.size();
    if (end > start) parts.push_back(ToUtf8(std::wstring_view(path).substr(start, end - start)));
    start = end + 1;
  }
  return parts;
}

bool IsStringType(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

bool CallerToStored(DWORD type, const BYTE* data, DWORD size, std::vector<BYTE>* stored) {
  stored->clear();
  if (!IsStringType(type)) {
    if (size) stored->assign(data, data + size);
    return true;
  }
  if (size % sizeof(wchar_t) != 0) return false;
  std::wstring wide(size / sizeof(wchar_t), L'\0');
  if (size) std::memcpy(wide.data(), data, size);
  for (char16_t unit : ToUtf16(wide)) {
    stored->push_back(static_cast<BYTE>(unit & 0xFF));
    stored->push_back(static_cast<BYTE>(unit >> 8));
  }
  return true;
}

std::vector<BYTE> StoredToCaller(DWORD type, const std::vector<BYTE>& stored) {
  if (!IsStringType(type)) return stored;
  std::u16string units(stored.size() / 2, u'\0');
  for (size_t i = 0; i < units.size(); ++i)
    units[i] = static_cast<char16_t>(stored[2 * i] | (stored[2 * i + 1] << 8));
  const std::wstring wide = FromUtf16(units);
  std::vector<BYTE> out(wide.size() * sizeof(wchar_t));
  if (!out.empty()) std::memcpy(out.data(), wide.data(), out.size());
  return out;
}

LONG WalkKeys(sqlite3* db, std::int64_t parent, const std::vector<std::string>& parts, bool create,
              std::int64_t* id, bool* created) {
  *created = false;
  *id = parent;
  for (const std::string& part : parts) {
    Statement find(db, "SELECT id FROM keys WHERE parent = ? AND name = ?");
    const int rc = find.Bind(1, *id).Bind(2, part).Step();
    if (rc == SQLITE_ROW) {
      *id = find.Int(0);
      *created = false;
      continue;
    }
    if (rc != SQLITE_DONE) return MapSqliteError(db, rc);
    if (!create) return ERROR_FILE_NOT_FOUND;
    Statement insert(db, "INSERT INTO keys(parent, name) VALUES(?, ?)");
    const int insert_rc = insert.Bind(1, *id).Bind(2, part).Step();
    if (insert_rc != SQLITE_DONE) return MapSqliteError(db, insert_rc);
    *id = sqlite3_last_insert_rowid(db);
    *created = true;
  }
  return ERROR_SUCCESS;
}

LONG WriteValue(sqlite3* db, std::int64_t key, const std::string& name, DWORD type,
                const std::vector<BYTE>& stored) {
  Statement s(db,
              "INSERT INTO reg_values(key, name, type, data) VALUES(?, ?, ?, ?) "
              "ON CONFLICT(key, name) DO UPDATE SET type = excluded.type, data = excluded.data");
  const int rc = s.Bind(1, key).Bind(2, name).Bind(3, static_cast<std::int64_t>(type))
                     .BindBlob(4, stored).Step();
  return rc == SQLITE_DONE ? ERROR_SUCCESS : MapSqliteError(db, rc);
}

LONG DeleteTree(sqlite3* db, std::int64_t key) {
  static constexpr const char* kTree =
      "WITH RECURSIVE tree(id) AS (SELECT ? UNION ALL "
      "SELECT keys.id FROM keys JOIN tree ON keys.parent = tree.id) ";
  const std::string values = std::string(kTree) + "DELETE FROM reg_values WHERE key IN tree";
  const std::string keys = std::string(kTree) + "DELETE FROM keys WHERE id IN tree";
  for (const std::string& sql : {values, keys}) {
    Statement s(db, sql.c_str());
    const int rc = s.Bind(1, key).Step();
    if (rc != SQLITE_DONE) return MapSqliteError(db, rc);
  }
  return ERROR_SUCCESS;
}

}  // namespace velmo::registry
