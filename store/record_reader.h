// Reading one record of the tasks database into a Task record: every property
// read in place, each mapped by the rules of the record format
// (store/task_props.h), then the fields worked out from several properties: the
// reminder time, the links and the search marks.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/cedb_in_place.h"
#include "store/task.h"

namespace velmo {

// Reads record `oid`, or with 0 the record at the position of the tasks
// database's handle (the read moves on to the next one). The task is first reset
// to its initial values. Returns TRUE, or FALSE when the record cannot be sought
// or read. A property of a type other than the expected one is skipped.
BOOL ReadTaskRecord(Task* task, CEOID oid);

// A record's texts as stored, found by FillTaskFields and decoded by
// FinishTask: UTF-16 bytes (empty when absent), and the notes in the device's
// ANSI code page, or none.
struct StoredTexts {
  std::string_view subject;
  std::string_view categories;
  std::string_view reminder_sound;
  std::optional<std::string_view> notes;
};

// Reading a record in two halves, which a load may do on two threads:
// FillTaskFields resets the task and fills every field but the texts and what
// is worked out from them (false, the task reset, when the record is damaged);
// FinishTask decodes the texts and works out the search marks and the links.
// scanned_notes is the notes ending in a zero byte, for the link scanners, or
// null. The texts must stay where they are in between.
bool FillTaskFields(CEOID oid, cedb::StoredRecord record, Task* task, StoredTexts* texts);
void FinishTask(Task* task, const StoredTexts& texts, const char* scanned_notes);
// FinishTask for notes that are not followed by a zero byte: they are copied
// into notes_room first, which keeps its room for the next task.
void FinishTaskCopyingNotes(Task* task, const StoredTexts& texts, std::string* notes_room);

// Fills a task from a record read in place (platform/cedb_in_place.h): the
// task is reset first; notes_room keeps the room the link scanners' copy of the
// notes needs, for the next record. False (the task reset) when the record is
// damaged.
bool FillTaskFromRecord(CEOID oid, cedb::StoredRecord record, Task* task, std::string* notes_room);

}  // namespace velmo
