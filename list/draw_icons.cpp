// The status icon glyphs: single-width characters, so that a row's layout never
// depends on how a terminal widens a pictograph.
#include "list/draw_icons.h"

#include <algorithm>
#include <iterator>

#include "platform/ui/glyphs.h"

namespace velmo {
namespace {

struct IconEntry {
  int index;
  IconGlyph glyph;
};

constexpr IconEntry kIcons[] = {
    {kIconHighPriority, {L'!', RGB(0xD0, 0x00, 0x00)}},
    {kIconLowPriority, {ui::Glyph(ui::kGlyphLowPriority), RGB(0x00, 0x60, 0xD0)}},
    {kIconRecurring, {ui::Glyph(ui::kGlyphRecurring), std::nullopt}},
    {kIconCompleted, {ui::Glyph(ui::kGlyphCheckMark), RGB(0x00, 0x90, 0x00)}},
    {kIconReminder, {ui::Glyph(ui::kGlyphReminder), std::nullopt}},
    {kIconNotes, {ui::Glyph(ui::kGlyphNotes), std::nullopt}},
    {kIconPrivate, {ui::Glyph(ui::kGlyphPrivate), std::nullopt}},
    {kIconTeamTask, {ui::Glyph(ui::kGlyphTeamTask), std::nullopt}},
    {kIconLinks, {L'@', std::nullopt}},
};

}  // namespace

IconGlyph StatusIconGlyph(int index) {
  auto it = std::find_if(std::begin(kIcons), std::end(kIcons),
                         [index](const IconEntry& e) { return e.index == index; });
  return it == std::end(kIcons) ? IconGlyph{} : it->glyph;
}

}  // namespace velmo
