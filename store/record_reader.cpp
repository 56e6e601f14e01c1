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

std::string_view BytesOf(const cedb::StoredProp& p) {
  return {reinterpret_cast<const char*>(p.data), p.size};
}

// The property identifiers carry their value type, so each case below reads a
// value of the type it names; a known property stored with another type is
// another identifier and is passed over. Texts are only noted here.
void ApplyProperty(const cedb::StoredProp& p, Task* t, StoredTexts* texts) {
  switch (p.propid) {
    case kPropSubject: texts->subject = BytesOf(p); break;
    case kPropCategories: texts->categories = BytesOf(p); break;
    case kPropReminderSound: texts->reminder_sound = BytesOf(p); break;
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
    case kPropNotes: {
      std::string_view notes;
      if (NotesOf(p.data, p.size, &notes)) {
        texts->notes = notes;
        t->notes_state = NotesStateOf(notes);
      } else {
        texts->notes.reset();
        t->notes_state = kNoNotes;
      }
      break;
    }
    default: break;  // another property, or a known one of an unexpected type
  }
}

void AssignText(std::string_view utf16, std::wstring* out) {
  cedb::AssignUtf16(reinterpret_cast<const BYTE*>(utf16.data()), utf16.size(), out);
}

// A fresh record's values. Copying empty texts keeps the texts' room for the
// record read next.
void ResetTask(Task* task) {
  static const Task kFresh;
  *task = kFresh;
}

}  // namespace

bool FillTaskFields(CEOID oid, cedb::StoredRecord record, Task* task, StoredTexts* texts) {
  // Only the values: FinishTask sets every text field.
  static_cast<TaskRecordValues&>(*task) = TaskRecordValues();
  *texts = {};
  task->oid = oid;
  cedb::StoredProp prop;
  while (record.Next(&prop)) ApplyProperty(prop, task, texts);
  if (record.damaged()) {
    ResetTask(task);
    return false;
  }
  task->reminder_time = ReminderTimeOf(*task);
  return true;
}

void FinishTask(Task* task, const StoredTexts& texts, const char* scanned_notes) {
  AssignText(texts.subject, &task->subject);
  AssignText(texts.categories, &task->categories);
  AssignText(texts.reminder_sound, &task->reminder_sound);
  task->search_match = RecordSearchMarks(task->subject, texts.notes.value_or(std::string_view()));
  if (!texts.notes) task->search_match &= ~kSearchMatchNotes;
  FillTaskLinks(*task, scanned_notes);
}

void FinishTaskCopyingNotes(Task* task, const StoredTexts& texts, std::string* notes_room) {
  // The scanners read text that ends in a zero byte, which stored notes need not
  // hold: they get a copy.
  if (texts.notes) notes_room->assign(*texts.notes);
  FinishTask(task, texts, texts.notes ? notes_room->c_str() : nullptr);
}

bool FillTaskFromRecord(CEOID oid, cedb::StoredRecord record, Task* task, std::string* notes_room) {
  StoredTexts texts;
  if (!FillTaskFields(oid, record, task, &texts)) return false;
  FinishTaskCopyingNotes(task, texts, notes_room);
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
