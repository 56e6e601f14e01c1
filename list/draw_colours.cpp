// State colours by the task's dates, and colour indexes by the colour tables.
#include "list/draw_colours.h"

#include <array>

#include "list/view_rules.h"
#include "platform/ui/colours.h"
#include "settings/colors.h"

namespace velmo {
namespace {

constexpr bool IsSet(DATE d) { return d != kNoDate; }

// The platform's colour index of each system colour the tables name.
struct SystemIndex {
  SystemColor system;
  int index;
};

// The window system has no colours of its own for these; they follow the
// window's, as the phone's theme has them.
constexpr int kColorInactiveCaptionText = 19;
constexpr int kColorAppWorkspace = 12;
constexpr int kColorStatic = COLOR_WINDOW;
constexpr int kColorStaticText = COLOR_WINDOWTEXT;

constexpr std::array<SystemIndex, 17> kSystemIndexes = {{
    {SystemColor::kBtnText, COLOR_BTNTEXT},
    {SystemColor::kCaptionText, COLOR_CAPTIONTEXT},
    {SystemColor::kGrayText, COLOR_GRAYTEXT},
    {SystemColor::kHighlightText, COLOR_HIGHLIGHTTEXT},
    {SystemColor::kInactiveCaptionText, kColorInactiveCaptionText},
    {SystemColor::kInfoText, COLOR_INFOTEXT},
    {SystemColor::kMenuText, COLOR_MENUTEXT},
    {SystemColor::kStaticText, kColorStaticText},
    {SystemColor::kWindowText, COLOR_WINDOWTEXT},
    {SystemColor::kAppWorkspace, kColorAppWorkspace},
    {SystemColor::kBackground, COLOR_BACKGROUND},
    {SystemColor::kInfoBk, COLOR_INFOBK},
    {SystemColor::kMenu, COLOR_MENU},
    {SystemColor::kStatic, kColorStatic},
    {SystemColor::kWindow, COLOR_WINDOW},
    {SystemColor::kHighlight, COLOR_HIGHLIGHT},
    {SystemColor::kInactiveCaption, COLOR_INACTIVECAPTION},
}};

template <std::size_t N>
COLORREF Resolve(const std::array<NamedColor, N>& table, DWORD index, COLORREF fallback,
                 COLORREF no_change) {
  if (index >= N) return fallback;
  const NamedColor& c = table[index];
  if (c.system == SystemColor::kNone) return c.rgb;
  if (c.system == SystemColor::kNoChange) return no_change;
  for (const SystemIndex& s : kSystemIndexes) {
    if (s.system == c.system) return GetSysColor(s.index);
  }
  return fallback;
}

// Before the span: future; after a whole day past its end: overdue.
RowColour Span(DATE begin, DATE end, DATE now) {
  if (now < begin) return RowColour::kFuture;
  if (now > end + 1.0) return RowColour::kOverdue;
  return RowColour::kNormal;
}

}  // namespace

RowColour SubjectColour(const Task& task, DATE now) {
  if (task.complete) return RowColour::kCompleted;
  DATE start = task.start_date, due = EffectiveDueDate(task);
  if (!IsSet(start) && !IsSet(due)) return RowColour::kUndated;
  if (!IsSet(due)) return RowColour::kWindowText;
  return Span(IsSet(start) ? start : due, due, now);
}

RowColour DateColour(DATE date, DATE now) { return Span(date, date, now); }

COLORREF TextColourFromIndex(DWORD index, COLORREF no_change) {
  return Resolve(kTextColors, index, GetSysColor(COLOR_WINDOWTEXT), no_change);
}

COLORREF BackgroundColourFromIndex(DWORD index) {
  COLORREF window = GetSysColor(COLOR_WINDOW);
  return Resolve(kBackgroundColors, index, window, window);
}

}  // namespace velmo
