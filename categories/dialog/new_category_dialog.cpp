#include "categories/dialog/new_category_dialog.h"

#include "categories/category_list.h"
#include "categories/category_state.h"
#include "categories/gather_categories.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/dialogs_categories.h"
#include "res/strings.h"

namespace velmo {
namespace {

// The mark of a category made here, by who opened the Categories dialog.
WORD MarksFor(CategoriesOpener opener) {
  switch (opener) {
    case CategoriesOpener::kTaskEditor: return CreatedInEditor;
    case CategoriesOpener::kNewTasksPage: return ForNewTasks;
    case CategoriesOpener::kOther: break;
  }
  return 0;
}

struct NewCategoryState {
  CategoriesOpener opener;
};

INT_PTR NewCategoryProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      SendDlgItemMessageW(dialog, res::kNewCategoryName, EM_LIMITTEXT, res::kNewCategoryMaxChars, 0);
      SetDlgItemTextW(dialog, res::kNewCategoryKnown, KnownCategoryNames().c_str());
      const std::wstring done = res::Text(res::kNewCategoryBar.left.text_id);
      const std::wstring cancel = res::Text(res::kNewCategoryBar.right.text_id);
      SOFTKEY left{done.c_str(), res::kNewCategoryBar.left.command, nullptr};
      SOFTKEY right{cancel.c_str(), res::kNewCategoryBar.right.command, nullptr};
      CreateSoftKeyBar(dialog, &left, &right);
      SetFocus(GetDlgItem(dialog, res::kNewCategoryName));
      return FALSE;
    }
    case WM_COMMAND: {
      const auto* state = reinterpret_cast<NewCategoryState*>(GetWindowLongPtrW(dialog, DWLP_USER));
      if (LOWORD(wparam) == IDOK && state) {
        std::wstring typed(res::kNewCategoryMaxChars + 1, L'\0');
        typed.resize(GetDlgItemTextW(dialog, res::kNewCategoryName, typed.data(),
                                     static_cast<int>(typed.size())));
        EndDialog(dialog, ParseCategories(CategoryCatalogue(), typed, MarksFor(state->opener), false));
        return TRUE;
      }
      if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dialog, -1);
        return TRUE;
      }
      return FALSE;
    }
    default:
      return FALSE;
  }
}

}  // namespace

std::wstring KnownCategoryNames() {
  const CategoryList& catalogue = CategoryCatalogue();
  std::wstring out;
  for (int i = 1; i < catalogue.count(); ++i) {
    const std::wstring& name = catalogue.entries[static_cast<size_t>(i)].name;
    const size_t extra = (out.empty() ? 0 : 2) + name.size();
    if (out.size() + extra >= kCategoriesTextBuffer) break;
    if (!out.empty()) out += L", ";
    out += name;
  }
  return out;
}

int RunNewCategoryDialog(HWND owner, CategoriesOpener opener) {
  GatherDatabaseCategories(OtherDatabase::kContacts);
  GatherDatabaseCategories(OtherDatabase::kAppointments);
  NewCategoryState state{opener};
  const res::LoadedDialog tmpl(res::kNewCategoryDialog);
  const INT_PTR ended = DialogBoxIndirectParamW(nullptr, tmpl.get(), owner, NewCategoryProc,
                                                reinterpret_cast<LPARAM>(&state));
  return ended < 0 ? -1 : static_cast<int>(ended);
}

}  // namespace velmo
