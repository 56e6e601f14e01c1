#include "store/record_reader.h"

#include "links/task_links.h"
#include "list/search_marks.h"
#include "platform/cedb_in_place.h"
#include "reminders/reminder_time.h"
#include "store/connection.h"
#include "store/notes_text.h"
#include "store/task_props.h"

namespace velmo {
namespace {

// Importance as stored: 1 high, 3 low, anything else normal.
LONG ImportanceFromStored(LONG stored) {
  if (stored == 1) return kImportanceHigh;
  if (stored == 3) return kImportanceLow;
  return kImportanceNormal;
}

DATE DateOf(const cedb::StoredProp& p) {
  DATE date = kNoDate;
  return FileTimeToDate(cedb::FileTimeOf(p), &date) ? date : kNoDate;
}

// What the walk over the properties found besides the fields: the notes as
// stored, read in place.
struct Notes {
  bool present = false;
  std::string_view text;
};

// The property identifiers carry their value type, so each case below reads a
// value of the type it names; a known property stored with another type is
// another identifier and is passed over.
void ApplyProperty(const cedb::StoredProp& p, Task* t, Notes* notes) {
  switch (p.propid) {
    case kPropSubject: cedb::AssignText(p, &t->subject); break;
    case kPropCategories: cedb::AssignText(p, &t->categories); break;
    case kPropReminderSound: cedb::AssignText(p, &t->reminder_sound); break;
    case kPropStartDate: t->start_date = DateOf(p); break;
    case kPropDueDate: t->due_date = DateOf(p); break;
    case kPropDateCompleted: t->date_completed = DateOf(p); break;
    case kPropComplete: t->complete = cedb::UInt16Of(p); break;
    case kPropRecurring: t->recurring = cedb::UInt16Of(p); break;
    case kPropTeamTask: t->team_task = cedb::UInt16Of(p); break;
    case kPropReminderSet: t->reminder_set = cedb::UInt16Of(p); break;
    case kPropImportance: t->importance = ImportanceFromStored(cedb::Int32Of(p)); break;
    case kPropSensitivity:
      t->sensitivity = cedb::Int16Of(p) == 1 ? kSensitivityPrivate : kSensitivityNormal;
      break;
    case kPropReminderBaseFlag: t->reminder_base_flag = cedb::Int16Of(p); break;
    case kPropReminderMinutes: t->reminder_minutes = cedb::Int32Of(p); break;
    case kPropReminderOptions: t->reminder_options = cedb::Int32Of(p); break;
    case kPropNotificationHandle: t->notification_handle = cedb::UInt32Of(p); break;
    case kPropNotes:
      notes->present = NotesOf(p.data, p.size, &notes->text);
      if (notes->present) t->notes_state = NotesStateOf(notes->text);
      break;
    default: break;  // another property, or a known one of an unexpected type
  }
}

// A fresh record's values. Copying empty texts keeps the texts' room for the
// record read next.
void ResetTask(Task* task) {
  static const Task kFresh;
  *task = kFresh;
}

}  // namespace

bool FillTaskFromRecord(CEOID oid, cedb::StoredRecord record, Task* task, std::string* notes_room) {
  ResetTask(task);
  task->oid = oid;
  Notes notes;
  cedb::StoredProp prop;
  while (record.Next(&prop)) ApplyProperty(prop, task, &notes);
  if (record.damaged()) {
    ResetTask(task);
    return false;
  }

  task->reminder_time = ReminderTimeOf(*task);
  // The scanners read text that ends in a zero byte, which stored notes need not
  // hold: they get a copy.
  const char* scanned_notes = nullptr;
  if (notes.present) {
    notes_room->assign(notes.text);
    scanned_notes = notes_room->c_str();
  }
  FillTaskLinks(*task, scanned_notes);
  task->search_match = RecordSearchMarks(task->subject, notes.text);
  if (!notes.present) task->search_match &= ~kSearchMatchNotes;
  return true;
}

BOOL ReadTaskRecord(Task* task, CEOID oid) {
  StoreConnection& store = Store();
  cedb::StoredRecord record;
  const bool sought = oid == 0 || CeSeekDatabase(store.tasks_db, CEDB_SEEK_CEOID, oid, nullptr) == oid;
  const CEOID read = sought ? cedb::ReadRecordInPlace(store.tasks_db, &record) : 0;
  if (read == 0 || (oid != 0 && read != oid)) {
    ResetTask(task);
    return FALSE;
  }
  return FillTaskFromRecord(read, record, task, &store.notes_copy) ? TRUE : FALSE;
}

}  // namespace velmo
