// One run of the bridge: find the changes on both sides, decide, then write
// the database (one transaction), the files, and the state, in that order.
#include "sync/bridge.h"

#include "platform/cedb.h"
#include "sync/bridge_plan.h"

namespace velmo::sync {
namespace {

std::time_t DatabaseWriteTime(const TasksDatabase& tasks) {
  CEOIDINFOEX info{};
  info.wVersion = CEOIDINFOEX_VERSION;
  CEGUID volume = tasks.volume;
  if (!CeOidGetInfoEx(&volume, tasks.db_oid, &info)) return std::time(nullptr);
  const std::uint64_t ticks = FileTimeTicks(info.infDatabase.ftLastModified);
  return static_cast<std::time_t>(ticks / 10000000 - 11644473600ull);
}

bool WriteRecords(const TasksDatabase& tasks, BridgePlan* plan, BridgeReport* report) {
  if (plan->records.empty() && plan->record_removals.empty()) return true;
  CEGUID volume = tasks.volume;
  if (!cedb::BeginWriteBatch(&volume)) {
    report->problems.push_back("the tasks database cannot be written: " + cedb::LastFailure());
    return false;
  }
  bool ok = true;
  for (RecordWrite& w : plan->records) {
    if (w.identity_only) {
      ok = ok && WriteSyncIdentity(tasks.db, w.oid, w.uid, w.kept);
      continue;
    }
    const CEOID oid = ok ? WriteSyncRecord(tasks.db, w.oid, w.values, w.uid, w.kept) : 0;
    ok = oid != 0;
    if (ok && w.entry != static_cast<std::size_t>(-1)) plan->entries[w.entry].oid = oid;
    if (ok) ++report->to_database;
  }
  for (const CEOID oid : plan->record_removals) {
    ok = ok && CeDeleteRecord(tasks.db, oid);
    if (ok) ++report->tasks_removed;
  }
  if (!cedb::EndWriteBatch(&volume) || !ok) {
    report->problems.push_back("the tasks database could not be written: " + cedb::LastFailure());
    return false;
  }
  return true;
}

// Files that cannot be written leave their entry as it was before the run (or
// none), so the next run tries again.
void WriteFiles(const std::filesystem::path& folder, BridgePlan* plan, BridgeReport* report) {
  std::vector<bool> failed(plan->entries.size(), false);
  for (FileWrite& w : plan->files) {
    std::string error;
    FileStamp stamp;
    if (WriteTaskFile(folder, w.name, w.text, &stamp, &error)) {
      plan->entries[w.entry].stamp = stamp;
      ++report->to_folder;
      continue;
    }
    report->problems.push_back(error);
    if (w.previous) plan->entries[w.entry] = *w.previous;
    else failed[w.entry] = true;
  }
  for (const std::string& name : plan->file_removals) {
    std::string error;
    if (RemoveTaskFile(folder, name, &error)) ++report->files_removed;
    else report->problems.push_back(error);
  }
  std::vector<StateEntry> kept;
  for (std::size_t i = 0; i < plan->entries.size(); ++i)
    if (!failed[i]) kept.push_back(std::move(plan->entries[i]));
  plan->entries = std::move(kept);
}

}  // namespace

bool RunBridge(const TasksDatabase& tasks, const std::filesystem::path& folder, BridgeReport* report) {
  SyncState state;
  std::string error;
  if (!LoadState(StateFile(), &state, &error)) report->problems.push_back(error);
  const std::string folder_key = std::filesystem::absolute(folder).lexically_normal().string();
  if (state.folder != folder_key) state = SyncState{folder_key, -1, {}};

  FolderChanges folder_changes;
  if (!FindFolderChanges(folder, state, &folder_changes, &report->problems)) return false;
  LocalChanges local;
  if (!FindLocalChanges(tasks, state, &local)) {
    report->problems.push_back("the tasks database cannot be read: " + cedb::LastFailure());
    return false;
  }
  BridgePlan plan = PlanBridge(state, local, folder_changes, DatabaseWriteTime(tasks));
  report->conflicts = plan.conflicts;
  if (!WriteRecords(tasks, &plan, report)) return false;
  // The folder may have gone since it was read: then nothing is written into it
  // (a later run finds the records' changes again by their fingerprints).
  std::error_code ec;
  if (!std::filesystem::is_directory(folder, ec)) {
    report->problems.push_back("the folder " + folder.string() + " went away during the run");
    return false;
  }
  WriteFiles(folder, &plan, report);
  SyncState next{folder_key, local.journal, std::move(plan.entries)};
  if (!SaveState(StateFile(), next, &error)) {
    report->problems.push_back(error);
    return false;
  }
  return true;
}

}  // namespace velmo::sync
