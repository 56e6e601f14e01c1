#include "store/record_reader.h"

#include "links/task_links.h"
#include "list/search_marks.h"
#include "platform/cedb.h"
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

DATE DateOf(const FILETIME& ft) {
  DATE date = kNoDate;
  return FileTimeToDate(ft, &date) ? date : kNoDate;
}

const wchar_t* TextOf(const CEPROPVAL& p) { return p.val.lpwstr ? p.val.lpwstr : L""; }

// What the walk over the properties found besides the fields: the notes as
// stored, read in place in the read buffer.
struct Notes {
  bool present = false;
  std::string_view text;
};

void ApplyProperty(const CEPROPVAL& p, Task* t, Notes* notes) {
  if (p.wFlags & CEDB_PROPNOTFOUND) return;
  switch (p.propid) {
    case kPropSubject: t->subject = TextOf(p); break;
    case kPropCategories: t->categories = TextOf(p); break;
    case kPropReminderSound: t->reminder_sound = TextOf(p); break;
    case kPropStartDate: t->start_date = DateOf(p.val.filetime); break;
    case kPropDueDate: t->due_date = DateOf(p.val.filetime); break;
    case kPropDateCompleted: t->date_completed = DateOf(p.val.filetime); break;
    case kPropComplete: t->complete = p.val.uiVal; break;
    case kPropRecurring: t->recurring = p.val.uiVal; break;
    case kPropTeamTask: t->team_task = p.val.uiVal; break;
    case kPropReminderSet: t->reminder_set = p.val.uiVal; break;
    case kPropImportance: t->importance = ImportanceFromStored(p.val.lVal); break;
    case kPropSensitivity: t->sensitivity = p.val.iVal == 1 ? kSensitivityPrivate : kSensitivityNormal; break;
    case kPropReminderBaseFlag: t->reminder_base_flag = p.val.iVal; break;
    case kPropReminderMinutes: t->reminder_minutes = p.val.lVal; break;
    case kPropReminderOptions: t->reminder_options = p.val.lVal; break;
    case kPropNotificationHandle: t->notification_handle = p.val.ulVal; break;
    case kPropNotes:
      notes->present = NotesOf(p.val.blob.lpb, p.val.blob.dwCount, &notes->text);
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

BOOL ReadTaskRecord(Task* task, CEOID oid) {
  StoreConnection& store = Store();
  ResetTask(task);  // a failed read leaves the initial values
  const auto fail = [oid] {
    if (oid != 0) FreeReadBuffer();
    return FALSE;
  };
  if (oid != 0 && CeSeekDatabase(store.tasks_db, CEDB_SEEK_CEOID, oid, nullptr) != oid) return fail();
  WORD count = 0;
  const CEOID read = CeReadRecordProps(store.tasks_db, CEDB_ALLOWREALLOC, &count, nullptr,
                                       &store.read_buffer, &store.read_buffer_size);
  if (read == 0 || (oid != 0 && read != oid)) return fail();

  task->oid = read;
  Notes notes;
  const auto* props = reinterpret_cast<const CEPROPVAL*>(store.read_buffer);
  for (WORD i = 0; i < count; ++i) ApplyProperty(props[i], task, &notes);

  task->reminder_time = ReminderTimeOf(*task);
  // The read buffer holds a zero byte after each blob, so the notes end in one
  // even when no zero byte is stored.
  FillTaskLinks(*task, notes.present ? notes.text.data() : nullptr);
  task->search_match = RecordSearchMarks(task->subject, notes.text);
  if (!notes.present) task->search_match &= ~kSearchMatchNotes;
  if (oid != 0) FreeReadBuffer();
  return TRUE;
}

}  // namespace velmo
