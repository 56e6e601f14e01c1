// The Categories dialog: a check list of categories, to choose a filter (mode
// 0), a task's categories or those of new tasks (mode 1), or any category at all
// (mode 2, which mode 1 becomes after "Show All Categories", "New Category..."
// or when it would show an empty list). Its menu: "Show All Categories", "New
// Category...", "Select All", "Select None", "Invert Select", "Reload Icons",
// "Cancel", as far as the mode uses them.
#pragma once

#include <string>
#include <string_view>

#include "platform/ui/types.h"

namespace velmo {

enum CategoriesDialogMode : int {
  kCategoriesForFilter = 0,
  kCategoriesForTask = 1,
  kCategoriesAll = 2,
};

// Who opened the dialog: a name made with "New Category..." is marked
// CreatedInEditor from the task editor, ForNewTasks from the "New Tasks" page.
enum class CategoriesOpener { kOther, kTaskEditor, kNewTasksPage };

// With an initial categories string: the checked categories (in list order,
// joined with ",", No Category written "<NoCat>") are left in *result on Done,
// and the dialog returns 1 when they differ from `initial` (case-sensitive), 0
// when not, and 0 on Cancel.
INT_PTR RunCategoriesDialog(HWND owner, CategoriesDialogMode mode, CategoriesOpener opener,
                            std::wstring_view initial, std::wstring* result);

// Without one: the checked set is the owner's categories list box `list_box_id`
// (see FillCategoriesListBox); Done fills that list box again with the result.
// Returns 0.
INT_PTR RunCategoriesDialog(HWND owner, CategoriesDialogMode mode, CategoriesOpener opener,
                            int list_box_id);

// The same as the first form for a categories text edited in place: true when
// Done changed it.
bool ChooseCategories(HWND owner, CategoriesOpener opener, std::wstring* categories);

// An owner's categories list box (a spinner list): one line per category of
// `text` ("No Category" for the empty name); without any, the one line of
// string `empty_text_id` (0: none), which is not a category.
void FillCategoriesListBox(HWND list_box, std::wstring_view text, UINT empty_text_id);
// Its lines back as a categories string ("<NoCat>" for "No Category").
std::wstring CategoriesOfListBox(HWND list_box);

}  // namespace velmo
