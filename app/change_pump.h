// The message loop's side of the change journal: the databases opened with a
// change-notification request are looked at while the loop is idle, and each
// change made by any process is posted to the window that asked for it as the
// platform's DB_CEOID_* message.
#pragma once

namespace velmo::app {

// How often an idle loop looks at the journal.
constexpr unsigned kChangePollMs = 200;

// Starts looking (once per run); StopChangePump ends it.
void StartChangePump();
void StopChangePump();

// One look now: posts what changed. A handle whose journal cannot be read any
// more is reported to its window once, as kMsgDatabaseLost.
void PumpDatabaseChanges();

}  // namespace velmo::app
