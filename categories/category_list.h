// Category lists: the catalogue of every category met, the Filter list and the
// temporary lists made while parsing one categories string. A list holds at most
// 384 entries, kept sorted by name (case-insensitively), so No Category (the
// empty name) comes first whenever present.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/wintypes.h"

namespace velmo {

// Origin marks of an entry: only ever OR-ed in by AddCategory, cleared by the
// passes that recompute them.
enum CategoryMarks : WORD {
  InLoadedTasks = 1,     // used by a task of the loaded list
  InContacts = 2,        // used in the contacts database
  InAppointments = 4,    // used in the appointments database
  Builtin = 8,           // the No Category entry made at start-up
  InFilter = 16,         // in the Filter list
  ForNewTasks = 32,      // in "CategoriesForNew"
  CreatedInEditor = 64,  // made with the New Category dialog from the task editor
};

constexpr int kMaxCategories = 384;

// AddCategory modes.
constexpr UINT kAddCategoryMerge = 0;         // returns -1 when a new entry was made
constexpr UINT kAddCategoryFindIndex = 65535;  // returns the entry's index after sorting

// The longest categories string JoinCategories builds, terminator included.
constexpr size_t kCategoriesTextBuffer = 3840;

struct CategoryEntry {
  std::wstring name;      // trimmed; empty for No Category
  WORD marks = 0;
  UINT menu_command = 0;  // Filter menu item, 0 when it has none
  BYTE menu_checked = 0;
  int icon_index = -1;    // in the category image list, -1 for none
  bool letter_icon = false;
};

struct CategoryList {
  CategoryList() { entries.reserve(kMaxCategories); }
  int count() const { return static_cast<int>(entries.size()); }
  bool empty() const { return entries.empty(); }
  std::vector<CategoryEntry> entries;  // never more than kMaxCategories
};

// Adds a name or merges marks into the entry of the same name (its first
// spelling is kept). A full list refuses a new name with the exclamation beep
// and returns -1. A new entry of the catalogue gets its icon at once.
int AddCategory(CategoryList& list, std::wstring_view name, WORD marks, UINT mode);

// Splits a categories string at "," and adds every piece; an empty piece is No
// Category. Returns the index of the last piece's entry, or -1 for no text (and
// for an empty text with skip_empty, which adds nothing).
int ParseCategories(CategoryList& list, std::wstring_view text, WORD marks, bool skip_empty);
int ParseCategories(CategoryList& list, const wchar_t* text, WORD marks, bool skip_empty);

// The names in list order separated by "," (or ", " with with_space); No
// Category is written "<NoCat>". Names that would not fit the 3,840-character
// buffer are left off.
std::wstring JoinCategories(const CategoryList& list, bool with_space);

// Index of the entry of that name (case-insensitive), or -1.
int FindCategory(const CategoryList& list, std::wstring_view name);

// Frees every name; the list is empty afterwards and keeps its room.
void FreeCategoryList(CategoryList& list);

}  // namespace velmo
