// Helpers of the registry calls: key paths, the conversion of value data between
// the caller's form (wide characters for string types) and the stored form
// (UTF-16LE), and the writes shared by the calls and the import.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/wintypes.h"

namespace velmo::registry {

// "Software\\Velmo ToDo" -> {"Software", "Velmo ToDo"} in UTF-8; empty parts dropped.
std::vector<std::string> SplitKeyPath(const std::wstring& path);

bool IsStringType(DWORD type);

// The stored bytes of data as the caller passes it. String types: the caller's
// wide characters become UTF-16LE; a byte count that is not a whole number of
// wide characters is refused (false).
bool CallerToStored(DWORD type, const BYTE* data, DWORD size, std::vector<BYTE>* stored);

// The caller's form of stored bytes (string types back to wide characters; an odd
// trailing byte is dropped).
std::vector<BYTE> StoredToCaller(DWORD type, const std::vector<BYTE>& stored);

// Walks parts down from parent, creating missing keys when create is set (inside
// the caller's transaction). *id is the key reached; *created tells whether the
// last part was made. ERROR_FILE_NOT_FOUND when a part is missing and not created.
LONG WalkKeys(sqlite3* db, std::int64_t parent, const std::vector<std::string>& parts, bool create,
              std::int64_t* id, bool* created);

// Sets one value of key (inside the caller's transaction), keeping its place in
// the creation order when it already exists.
LONG WriteValue(sqlite3* db, std::int64_t key, const std::string& name, DWORD type,
                const std::vector<BYTE>& stored);

// Deletes key with its values and every sub-key (inside the caller's transaction).
LONG DeleteTree(sqlite3* db, std::int64_t key);

}  // namespace velmo::registry
