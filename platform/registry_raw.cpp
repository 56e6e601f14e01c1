// Export and import of keys with their values as stored, for the companion's
// registry-export text form.
#include <strings.h>

#include <optional>

#include "platform/registry.h"
#include "platform/registry_file.h"
#include "platform/registry_values.h"
#include "platform/wstr.h"

namespace velmo::registry {
namespace {

struct RootName {
  const char* name;
  const char* abbreviation;
  std::int64_t id;
};
constexpr RootName kRoots[] = {
    {"HKEY_CURRENT_USER", "HKCU", kCurrentUserId},
    {"HKEY_LOCAL_MACHINE", "HKLM", kLocalMachineId},
};

// The root of a path's first component, if it names one.
std::optional<RootName> FindRoot(const std::string& first) {
  for (const RootName& root : kRoots)
    if (strcasecmp(first.c_str(), root.name) == 0 || strcasecmp(first.c_str(), root.abbreviation) == 0)
      return root;
  return std::nullopt;
}

// The key at parts (the root's name first), creating it when create is set.
LONG Resolve(sqlite3* db, std::int64_t root, const std::vector<std::string>& parts, bool create,
             std::int64_t* id) {
  bool created = false;
  return WalkKeys(db, root, std::vector<std::string>(parts.begin() + 1, parts.end()), create, id,
                  &created);
}

LONG CollectTree(sqlite3* db, std::int64_t id, const std::wstring& path, std::vector<RawKey>* out) {
  RawKey key{path, {}};
  Statement values(db, "SELECT name, type, data FROM reg_values WHERE key = ? ORDER BY rowid");
  values.Bind(1, id);
  int rc;
  while ((rc = values.Step()) == SQLITE_ROW)
    key.values.push_back({FromUtf8(values.Text(0)), static_cast<DWORD>(values.Int(1)), values.Blob(2)});
  if (rc != SQLITE_DONE) return MapSqliteError(db, rc);
  out->push_back(std::move(key));

  std::vector<std::pair<std::int64_t, std::string>> children;
  Statement sub(db, "SELECT id, name FROM keys WHERE parent = ? ORDER BY id");
  sub.Bind(1, id);
  while ((rc = sub.Step()) == SQLITE_ROW) children.emplace_back(sub.Int(0), sub.Text(1));
  if (rc != SQLITE_DONE) return MapSqliteError(db, rc);
  for (const auto& [child, name] : children) {
    const LONG error = CollectTree(db, child, path + L"\\" + FromUtf8(name), out);
    if (error != ERROR_SUCCESS) return error;
  }
  return ERROR_SUCCESS;
}

}  // namespace

LONG ExportTree(const std::wstring& path, std::vector<RawKey>* out) {
  out->clear();
  const std::vector<std::string> parts = SplitKeyPath(path);
  const std::optional<RootName> root = parts.empty() ? std::nullopt : FindRoot(parts[0]);
  if (!root) return ERROR_INVALID_PARAMETER;
  LONG error = ERROR_SUCCESS;
  sqlite3* db = Connection(&error);
  if (!db) return error;
  // One read transaction, so that the export is one consistent picture.
  if (sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK)
    return MapSqliteError(db, sqlite3_errcode(db));
  std::int64_t id = 0;
  error = Resolve(db, root->id, parts, false, &id);
  if (error == ERROR_SUCCESS) {
    std::wstring canonical = FromUtf8(root->name);
    for (size_t i = 1; i < parts.size(); ++i) canonical += L"\\" + FromUtf8(parts[i]);
    error = CollectTree(db, id, canonical, out);
  }
  sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  return error;
}

LONG ImportKeys(const std::vector<RawKey>& keys) {
  for (const RawKey& key : keys) {
    const std::vector<std::string> parts = SplitKeyPath(key.path);
    if (parts.empty() || !FindRoot(parts[0])) return ERROR_INVALID_PARAMETER;
  }
  LONG error = ERROR_SUCCESS;
  sqlite3* db = Connection(&error);
  if (!db) return error;
  return InTransaction(db, [&]() -> LONG {
    for (const RawKey& key : keys) {
      const std::vector<std::string> parts = SplitKeyPath(key.path);
      std::int64_t id = 0;
      LONG result = Resolve(db, FindRoot(parts[0])->id, parts, true, &id);
      for (const RawValue& value : key.values) {
        if (result != ERROR_SUCCESS) break;
        result = WriteValue(db, id, ToUtf8(value.name), value.type, value.bytes);
      }
      if (result != ERROR_SUCCESS) return result;
    }
    return ERROR_SUCCESS;
  });
}

}  // namespace velmo::registry
