// The category filter: which tasks it shows, and the use marks of the catalogue
// that decide which categories the Filter menu offers.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_set>

#include "categories/category_list.h"
#include "store/task.h"

namespace velmo {

// Whether a task with that categories value passes `filter`: an empty filter
// shows everything; a task without a categories value (nullptr) is hidden; else
// the task is shown when any of its categories is in the filter. An empty
// categories string is No Category.
bool CategoriesPassFilter(const CategoryList& filter,
                          std::optional<std::wstring_view> categories);

// The same for a task of the table, under the program's Filter list.
bool TaskPassesFilter(const Task& task);

// Recomputes InLoadedTasks (from the loaded tasks) and InFilter (from the Filter
// list) on the catalogue. Entries are never removed.
void MarkCategoryUse(const TaskTable& tasks);

// The same one task at a time, as a load reads them: starting clears the marks,
// Finish adds the Filter list's. Tasks share a few category texts, and marking
// is the same each time, so each distinct text is parsed once.
class CategoryUseMarking {
 public:
  CategoryUseMarking();
  void Mark(const Task& task);
  void Finish();

 private:
  std::unordered_set<std::wstring_view> parsed_;  // views into the marked tasks
  bool empty_parsed_ = false;
};

}  // namespace velmo
