// The options of `velmo add` and `velmo edit`, each changing one of the
// editor's values, and the commit of those values with the command line
// answering the commit's question from --yes and printing its refusals.
#pragma once

#include "editor/editor_values.h"
#include "platform/wintypes.h"

namespace velmo::cli {

// The option text of both commands, for their usage lines.
extern const char* const kTaskOptionsUsage;

// The --recurs names in the order of the "Occurs" choices 0-12 ("once" .. "yearly").
int RecurrenceChoiceOfName(const char* name);  // -1 when no choice has that name

// Applies the options argv[0..argc) to `values`. *yes is set by --yes. False,
// with what is wrong printed after "velmo COMMAND: ", for an unknown option or
// a bad value.
bool ApplyTaskOptions(const char* command, int argc, char** argv, EditorValues* values, bool* yes);

// Commits `values` to task `oid` (0: a new task) through the editor's commit.
// A past reminder is accepted only with `yes`; otherwise the question is
// printed and nothing is saved. A refused save prints the failure message (its
// caption and text) and a plain line under it. When saved, a deferred
// completion is carried out as the main window would, the task is re-read so
// that its reminder's notification is made, and *saved_oid receives its
// identifier (a copy has a new one). Returns the process exit code: 0 saved,
// 1 not.
int CommitFromCommandLine(const char* command, CEOID oid, const EditorValues& values, bool yes,
                          CEOID* saved_oid);

}  // namespace velmo::cli
