// The folder's side of the bridge: a file whose size and modification time are
// those the state keeps is unchanged without being read; any other is read,
// and counts as changed when its bytes differ from those last synchronised.
#include <unordered_map>

#include "sync/bridge_changes.h"

namespace velmo::sync {
namespace {

// Reads and parses one file; false (problem said) when it cannot be taken.
bool ReadOne(const std::filesystem::path& folder, const FolderFile& f, ReadFile* out,
             std::vector<std::string>* problems) {
  out->name = f.name;
  const std::filesystem::path path = folder / f.name;
  if (!ReadTaskFile(path, kMaxTodoFileBytes, &out->text, &out->stamp)) {
    problems->push_back(path.string() + ": cannot be read; left alone");
    return false;
  }
  std::string error;
  if (out->stamp.size > kMaxTodoFileBytes || !ReadTodo(out->text, &out->todo, &error)) {
    if (out->stamp.size > kMaxTodoFileBytes)
      error = "it is " + std::to_string(out->stamp.size >> 20) + " MB, more than a task can hold";
    problems->push_back(path.string() + ": " + error + "; left alone");
    return false;
  }
  return true;
}

}  // namespace

bool FindFolderChanges(const std::filesystem::path& folder, const SyncState& state, FolderChanges* out,
                       std::vector<std::string>* problems) {
  std::vector<FolderFile> files;
  std::string error;
  if (!ListTaskFiles(folder, &files, &error)) {
    problems->push_back(error);
    return false;
  }
  std::unordered_map<std::string, const FolderFile*> by_name;
  for (const FolderFile& f : files) by_name[f.name] = &f;
  std::unordered_map<std::string, const StateEntry*> by_uid;
  std::unordered_map<std::string, bool> known_names;
  for (const StateEntry& e : state.entries) {
    by_uid[e.uid] = &e;
    known_names[e.file] = true;
  }

  for (const StateEntry& e : state.entries) {
    const auto found = by_name.find(e.file);
    if (found == by_name.end()) {
      out->deleted.insert(e.uid);
      continue;
    }
    if (found->second->stamp == e.stamp) continue;
    ReadFile file;
    if (!ReadOne(folder, *found->second, &file, problems)) continue;  // left as it was
    if (ContentHash(file.text) == e.content) {
      out->touched[e.uid] = file.stamp;
    } else if (file.todo.uid != e.uid) {
      // Another task now lives under this name: the entry's own file went.
      out->deleted.insert(e.uid);
      out->unpaired.emplace(file.todo.uid, std::move(file));
    } else {
      out->changed.emplace(e.uid, std::move(file));
    }
  }

  for (const FolderFile& f : files) {
    if (known_names.count(f.name)) continue;
    ReadFile file;
    if (!ReadOne(folder, f, &file, problems)) continue;
    const std::string uid = file.todo.uid;
    const auto entry = by_uid.find(uid);
    if (entry != by_uid.end() && out->deleted.count(uid) && !out->renamed.count(uid)) {
      // The entry's file under another name (a server may rename files).
      out->deleted.erase(uid);
      out->renamed[uid] = f.name;
      if (ContentHash(file.text) == entry->second->content) out->touched[uid] = file.stamp;
      else out->changed.emplace(uid, std::move(file));
    } else if (entry != by_uid.end() || out->unpaired.count(uid)) {
      problems->push_back((folder / f.name).string() + ": another file holds the same task (UID " +
                          uid + "); left alone");
    } else {
      out->unpaired.emplace(uid, std::move(file));
    }
  }
  return true;
}

}  // namespace velmo::sync
