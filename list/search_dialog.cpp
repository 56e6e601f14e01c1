#include "list/search_dialog.h"

#include "categories/dialog/categories_dialog.h"
#include "platform/ui/button.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/dialogs_categories.h"
#include "res/strings.h"

namespace velmo {
namespace {

struct SearchDialog {
  SearchRequest* request;
  std::wstring* filter;
};

struct Switch {
  int id;
  bool SearchRequest::*value;
};
constexpr Switch kSwitches[] = {
    {res::kSearchSubjects, &SearchRequest::subjects},
    {res::kSearchNotes, &SearchRequest::notes},
    {res::kSearchCaseSensitive, &SearchRequest::case_sensitive},
};

HWND FilterField(HWND dialog) { return GetDlgItem(dialog, res::kSearchFilter); }

void ShowFilter(HWND dialog, const std::wstring& categories) {
  FillCategoriesListBox(FilterField(dialog), categories, res::kTextSelectCategories);
}

void Init(HWND dialog, const SearchDialog& s) {
  SendDlgItemMessageW(dialog, res::kSearchText, EM_LIMITTEXT, res::kSearchTextMaxChars, 0);
  SetDlgItemTextW(dialog, res::kSearchText, s.request->text.c_str());
  SendDlgItemMessageW(dialog, res::kSearchText, EM_SETSEL, 0, -1);
  for (const Switch& sw : kSwitches)
    SendDlgItemMessageW(dialog, sw.id, BM_SETCHECK, s.request->*sw.value ? BST_CHECKED : BST_UNCHECKED, 0);
  ShowFilter(dialog, *s.filter);
  const std::wstring done = res::Text(res::kSearchBar.left.text_id);
  const std::wstring cancel = res::Text(res::kSearchBar.right.text_id);
  SOFTKEY left{done.c_str(), res::kSearchBar.left.command, nullptr};
  SOFTKEY right{cancel.c_str(), res::kSearchBar.right.command, nullptr};
  CreateSoftKeyBar(dialog, &left, &right);
  SetFocus(GetDlgItem(dialog, res::kSearchText));
}

// The categories of the filter field, chosen as a filter is.
void ChooseFilter(HWND dialog) {
  RunCategoriesDialog(dialog, kCategoriesForFilter, CategoriesOpener::kOther, res::kSearchFilter);
  ShowFilter(dialog, CategoriesOfListBox(FilterField(dialog)));
}

void Accept(HWND dialog, const SearchDialog& s) {
  std::wstring text(res::kSearchTextMaxChars + 1, L'\0');
  text.resize(GetDlgItemTextW(dialog, res::kSearchText, text.data(), static_cast<int>(text.size())));
  s.request->text = text;
  for (const Switch& sw : kSwitches)
    s.request->*sw.value = SendDlgItemMessageW(dialog, sw.id, BM_GETCHECK, 0, 0) == BST_CHECKED;
  *s.filter = CategoriesOfListBox(FilterField(dialog));
  EndDialog(dialog, IDOK);
}

INT_PTR SearchProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lparam);
    Init(dialog, *reinterpret_cast<SearchDialog*>(lparam));
    return FALSE;
  }
  const auto* s = reinterpret_cast<SearchDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (msg != WM_COMMAND || !s) return FALSE;
  switch (LOWORD(wparam)) {
    case IDOK:  // the action key: on the filter field it opens the categories
      if (GetFocus() == FilterField(dialog)) {
        ChooseFilter(dialog);
      } else {
        Accept(dialog, *s);
      }
      return TRUE;
    case res::kCmdCategoriesDone:
      Accept(dialog, *s);
      return TRUE;
    case IDCANCEL:
      EndDialog(dialog, IDCANCEL);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

bool RunSearchDialog(HWND owner, SearchRequest* request, std::wstring* filter) {
  SearchDialog state{request, filter};
  const res::LoadedDialog tmpl(res::kSearchDialog);
  return DialogBoxIndirectParamW(nullptr, tmpl.get(), owner, SearchProc,
                                 reinterpret_cast<LPARAM>(&state)) == IDOK;
}

}  // namespace velmo
