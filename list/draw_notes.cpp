// The notes preview pane.
#include "list/draw_notes.h"

#include <algorithm>
#include <array>

#include "platform/ui/gdi.h"

namespace velmo {

int NotesPreviewLines(DWORD choice, int lines) {
  constexpr std::array<int, 4> kPaneLines = {0, 3, 5, 8};
  int wanted = kPaneLines[std::min<size_t>(choice, kPaneLines.size() - 1)];
  return std::min(wanted, lines / 2);
}

void DrawNotesPreview(HDC hdc, const RECT& pane, std::wstring_view notes,
                      const ListAppearance& look) {
  SetBkColor(hdc, look.notes_background);
  ExtTextOutW(hdc, pane.left, pane.top, ETO_OPAQUE, &pane, nullptr, 0, nullptr);
  int width = pane.right - pane.left, height = pane.bottom - pane.top;
  if (width <= 0 || height <= 0) return;
  // A line shown takes at most its width and a line break, so this much always fills the pane.
  notes = notes.substr(0, static_cast<size_t>(height) * static_cast<size_t>(width + 2));
  SetTextColor(hdc, look.notes_text);
  SetBkMode(hdc, TRANSPARENT);
  RECT text = pane;
  DrawTextW(hdc, notes.data(), static_cast<int>(notes.size()), &text,
            DT_LEFT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
}

}  // namespace velmo
