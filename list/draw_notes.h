// The notes preview pane: the selected task's notes, word-wrapped, under the
// list, on the "NotesPreviewColor" background.
#pragma once

#include <string_view>

#include "list/draw_appearance.h"
#include "platform/ui/types.h"

namespace velmo {

// Lines the pane takes for the "NotesPreview" choice (0 off, 1 small, 2 medium,
// 3 large) when the list and the pane share `lines` lines; never more than half.
int NotesPreviewLines(DWORD choice, int lines);

// Fills `pane` and writes as much of the notes as fits, wrapped at blanks.
void DrawNotesPreview(HDC hdc, const RECT& pane, std::wstring_view notes,
                      const ListAppearance& look);

}  // namespace velmo
