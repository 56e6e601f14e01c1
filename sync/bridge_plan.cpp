#include "sync/bridge_plan.h"

#include <sys/random.h>

#include <cstdio>

namespace velmo::sync {
namespace {

constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);

poom::TaskValues ValuesOfKept(const std::string& kept) {
  Todo todo;
  std::string error;
  if (kept.empty() || !ReadTodo(kept, &todo, &error)) return {};
  return todo.values;
}

class Planner {
 public:
  Planner(const SyncState& state, const LocalChanges& local, const FolderChanges& folder, std::time_t local_time)
      : state_(state), local_(local), folder_(folder), local_time_(local_time) {}

  BridgePlan Run() {
    for (const StateEntry& e : state_.entries) Entry(e);
    for (const auto& [uid, record] : local_.unpaired) UnpairedLocal(record);
    for (const SyncRecord& record : local_.fresh) Export(record, NewUid(), kNoEntry, true);
    for (const auto& [uid, file] : folder_.unpaired)
      if (!local_.unpaired.count(uid)) Import(0, file);
    return std::move(plan_);
  }

 private:
  enum class Side { kSame, kChanged, kGone };

  void Entry(const StateEntry& old) {
    StateEntry e = old;
    if (const auto m = local_.moved.find(e.uid); m != local_.moved.end()) e.oid = m->second;
    if (const auto r = folder_.renamed.find(e.uid); r != folder_.renamed.end()) e.file = r->second;
    if (const auto t = folder_.touched.find(e.uid); t != folder_.touched.end()) e.stamp = t->second;
    const auto lc = local_.changed.find(e.uid);
    const auto fc = folder_.changed.find(e.uid);
    const Side l = local_.deleted.count(old.oid) ? Side::kGone
                   : lc != local_.changed.end()  ? Side::kChanged
                                                 : Side::kSame;
    const Side f = folder_.deleted.count(e.uid) ? Side::kGone
                   : fc != folder_.changed.end() ? Side::kChanged
                                                 : Side::kSame;
    if (l == Side::kSame && f == Side::kSame) return static_cast<void>(Keep(e));
    if (l == Side::kChanged && f == Side::kChanged) return Both(lc->second, fc->second, &e);
    if (l == Side::kChanged) return Export(lc->second, e.uid, Keep(e), false, old);  // over a file or a gone one
    if (f == Side::kChanged) {
      if (l == Side::kGone) return Import(0, fc->second);  // the changed file brings the task back
      return Import(e.oid, fc->second);
    }
    if (l == Side::kGone && f == Side::kSame) plan_.file_removals.push_back(e.file);
    if (f == Side::kGone && l == Side::kSame) plan_.record_removals.push_back(e.oid);
  }

  std::size_t Keep(const StateEntry& e) {
    plan_.entries.push_back(e);
    return plan_.entries.size() - 1;
  }

  // Writes the record's values into its file (the kept text brought up to
  // date) and the new text back into the record.
  void Export(const SyncRecord& r, const std::string& uid, std::size_t entry, bool new_uid,
              std::optional<StateEntry> previous = std::nullopt) {
    std::string base = r.kept;
    if (new_uid && !base.empty()) base = WithUid(base, uid);
    const std::string text = WriteTodo(base, ValuesOfKept(r.kept), r.values, uid);
    if (entry == kNoEntry) {
      StateEntry e;
      e.uid = uid;
      e.oid = r.oid;
      e.file = TaskFileName(uid);
      entry = Keep(e);
    }
    StateEntry& e = plan_.entries[entry];
    e.values = ValuesFingerprint(r.values);
    e.content = ContentHash(text);
    if (text != r.kept || new_uid)
      plan_.records.push_back({r.oid, true, {}, uid, text, kNoEntry});
    plan_.files.push_back({e.file, text, entry, previous});
  }

  // Writes the file's task into record oid (0: a new one).
  void Import(CEOID oid, const ReadFile& file) {
    StateEntry e;
    e.uid = file.todo.uid;
    e.oid = oid;
    e.file = file.name;
    e.stamp = file.stamp;
    e.content = ContentHash(file.text);
    e.values = ValuesFingerprint(file.todo.values);
    const std::size_t entry = Keep(e);
    plan_.records.push_back({oid, false, file.todo.values, e.uid, file.text, entry});
  }

  void UnpairedLocal(const SyncRecord& r) {
    const auto file = folder_.unpaired.find(r.uid);
    if (file == folder_.unpaired.end()) return Export(r, r.uid, kNoEntry, false);
    StateEntry e;
    e.uid = r.uid;
    e.oid = r.oid;
    e.file = file->second.name;
    e.stamp = file->second.stamp;
    e.content = ContentHash(file->second.text);
    e.values = ValuesFingerprint(r.values);
    Both(r, file->second, &e);
  }

  // Both sides changed: the same values are simply synchronised; otherwise the
  // newer change wins and the older becomes a task of its own.
  void Both(const SyncRecord& r, const ReadFile& file, StateEntry* e) {
    if (SameValues(r.values, file.todo.values)) {
      e->values = ValuesFingerprint(r.values);
      e->stamp = file.stamp;
      e->content = ContentHash(file.text);
      Keep(*e);
      if (r.kept != file.text) plan_.records.push_back({r.oid, true, {}, e->uid, file.text, kNoEntry});
      return;
    }
    ++plan_.conflicts;
    const std::time_t file_time = file.todo.changed ? file.todo.changed : file.stamp.mtime_ns / 1000000000;
    if (file_time > local_time_) {
      Import(r.oid, file);
      SyncRecord copy = r;
      copy.oid = 0;
      CopyOf(copy);
    } else {
      Export(r, e->uid, Keep(*e), false);
      CopyOf(file);
    }
  }

  // The older side of a conflict as a new task with a UID of its own, in both
  // the database and the folder.
  void CopyOf(const SyncRecord& r) {
    const std::string uid = NewUid();
    std::string base = r.kept.empty() ? std::string() : WithUid(r.kept, uid);
    const std::string text = WriteTodo(base, ValuesOfKept(r.kept), r.values, uid);
    StateEntry e;
    e.uid = uid;
    e.file = TaskFileName(uid);
    e.values = ValuesFingerprint(r.values);
    e.content = ContentHash(text);
    const std::size_t entry = Keep(e);
    plan_.records.push_back({0, false, r.values, uid, text, entry});
    plan_.files.push_back({e.file, text, entry, std::nullopt});
  }

  // The folder's older version as a new task with a UID and a file of its own.
  void CopyOf(const ReadFile& file) {
    const std::string uid = NewUid();
    const std::string text = WithUid(file.text, uid);
    StateEntry e;
    e.uid = uid;
    e.file = TaskFileName(uid);
    e.values = ValuesFingerprint(file.todo.values);
    e.content = ContentHash(text);
    const std::size_t entry = Keep(e);
    plan_.records.push_back({0, false, file.todo.values, uid, text, entry});
    plan_.files.push_back({e.file, text, entry, std::nullopt});
  }

  const SyncState& state_;
  const LocalChanges& local_;
  const FolderChanges& folder_;
  std::time_t local_time_;
  BridgePlan plan_;
};

}  // namespace

std::string NewUid() {
  unsigned char bytes[16] = {};
  if (getrandom(bytes, sizeof bytes, 0) != static_cast<ssize_t>(sizeof bytes)) {
    const auto now = static_cast<unsigned long long>(std::time(nullptr));
    for (std::size_t i = 0; i < sizeof bytes; ++i) bytes[i] ^= static_cast<unsigned char>(now >> (i % 8 * 8));
  }
  char text[64];
  std::snprintf(text, sizeof text,
                "%02x%02x%02x%02x-%02x%02x-%02x%02x-%02x%02x-%02x%02x%02x%02x%02x%02x@velmo", bytes[0],
                bytes[1], bytes[2], bytes[3], bytes[4], bytes[5], bytes[6], bytes[7], bytes[8], bytes[9],
                bytes[10], bytes[11], bytes[12], bytes[13], bytes[14], bytes[15]);
  return text;
}

BridgePlan PlanBridge(const SyncState& state, const LocalChanges& local, const FolderChanges& folder,
                      std::time_t local_time) {
  return Planner(state, local, folder, local_time).Run();
}

}  // namespace velmo::sync
