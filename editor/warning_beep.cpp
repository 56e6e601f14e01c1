// The editor's refusal sound, apart from the files that show message boxes
// (the sound kinds and the box styles share their names).
#include "editor/editor_dialog.h"
#include "platform/beep.h"

namespace velmo::editor {

void WarningBeep() { MessageBeep(MB_ICONEXCLAMATION); }

}  // namespace velmo::editor
