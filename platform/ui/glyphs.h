// Every character the program draws beyond ASCII, each with the ASCII stand-in
// a terminal that does not draw UTF-8 shows instead. Code names a glyph by its
// identifier and draws `Glyph(id)`; the screen swaps in the stand-in when the
// terminal needs it (Screen::set_ascii), so drawing code never asks which form.
// A new control that draws a new character adds an identifier and a row below.
#pragma once

#include <iterator>

namespace velmo::ui {

enum GlyphId : int {
  // Frames of menus, dialogs and message boxes.
  kGlyphFrameHorizontal,
  kGlyphFrameVertical,
  kGlyphFrameTopLeft,
  kGlyphFrameTopRight,
  kGlyphFrameBottomLeft,
  kGlyphFrameBottomRight,
  kGlyphFrameTeeLeft,
  kGlyphFrameTeeRight,
  // Marks in menus and text fields.
  kGlyphEllipsis,      // a text cut short
  kGlyphCheckMark,     // a checked menu item, a completed task
  kGlyphRadioMark,     // the chosen item of a group
  kGlyphSubmenu,       // an item that opens a menu
  kGlyphNextMark,      // "Next Task »"
  kGlyphPreviousMark,  // "Previous Task «"
  kGlyphInvertedExclamation,
  // Message box signs.
  kGlyphErrorSign,
  // The status icons of a task row.
  kGlyphLowPriority,
  kGlyphRecurring,
  kGlyphReminder,
  kGlyphNotes,
  kGlyphPrivate,
  kGlyphTeamTask,
  // The tray sign of a day with tasks due.
  kGlyphToday,
  // The halves of a cell of a category's picture.
  kGlyphUpperHalfBlock,
  kGlyphLowerHalfBlock,
  // Controls: up-down arrows, scroll marks, the calendar's month buttons.
  kGlyphArrowUp,
  kGlyphArrowDown,
  kGlyphArrowLeft,
  kGlyphArrowRight,
  kGlyphCheckBoxOff,
  kGlyphCheckBoxOn,
  kGlyphCount
};

struct GlyphForms {
  wchar_t utf8;
  char ascii;
};

struct GlyphRow {
  GlyphId id;
  GlyphForms forms;
};

// In the order of GlyphId.
inline constexpr GlyphRow kGlyphs[] = {
    {kGlyphFrameHorizontal, {L'\u2500', '-'}},      // ─
    {kGlyphFrameVertical, {L'\u2502', '|'}},        // │
    {kGlyphFrameTopLeft, {L'\u250C', '+'}},         // ┌
    {kGlyphFrameTopRight, {L'\u2510', '+'}},        // ┐
    {kGlyphFrameBottomLeft, {L'\u2514', '+'}},      // └
    {kGlyphFrameBottomRight, {L'\u2518', '+'}},     // ┘
    {kGlyphFrameTeeLeft, {L'\u251C', '+'}},         // ├
    {kGlyphFrameTeeRight, {L'\u2524', '+'}},        // ┤
    {kGlyphEllipsis, {L'\u2026', '~'}},             // …
    {kGlyphCheckMark, {L'\u2713', 'x'}},            // ✓
    {kGlyphRadioMark, {L'\u2022', '*'}},            // •
    {kGlyphSubmenu, {L'\u25B8', '>'}},              // ▸
    {kGlyphNextMark, {L'\u00BB', '>'}},             // »
    {kGlyphPreviousMark, {L'\u00AB', '<'}},         // «
    {kGlyphInvertedExclamation, {L'\u00A1', '!'}},  // ¡
    {kGlyphErrorSign, {L'\u2716', 'X'}},            // ✖
    {kGlyphLowPriority, {L'\u2193', 'v'}},          // ↓
    {kGlyphRecurring, {L'\u21BB', 'r'}},            // ↻
    {kGlyphReminder, {L'\u25F7', 'o'}},             // ◷
    {kGlyphNotes, {L'\u2261', '='}},                // ≡
    {kGlyphPrivate, {L'\u2298', 'p'}},              // ⊘
    {kGlyphTeamTask, {L'\u21C4', 't'}},             // ⇄
    {kGlyphToday, {L'\u263C', '*'}},                // ☼
    {kGlyphUpperHalfBlock, {L'\u2580', '"'}},       // ▀
    {kGlyphLowerHalfBlock, {L'\u2584', '_'}},       // ▄
    {kGlyphArrowUp, {L'\u25B4', '^'}},              // ▴
    {kGlyphArrowDown, {L'\u25BE', 'v'}},            // ▾
    {kGlyphArrowLeft, {L'\u25C2', '<'}},            // ◂
    {kGlyphArrowRight, {L'\u25B8', '>'}},           // ▸
    {kGlyphCheckBoxOff, {L'\u2610', '_'}},          // ☐
    {kGlyphCheckBoxOn, {L'\u2611', 'x'}},           // ☑
};
static_assert(std::size(kGlyphs) == kGlyphCount, "one row for every glyph");

constexpr bool GlyphsInIdOrder() {
  for (int i = 0; i < kGlyphCount; ++i)
    if (kGlyphs[i].id != i) return false;
  return true;
}
static_assert(GlyphsInIdOrder(), "the rows are in the order of GlyphId");

// The UTF-8 form of a glyph: what drawing code writes.
constexpr wchar_t Glyph(GlyphId id) { return kGlyphs[id].forms.utf8; }

// What a terminal that draws only ASCII shows for `ch`: the character itself
// when it is ASCII, the stand-in of a glyph of the table, a letter without its
// accent (é -> e), else '?'.
char AsciiStandIn(wchar_t ch);

}  // namespace velmo::ui
