// One row of the task list, drawn through the device context.
#include "list/draw_row.h"

#include <algorithm>
#include <string>
#include <vector>

#include "format/current_pictures.h"
#include "list/draw_fields.h"
#include "list/draw_icons.h"
#include "list/view_rules.h"
#include "platform/clock.h"
#include "platform/ui/gdi.h"
#include "platform/ui/screen.h"
#include "platform/ui/screen_depth.h"
#include "platform/ui/window.h"

namespace velmo {
namespace {

constexpr bool IsSet(DATE d) { return d != kNoDate; }
constexpr int kMargin = 1;  // blank cells at either end of a row

// Without colours, a row's state shows as a mark in its left margin instead.
struct StateMark {
  RowColour colour;
  wchar_t mark;
};
constexpr StateMark kStateMarks[] = {
    {RowColour::kOverdue, L'!'},
    {RowColour::kFuture, L'+'},
    {RowColour::kUndated, L'?'},
    {RowColour::kCompleted, L'-'},
};

void DrawStateMark(HDC hdc, int x, int y, RowColour state, COLORREF ink) {
  for (const StateMark& m : kStateMarks) {
    if (m.colour != state) continue;
    SetTextColor(hdc, ink);
    TextOutW(hdc, x, y, &m.mark, 1);
  }
}

void FillLine(HDC hdc, int left, int right, int y, COLORREF colour) {
  RECT line{left, y, right, y + 1};
  SetBkColor(hdc, colour);
  ExtTextOutW(hdc, left, y, ETO_OPAQUE, &line, nullptr, 0, nullptr);
}

int PieceWidth(const RowPiece& p) {
  switch (p.kind) {
    case RowPiece::Kind::kText:
      return ui::TextWidth(p.text);
    case RowPiece::Kind::kIcon:
      return 1;
    case RowPiece::Kind::kCategoryIcon:
      return kIconCells;
  }
  return 0;
}

struct Ink {
  COLORREF row;       // the subject's colour on this row
  bool selected;
  const ListAppearance& look;
};

void DrawPiece(HDC hdc, const RowPiece& p, RECT area, const Ink& ink) {
  switch (p.kind) {
    case RowPiece::Kind::kText: {
      SetTextColor(hdc, ink.selected ? ink.row : ink.look.colours[static_cast<int>(p.colour)]);
      DrawTextW(hdc, p.text.c_str(), static_cast<int>(p.text.size()), &area,
                DT_RIGHT | DT_SINGLELINE | DT_EXPANDTABS | DT_NOPREFIX);
      return;
    }
    case RowPiece::Kind::kIcon: {
      IconGlyph g = StatusIconGlyph(p.icon);
      if (!g.glyph) return;
      SetTextColor(hdc, g.colour.value_or(ink.row));
      TextOutW(hdc, area.right - 1, area.top, &g.glyph, 1);
      return;
    }
    case RowPiece::Kind::kCategoryIcon: {
      int x = area.right - kIconCells;
      for (const IconCell& cell : *p.cells) {
        if (!cell.continuation) {
          SetTextColor(hdc, cell.foreground.value_or(ink.row));
          SetBkMode(hdc, cell.background ? OPAQUE : TRANSPARENT);
          if (cell.background) SetBkColor(hdc, *cell.background);
          TextOutW(hdc, x, area.top, &cell.glyph, 1);
        }
        ++x;
      }
      SetBkMode(hdc, TRANSPARENT);
      return;
    }
  }
}

// Lays the pieces from `right` leftwards on line y, none left of `limit`; a
// piece that does not fit whole ends the laying. Returns the left edge reached.
int LayPieces(HDC hdc, const std::vector<RowPiece>& pieces, int right, int limit, int y,
              const Ink& ink) {
  bool first = true;
  for (const RowPiece& p : pieces) {
    int gap = first || p.joined ? 0 : 1;
    int width = PieceWidth(p);
    if (right - gap - width < limit) break;
    right -= gap;
    DrawPiece(hdc, p, RECT{right - width, y, right, y + 1}, ink);
    right -= width;
    first = false;
  }
  return right;
}

}  // namespace

bool IsTodaysTask(const Task& task, DATE now) {
  if (task.complete) return false;
  long today = WholeDay(now);
  DATE due = EffectiveDueDate(task);
  return (IsSet(due) && WholeDay(due) == today) ||
         (IsSet(task.start_date) && WholeDay(task.start_date) == today);
}

COLORREF ListLineColour(const ListAppearance& look, int line, int lines) {
  if (!look.gradient || lines < 2) return look.window;
  line = std::clamp(line, 0, lines - 1);
  auto channel = [line, lines](BYTE top, BYTE bottom) {
    return static_cast<BYTE>(top + (static_cast<int>(bottom) - top) * line / (lines - 1));
  };
  COLORREF a = look.window, b = look.gradient_bottom;
  return RGB(channel(GetRValue(a), GetRValue(b)), channel(GetGValue(a), GetGValue(b)),
             channel(GetBValue(a), GetBValue(b)));
}

void DrawTaskRow(HDC hdc, const RECT& rect, const Task& task, const RowDrawState& state) {
  ListAppearance made;
  if (!state.appearance) made = MakeListAppearance();
  const ListAppearance& look = state.appearance ? *state.appearance : made;
  DATE now = IsSet(state.now) ? state.now : NowAsDate();

  for (int y = rect.top; y < rect.bottom; ++y) {
    COLORREF back = state.selected ? look.highlight_background
                                   : ListLineColour(look, y, state.list_lines);
    FillLine(hdc, rect.left, rect.right, y, back);
  }
  SetBkMode(hdc, TRANSPARENT);

  RowColour subject_state = SubjectColour(task, now);
  COLORREF row = look.colours[static_cast<int>(subject_state)];
  if (state.selected && look.highlight_text) row = *look.highlight_text;
  Ink ink{row, state.selected, look};
  if (ui::ScreenDepth() == ui::ColourDepth::kMono)
    DrawStateMark(hdc, rect.left, rect.top, subject_state, row);

  DWORD infos = state.compact ? look.infos_compressed : look.infos;
  std::vector<RowPiece> pieces =
      RowInfoPieces(task, infos, now, format::Pictures().short_date);
  int left = rect.left + kMargin, right = rect.right - kMargin;
  int subject_right = right;
  if (state.compact) {
    // The subject keeps at least a third of the line (or all it needs, if less).
    int keep = std::min(ui::TextWidth(task.subject), (right - left) / 3);
    int reached = LayPieces(hdc, pieces, right, left + keep + 1, rect.top, ink);
    subject_right = reached < right ? reached - 1 : right;
  } else if (rect.bottom - rect.top > 1) {
    LayPieces(hdc, pieces, right, left, rect.top + 1, ink);
  }

  HGDIOBJ old_font =
      SelectObject(hdc, ListFont(IsTodaysTask(task, now) ? look.today_font : look.normal_font));
  SetTextColor(hdc, row);
  RECT subject{left, rect.top, subject_right, rect.top + 1};
  DrawTextW(hdc, task.subject.c_str(), static_cast<int>(task.subject.size()), &subject,
            DT_LEFT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  if (old_font) SelectObject(hdc, old_font);
}

BOOL DrawTaskItem(const DRAWITEMSTRUCT* item, const Task& task) {
  if (!item) return FALSE;
  RECT client{};
  GetClientRect(item->hwndItem, &client);
  ListAppearance look = MakeListAppearance();
  RowDrawState state;
  state.selected = (item->itemState & ODS_SELECTED) != 0;
  state.compact = CompactList();
  state.list_lines = client.bottom - client.top;
  state.appearance = &look;
  DrawTaskRow(item->hDC, item->rcItem, task, state);
  return TRUE;
}

}  // namespace velmo
