// The category part of the main window's Filter menu, as data: which category
// items it holds (commands 48002 upward, inserted before "Multiple..."), which
// are checked, and what choosing or stepping through them does to the filter.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "categories/category_list.h"
#include "store/task.h"

namespace velmo {

constexpr UINT kCmdAllCategories = 48000;
constexpr UINT kCmdMultipleCategories = 48001;
constexpr UINT kCmdFirstCategoryItem = 48002;
constexpr UINT kCmdLastCategoryItem = 48999;

// Key-shortcut commands that step the filter from one category to the next.
constexpr UINT kCmdFilterNext = 40059;
constexpr UINT kCmdFilterNextSkipEmpty = 40060;
constexpr UINT kCmdFilterPrevious = 40061;
constexpr UINT kCmdFilterPreviousSkipEmpty = 40062;

struct FilterMenuItem {
  UINT command = 0;
  std::wstring text;  // the name, or "No Category"
  bool checked = false;
};

struct FilterMenu {
  bool all_categories_checked = true;
  std::vector<FilterMenuItem> category_items;  // in menu order
  UINT next_command = kCmdFirstCategoryItem;   // items below it are ours to delete
};

// Marks the catalogue's use, gives each used category (in a loaded task or in
// the Filter list) the next command and checks those in the Filter list. The
// menu drawing deletes the previous category items and inserts these.
const FilterMenu& RebuildFilterMenu(const TaskTable& tasks);
const FilterMenu& CurrentFilterMenu();

bool IsCategoryItemCommand(UINT command);

// Carries out a Filter menu command: a category item makes the Filter list that
// one category; "All Categories" empties it. Returns true when the Filter menu,
// the task list and the title must be rebuilt ("All Categories" on an empty
// filter rebuilds only when it comes from a key shortcut).
bool ChooseFilterCommand(UINT command, bool from_shortcut);

// The result of the Categories dialog opened from "Multiple...": the filter
// text takes it and the Filter list is parsed again from it.
void ApplyMultipleCategoriesResult(const std::wstring& result);

// Rebuilds the Filter menu, the task list and the title after a filter change;
// returns the number of tasks the list now shows.
using FilterRebuild = std::function<int()>;

// The step commands 40059-40062: forward "»" or backward "«" through the
// categories of the Filter menu, All Categories at both ends; the skip-empty
// forms step on while the list shows no task under a category filter.
void StepCategoryFilter(UINT command, const FilterRebuild& rebuild);

}  // namespace velmo
