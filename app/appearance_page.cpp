// The "Appearance" page: the colours by their names, the notes preview pane,
// the font styles, the list's switches, and the information fields and icons
// of the normal and the compact list. The font sizes and the font quality are
// kept in the registry but not offered: a terminal draws every text in its own
// font.
#include <vector>

#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "list/draw_fields.h"
#include "res/dialogs_settings.h"
#include "settings/colors.h"
#include "settings/fonts.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr auto kTextColorNames = NameIds(kTextColors);
constexpr auto kBackgroundColorNames = NameIds(kBackgroundColors);
constexpr auto kFontStyleNames = NameIds(kFontStyles);
constexpr UINT kPreviewNames[] = {res::kTextPreviewFirst, res::kTextPreviewFirst + 1,
                                  res::kTextPreviewFirst + 2, res::kTextPreviewFirst + 3};

// The rows of the information lists, top down.
constexpr DWORD kInfoRows[res::kInfoFieldCount] = {
    kInfoStartDate, kInfoDueDate,   kInfoRelativeDays, kInfoDateCompleted,
    kInfoPriority,  kInfoRecurring, kInfoTeamTask,     kInfoReminder,
    kInfoNotes,     kInfoPrivate,   kInfoCategoryIcons, kInfoLinks,
};

PageField Colour(int id, DWORD Settings::*value, std::span<const UINT> names) {
  return {id, K::kChoice, value, nullptr, nullptr, names};
}

std::vector<PageField> MakeFields() {
  std::vector<PageField> fields = {
      Colour(kNormalColor, &Settings::normal_color, kTextColorNames),
      Colour(kFutureColor, &Settings::future_color, kTextColorNames),
      Colour(kOverdueColor, &Settings::overdue_color, kTextColorNames),
      Colour(kCompletedColor, &Settings::completed_color, kTextColorNames),
      Colour(kUndatedColor, &Settings::undated_color, kTextColorNames),
      Colour(kHighlightColor, &Settings::highlight_color, kBackgroundColorNames),
      Colour(kHighlightTextColor, &Settings::highlight_text_color, kTextColorNames),
      Colour(kNotesPreview, &Settings::notes_preview, kPreviewNames),
      Colour(kNotesPreviewColor, &Settings::notes_preview_color, kBackgroundColorNames),
      Colour(kNormalFont, &Settings::normal_font, kFontStyleNames),
      Colour(kTodayFont, &Settings::today_font, kFontStyleNames),
      {kGradient, K::kCheck, &Settings::gradient},
      {kCompressed, K::kCheck, &Settings::compressed},
      {kQuickEntry, K::kCheck, &Settings::quick_entry},
      {kNoEndScroll, K::kCheck, &Settings::no_end_scroll},
      {kEditCompact, K::kCheck, &Settings::edit_compact},
  };
  for (int row = 0; row < res::kInfoFieldCount; ++row) {
    PageField normal{kInfosFirst + row, K::kBit, &Settings::infos};
    normal.bit = kInfoRows[row];
    PageField compact{kInfosCompressedFirst + row, K::kBit, &Settings::infos_compressed};
    compact.bit = kInfoRows[row];
    fields.push_back(normal);
    fields.push_back(compact);
  }
  return fields;
}

}  // namespace

INT_PTR ShowAppearancePage(HWND owner) {
  static const std::vector<PageField> fields = MakeFields();
  static const PageDef page{res::kAppearancePage, fields};
  return RunSettingsPage(owner, page);
}

}  // namespace velmo::app
