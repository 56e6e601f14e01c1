#include "categories/dialog/check_list.h"

#include "categories/category_icons.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "categories/category_strings.h"
#include "platform/ui/gdi.h"
#include "platform/ui/glyphs.h"
#include "platform/ui/list_view.h"
#include "platform/ui/window.h"
#include "res/dialogs_categories.h"
#include "res/strings.h"

namespace velmo::category_dialog {
namespace {

// The list's check boxes are its rows' state images: 1 unchecked, 2 checked.
constexpr UINT kStateImageMask = 0xF000;
constexpr UINT kUnchecked = 0x1000;
constexpr UINT kChecked = 0x2000;

constexpr WORD kUsed = InLoadedTasks | InFilter;

const CategoryEntry* EntryOf(LPARAM index) {
  const CategoryList& catalogue = CategoryCatalogue();
  if (index < 0 || index >= catalogue.count()) return nullptr;
  return &catalogue.entries[static_cast<size_t>(index)];
}

LPARAM ParamOf(HWND list, int item) {
  LVITEMW lv{};
  lv.mask = LVIF_PARAM;
  lv.iItem = item;
  return ListView_GetItem(list, &lv) ? lv.lParam : -1;
}

// Replaces "%s" and each "%d" of the title's format in order.
std::wstring FormatTitle(std::wstring_view format, std::wstring_view caption, int checked, int items) {
  std::wstring out;
  int numbers = 0;
  for (size_t i = 0; i < format.size(); ++i) {
    if (format[i] == L'%' && i + 1 < format.size() && (format[i + 1] == L's' || format[i + 1] == L'd')) {
      out += format[++i] == L's' ? std::wstring(caption) : std::to_wstring(numbers++ == 0 ? checked : items);
    } else {
      out += format[i];
    }
  }
  return out;
}

}  // namespace

bool Offers(CategoriesDialogMode mode, int index, const CategoryEntry& entry) {
  switch (mode) {
    case kCategoriesForFilter: return (entry.marks & kUsed) != 0;
    case kCategoriesForTask: return index > 0 && (entry.marks & (kUsed | ForNewTasks)) != 0;
    case kCategoriesAll: return index > 0;
  }
  return false;
}

bool ReportsIcon(CategoriesDialogMode mode, const CategoryEntry& entry) {
  switch (mode) {
    case kCategoriesForFilter: return (entry.marks & kUsed) != 0;
    case kCategoriesForTask: return (entry.marks & (kUsed | ForNewTasks)) != 0;
    case kCategoriesAll: return true;
  }
  return false;
}

void FillCheckList(HWND list, CategoriesDialogMode mode, const CategoryList& checked,
                   const std::wstring* focus) {
  ListView_DeleteAllItems(list);
  const CategoryList& catalogue = CategoryCatalogue();
  LPARAM focus_param = -1;
  for (int i = catalogue.count() - 1; i >= 0; --i) {
    const CategoryEntry& entry = catalogue.entries[static_cast<size_t>(i)];
    if (!Offers(mode, i, entry)) continue;
    std::wstring text = CategoryNameForDisplay(entry.name);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE | LVIF_IMAGE;
    item.iItem = 0;
    item.pszText = text.data();
    item.lParam = i;
    item.iImage = entry.icon_index;
    item.state = FindCategory(checked, entry.name) >= 0 ? kChecked : kUnchecked;
    item.stateMask = kStateImageMask;
    ListView_InsertItem(list, &item);
    if (focus && SameCategoryName(entry.name, *focus)) focus_param = i;
  }
  int target = -1;
  if (focus_param >= 0) {
    LVFINDINFOW find{LVFI_PARAM, nullptr, focus_param};
    target = ListView_FindItem(list, -1, &find);
  }
  for (int i = 0, n = ListView_GetItemCount(list); target < 0 && i < n; ++i)
    if (IsChecked(list, i)) target = i;
  if (target < 0 && ListView_GetItemCount(list) > 0) target = 0;
  if (target < 0) return;
  ListView_SetItemState(list, target, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  ListView_EnsureVisible(list, target, FALSE);
}

bool IsChecked(HWND list, int item) {
  return ListView_GetItemState(list, item, kStateImageMask) == kChecked;
}

void SetChecked(HWND list, int item, bool on) {
  ListView_SetItemState(list, item, on ? kChecked : kUnchecked, kStateImageMask);
}

int CheckedCount(HWND list) {
  int count = 0;
  for (int i = 0, n = ListView_GetItemCount(list); i < n; ++i) count += IsChecked(list, i) ? 1 : 0;
  return count;
}

std::wstring CheckedCategories(HWND list) {
  std::wstring out;
  bool first = true;
  for (int i = 0, n = ListView_GetItemCount(list); i < n; ++i) {
    const CategoryEntry* entry = IsChecked(list, i) ? EntryOf(ParamOf(list, i)) : nullptr;
    if (!entry) continue;
    if (!first) out += L',';
    out += CategoryNameForString(entry->name);
    first = false;
  }
  return out;
}

std::wstring CheckListTitle(HWND list) {
  return FormatTitle(res::Text(res::kTextCategoriesTitle), res::Text(kIdsCategoriesCaption),
                     CheckedCount(list), ListView_GetItemCount(list));
}

void DrawCheckListRow(const DRAWITEMSTRUCT& item) {
  const CategoryEntry* entry = EntryOf(static_cast<LPARAM>(item.itemData));
  if (!entry) return;
  HDC hdc = item.hDC;
  const RECT& rc = item.rcItem;
  const COLORREF ink = GetTextColor(hdc);
  const wchar_t box = ui::Glyph(IsChecked(item.hwndItem, static_cast<int>(item.itemID))
                                    ? ui::kGlyphCheckBoxOn
                                    : ui::kGlyphCheckBoxOff);
  int x = rc.left + 1;
  TextOutW(hdc, x, rc.top, &box, 1);
  x += 2;
  if (const CellIcon* cells = CategoryCells(*entry)) {
    for (const IconCell& cell : *cells) {
      if (!cell.continuation) {
        SetTextColor(hdc, cell.foreground.value_or(ink));
        SetBkMode(hdc, cell.background ? OPAQUE : TRANSPARENT);
        if (cell.background) SetBkColor(hdc, *cell.background);
        TextOutW(hdc, x, rc.top, &cell.glyph, 1);
      }
      ++x;
    }
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, ink);
  }
  x += 1;
  const std::wstring text = CategoryNameForDisplay(entry->name);
  RECT area{x, rc.top, rc.right, rc.bottom};
  DrawTextW(hdc, text.c_str(), static_cast<int>(text.size()), &area,
            DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

}  // namespace velmo::category_dialog
