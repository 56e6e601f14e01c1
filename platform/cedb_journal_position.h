// A database handle's place in its volume's change journal, kept from one
// process to the next: the synchronisation bridge reads the changes made since
// its last run from there.
#pragma once

#include <cstdint>

#include "platform/cedb.h"

namespace velmo::cedb {

// The handle's place in the change journal, as a number a later process can
// give back to SetJournalPosition.
bool GetJournalPosition(HANDLE db, std::int64_t* position);
// Moves the handle's place in the journal to a number GetJournalPosition gave;
// the next PollChanges reads the changes made after it. False
// (ERROR_INVALID_PARAMETER) when the journal never reached it, as for a volume
// made again since.
bool SetJournalPosition(HANDLE db, std::int64_t position);

}  // namespace velmo::cedb
