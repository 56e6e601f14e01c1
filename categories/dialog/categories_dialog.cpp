// The Categories dialog's procedure: its menu by mode, the check list's keys
// (the action key and Space tick, Up and Down wrap around), the title renewed
// on every item change, and Done's result rules.
#include "categories/dialog/categories_dialog.h"

#include <optional>

#include "app/menus.h"
#include "categories/category_icons.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "categories/category_strings.h"
#include "categories/dialog/check_list.h"
#include "categories/dialog/new_category_dialog.h"
#include "categories/gather_categories.h"
#include "platform/ui/dialog.h"
#include "platform/ui/list_view.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_box.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/spinner.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/dialogs_categories.h"
#include "res/strings.h"

namespace velmo {
namespace {

using namespace category_dialog;

struct CategoriesDialog {
  HWND dialog = nullptr;
  HWND list = nullptr;
  HMENU menu = nullptr;
  WNDPROC list_proc = nullptr;
  CategoriesDialogMode mode = kCategoriesForFilter;
  CategoriesOpener opener = CategoriesOpener::kOther;
  HWND owner = nullptr;
  std::optional<std::wstring> initial;  // none: the owner's list box
  int owner_list = 0;
  std::wstring result;
  bool filling = false;  // items are being put in: the title waits for the end
};

CategoriesDialog* StateOf(HWND dialog) {
  return reinterpret_cast<CategoriesDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

void Retitle(CategoriesDialog* d) {
  if (d->filling) return;
  SetWindowTextW(d->dialog, CheckListTitle(d->list).c_str());
}

void Fill(CategoriesDialog* d, const CategoryList& checked, const std::wstring* focus) {
  d->filling = true;
  FillCheckList(d->list, d->mode, checked, focus);
  if (d->mode == kCategoriesForTask && ListView_GetItemCount(d->list) == 0) {
    GatherDatabaseCategories(OtherDatabase::kContacts);
    GatherDatabaseCategories(OtherDatabase::kAppointments);
    d->mode = kCategoriesAll;
    FillCheckList(d->list, d->mode, checked, focus);
  }
  d->filling = false;
  Retitle(d);
}

// The checked items as a set, to fill the list again keeping them.
void TakeCheckedSet(CategoriesDialog* d, CategoryList* checked) {
  ParseCategories(*checked, CheckedCategories(d->list), 0, true);
}

// Up on the first item goes to the last, Down on the last to the first.
LRESULT WrappingListProc(HWND list, UINT msg, WPARAM wparam, LPARAM lparam) {
  CategoriesDialog* d = StateOf(GetParent(list));
  if (!d) return DefWindowProcW(list, msg, wparam, lparam);
  if (msg == WM_KEYDOWN && (wparam == VK_UP || wparam == VK_DOWN)) {
    const int n = ListView_GetItemCount(list);
    const int focus = ListView_GetNextItem(list, -1, LVNI_FOCUSED);
    const int wrap_from = wparam == VK_UP ? 0 : n - 1;
    if (n > 1 && focus == wrap_from) {
      const int to = n - 1 - wrap_from;
      ListView_SetItemState(list, to, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
      ListView_EnsureVisible(list, to, FALSE);
      return 0;
    }
  }
  return CallWindowProcW(d->list_proc, list, msg, wparam, lparam);
}

void ShowIconWarning(HWND owner, const std::wstring& caption, const std::wstring& text) {
  MessageBoxW(owner, text.c_str(), caption.c_str(), MB_OK | MB_ICONWARNING);
}

void ReloadIcons(CategoriesDialog* d) {
  HWND owner = d->dialog;
  const IconReporter reporter = [owner](const std::wstring& caption, const std::wstring& text) {
    ShowIconWarning(owner, caption, text);
  };
  const CategoriesDialogMode mode = d->mode;
  ReloadCategoryIcons(&reporter, [mode](const CategoryEntry& e) { return ReportsIcon(mode, e); });
  for (int i = 0, n = ListView_GetItemCount(d->list); i < n; ++i) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = i;
    if (!ListView_GetItem(d->list, &item)) continue;
    item.mask = LVIF_IMAGE;
    item.iImage = CategoryCatalogue().entries[static_cast<size_t>(item.lParam)].icon_index;
    ListView_SetItem(d->list, &item);
  }
}

void ShowAll(CategoriesDialog* d) {
  CategoryList checked;
  TakeCheckedSet(d, &checked);
  GatherDatabaseCategories(OtherDatabase::kContacts);
  GatherDatabaseCategories(OtherDatabase::kAppointments);
  d->mode = kCategoriesAll;
  Fill(d, checked, nullptr);
}

void NewCategory(CategoriesDialog* d) {
  if (CategoryCatalogue().count() >= kMaxCategories) return;
  CategoryList checked;
  TakeCheckedSet(d, &checked);  // before the catalogue changes under the list
  const int index = RunNewCategoryDialog(d->dialog, d->opener);
  if (index < 0) return;
  const std::wstring name = CategoryCatalogue().entries[static_cast<size_t>(index)].name;
  AddCategory(checked, name, 0, kAddCategoryMerge);
  d->mode = kCategoriesAll;
  Fill(d, checked, &name);
}

void Done(CategoriesDialog* d) {
  d->result = CheckedCategories(d->list);
  if (d->initial) {
    EndDialog(d->dialog, d->result != *d->initial ? 1 : 0);
    return;
  }
  FillCategoriesListBox(GetDlgItem(d->owner, d->owner_list), d->result, 0);
  EndDialog(d->dialog, 0);
}

void ToggleFocused(CategoriesDialog* d) {
  const int focus = ListView_GetNextItem(d->list, -1, LVNI_FOCUSED);
  if (focus >= 0) SetChecked(d->list, focus, !IsChecked(d->list, focus));
}

void RunCommand(CategoriesDialog* d, UINT command) {
  const int n = ListView_GetItemCount(d->list);
  switch (command) {
    case IDOK: ToggleFocused(d); break;
    case IDCANCEL: EndDialog(d->dialog, 0); break;
    case res::kCmdCategoriesDone: Done(d); break;
    case res::kCmdSelectAll: SetChecked(d->list, -1, true); break;
    case res::kCmdSelectNone: SetChecked(d->list, -1, false); break;
    case res::kCmdInvertSelect:
      for (int i = 0; i < n; ++i) SetChecked(d->list, i, !IsChecked(d->list, i));
      break;
    case res::kCmdShowAllCategories: ShowAll(d); break;
    case res::kCmdNewCategory: NewCategory(d); break;
    case res::kCmdReloadIcons: ReloadIcons(d); break;
    default: break;
  }
}

// Mode 0 chooses among the categories in use; modes 1 and 2 neither tick
// everything nor invert.
void MakeSoftKeys(CategoriesDialog* d) {
  d->menu = app::BuildMenu(*res::kCategoriesBar.right.menu);
  static constexpr UINT kUnusedInFilterMode[] = {res::kCmdShowAllCategories, res::kCmdNewCategory};
  static constexpr UINT kUnusedInCategoriesMode[] = {res::kCmdSelectAll, res::kCmdInvertSelect};
  for (UINT command : d->mode == kCategoriesForFilter ? kUnusedInFilterMode : kUnusedInCategoriesMode)
    DeleteMenu(d->menu, command, MF_BYCOMMAND);
  const std::wstring done = res::Text(res::kCategoriesBar.left.text_id);
  const std::wstring menu = res::Text(res::kCategoriesBar.right.text_id);
  SOFTKEY left{done.c_str(), res::kCategoriesBar.left.command, nullptr};
  SOFTKEY right{menu.c_str(), 0, d->menu};
  CreateSoftKeyBar(d->dialog, &left, &right);
}

void Init(HWND dialog, CategoriesDialog* d) {
  d->dialog = dialog;
  d->list = GetDlgItem(dialog, res::kCategoriesList);
  d->list_proc = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(d->list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WrappingListProc)));
  MakeSoftKeys(d);
  CategoryList checked;
  ParseCategories(checked, d->initial ? *d->initial : CategoriesOfListBox(GetDlgItem(d->owner, d->owner_list)),
                  0, true);
  Fill(d, checked, nullptr);
  SetFocus(d->list);
}

INT_PTR CategoriesProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lparam);
    Init(dialog, reinterpret_cast<CategoriesDialog*>(lparam));
    return FALSE;
  }
  CategoriesDialog* d = StateOf(dialog);
  if (!d) return FALSE;
  switch (msg) {
    case WM_COMMAND:
      RunCommand(d, LOWORD(wparam));
      return TRUE;
    case WM_DRAWITEM:
      DrawCheckListRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
      return TRUE;
    case WM_NOTIFY: {
      const auto* hdr = reinterpret_cast<const NMHDR*>(lparam);
      if (hdr->code == LVN_ITEMCHANGED) Retitle(d);
      if (hdr->code == LVN_KEYDOWN && reinterpret_cast<const NMLVKEYDOWN*>(lparam)->wVKey == VK_SPACE)
        ToggleFocused(d);
      return TRUE;
    }
    default:
      return FALSE;
  }
}

INT_PTR Run(CategoriesDialog* d) {
  const res::LoadedDialog tmpl(res::kCategoriesDialog);
  const INT_PTR ended = DialogBoxIndirectParamW(nullptr, tmpl.get(), d->owner, CategoriesProc,
                                                reinterpret_cast<LPARAM>(d));
  if (d->menu) DestroyMenu(d->menu);
  return ended < 0 ? 0 : ended;
}

}  // namespace

INT_PTR RunCategoriesDialog(HWND owner, CategoriesDialogMode mode, CategoriesOpener opener,
                            std::wstring_view initial, std::wstring* result) {
  CategoriesDialog d;
  d.owner = owner;
  d.mode = mode;
  d.opener = opener;
  d.initial = std::wstring(initial);
  const INT_PTR ended = Run(&d);
  if (ended == 1 && result) *result = d.result;
  return ended;
}

INT_PTR RunCategoriesDialog(HWND owner, CategoriesDialogMode mode, CategoriesOpener opener,
                            int list_box_id) {
  CategoriesDialog d;
  d.owner = owner;
  d.mode = mode;
  d.opener = opener;
  d.owner_list = list_box_id;
  Run(&d);
  return 0;
}

bool ChooseCategories(HWND owner, CategoriesOpener opener, std::wstring* categories) {
  return RunCategoriesDialog(owner, kCategoriesForTask, opener, *categories, categories) == 1;
}

void FillCategoriesListBox(HWND list_box, std::wstring_view text, UINT empty_text_id) {
  SendMessageW(list_box, LB_RESETCONTENT, 0, 0);
  CategoryList names;
  ParseCategories(names, text, 0, true);
  for (const CategoryEntry& e : names.entries) {
    const std::wstring line = CategoryNameForDisplay(e.name);
    const auto at = SendMessageW(list_box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageW(list_box, LB_SETITEMDATA, static_cast<WPARAM>(at), 1);
  }
  if (names.empty() && empty_text_id) {
    const std::wstring line = res::Text(empty_text_id);
    SendMessageW(list_box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  }
  SendMessageW(list_box, LB_SETCURSEL, 0, 0);
}

std::wstring CategoriesOfListBox(HWND list_box) {
  std::wstring out;
  const auto n = static_cast<int>(SendMessageW(list_box, LB_GETCOUNT, 0, 0));
  bool first = true;
  for (int i = 0; i < n; ++i) {
    if (SendMessageW(list_box, LB_GETITEMDATA, static_cast<WPARAM>(i), 0) != 1) continue;
    const auto length = SendMessageW(list_box, LB_GETTEXTLEN, static_cast<WPARAM>(i), 0);
    std::wstring line(static_cast<size_t>(length < 0 ? 0 : length) + 1, L'\0');
    SendMessageW(list_box, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line.data()));
    line.resize(static_cast<size_t>(length < 0 ? 0 : length));
    if (!first) out += L',';
    first = false;
    out += line == res::Text(kIdsNoCategory) ? std::wstring(kNoCategoryMarker) : line;
  }
  return out;
}

}  // namespace velmo
