// The database's side of the bridge: the change journal since the last run
// names the records to look at; a record whose values' fingerprint is not the
// one the state keeps has changed. Without a usable journal position every
// record is looked at.
#include <unordered_map>

#include "platform/cedb_journal_position.h"
#include "sync/bridge_changes.h"

namespace velmo::sync {
namespace {

// The records the journal names as created or changed, and those deleted;
// false when every record must be read instead.
bool JournalChanges(HANDLE db, std::int64_t position, std::set<CEOID>* touched, std::set<CEOID>* gone) {
  if (position < 0 || !cedb::SetJournalPosition(db, position)) return false;
  std::vector<cedb::DbChange> changes;
  if (!cedb::PollChanges(db, &changes)) return false;
  for (const cedb::DbChange& c : changes) {
    if (c.oidParent == 0) return false;  // the whole database: more than the journal kept
    if (c.uType == DB_CEOID_RECORD_DELETED) {
      gone->insert(c.oid);
      touched->erase(c.oid);
    } else {
      touched->insert(c.oid);
      gone->erase(c.oid);
    }
  }
  return true;
}

bool ReadCandidates(const TasksDatabase& tasks, const SyncState& state, std::vector<SyncRecord>* records,
                    std::set<CEOID>* gone, bool* whole) {
  std::set<CEOID> touched;
  *whole = !JournalChanges(tasks.db, state.journal, &touched, gone);
  if (*whole) {
    gone->clear();
    // Start the journal here: what the next run reads begins after this read.
    std::vector<cedb::DbChange> ignored;
    cedb::PollChanges(tasks.db, &ignored);
    if (!ReadAllSyncRecords(tasks.db, records)) return false;
    std::set<CEOID> present;
    for (const SyncRecord& r : *records) present.insert(r.oid);
    for (const StateEntry& e : state.entries)
      if (!present.count(e.oid)) gone->insert(e.oid);
    return true;
  }
  for (const CEOID oid : touched) {
    SyncRecord r;
    if (ReadSyncRecord(tasks.db, oid, &r)) records->push_back(std::move(r));
    else gone->insert(oid);
  }
  return true;
}

}  // namespace

bool FindLocalChanges(const TasksDatabase& tasks, const SyncState& state, LocalChanges* out) {
  std::vector<SyncRecord> records;
  std::set<CEOID> gone;
  bool whole = false;
  if (!ReadCandidates(tasks, state, &records, &gone, &whole)) return false;
  cedb::GetJournalPosition(tasks.db, &out->journal);

  std::unordered_map<std::string, const StateEntry*> by_uid;
  std::unordered_map<CEOID, const StateEntry*> by_oid;
  for (const StateEntry& e : state.entries) {
    by_uid[e.uid] = &e;
    by_oid[e.oid] = &e;
  }
  for (const CEOID oid : gone)
    if (by_oid.count(oid)) out->deleted.insert(oid);

  for (SyncRecord& r : records) {
    const auto known = by_uid.find(r.uid);
    if (r.uid.empty()) {
      out->fresh.push_back(std::move(r));
    } else if (known != by_uid.end() && known->second->oid != r.oid) {
      // A copy of a synchronised task carries its UID along; the original keeps it
      // while it exists.
      SyncRecord original;
      const bool exists = !gone.count(known->second->oid) &&
                          (whole || ReadSyncRecord(tasks.db, known->second->oid, &original));
      if (exists) {
        out->fresh.push_back(std::move(r));
        continue;
      }
      // The entry's record went and this one holds its task now.
      out->deleted.erase(known->second->oid);
      out->moved[r.uid] = r.oid;
      if (ValuesFingerprint(r.values) != known->second->values) out->changed.emplace(r.uid, std::move(r));
    } else if (known != by_uid.end()) {
      if (ValuesFingerprint(r.values) != known->second->values) out->changed.emplace(r.uid, std::move(r));
    } else if (out->unpaired.count(r.uid)) {
      out->fresh.push_back(std::move(r));
    } else {
      out->unpaired.emplace(r.uid, std::move(r));
    }
  }
  return true;
}

}  // namespace velmo::sync
