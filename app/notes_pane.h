// The notes preview pane under the list: the selected task's notes, as many
// lines as "NotesPreview" asks for (none when it is off), on the
// "NotesPreviewColor" background.
#pragma once

#include "platform/ui/types.h"

namespace velmo::app {

// Made hidden under the main window; null when it cannot be made.
HWND CreateNotesPane(HWND parent);
// Lines the pane takes out of `lines` for the list and the pane together.
int NotesPaneLines(int lines);
// The selection or its task changed: the pane shows it afresh.
void RefreshNotesPane();

}  // namespace velmo::app
