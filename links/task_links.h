// The links a task record remembers: what the store fills in each time it reads
// a record, so that the list and the task's menu know the task's links without
// scanning again.
#pragma once

#include "store/task.h"

namespace velmo {

// Fills task.phone_number, task.web_link_count and task.mail_link_count from
// task.subject and the notes. ansi_notes is the record's notes as stored, in
// the device's ANSI code page (Windows-1252) and ending in a zero byte, or null
// when the record has no notes.
// The number is the subject's, else the notes'; a web address and an e-mail
// address are looked for in the notes first, then in the subject. Each count
// is 1 when such an address was found, else 0.
void FillTaskLinks(Task& task, const char* ansi_notes);

}  // namespace velmo
