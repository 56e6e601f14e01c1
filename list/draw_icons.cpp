// The status icon glyphs: single-width characters, so that a row's layout never
// depends on how a terminal widens a pictograph.
#include "list/draw_icons.h"

#include <algorithm>
#include <iterator>

namespace velmo {
namespace {

struct IconEntry {
  int index;
  IconGlyph glyph;
};

const IconEntry kIcons[] = {
    {kIconHighPriority, {L'!', RGB(0xD0, 0x00, 0x00)}},
    {kIconLowPriority, {L'\u2193', RGB(0x00, 0x60, 0xD0)}},  // ↓
    {kIconRecurring, {L'\u21BB', std::nullopt}},             // ↻
    {kIconCompleted, {L'\u2713', RGB(0x00, 0x90, 0x00)}},    // ✓
    {kIconReminder, {L'\u25F7', std::nullopt}},              // ◷
    {kIconNotes, {L'\u2261', std::nullopt}},                 // ≡
    {kIconPrivate, {L'\u2298', std::nullopt}},               // ⊘
    {kIconTeamTask, {L'\u21C4', std::nullopt}},              // ⇄
    {kIconLinks, {L'@', std::nullopt}},
};

}  // namespace

IconGlyph StatusIconGlyph(int index) {
  auto it = std::find_if(std::begin(kIcons), std::end(kIcons),
                         [index](const IconEntry& e) { return e.index == index; });
  return it == std::end(kIcons) ? IconGlyph{} : it->glyph;
}

}  // namespace velmo
