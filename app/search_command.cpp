#include "app/search_command.h"

#include "app/commands.h"
#include "app/main_window_state.h"
#include "app/task_changes.h"
#include "categories/category_state.h"
#include "list/search_dialog.h"
#include "list/view_commands.h"
#include "settings/settings.h"

namespace velmo::app {

void RunSearchCommand() {
  const Settings& s = CurrentSettings();
  SearchRequest request{s.search, s.search_subjects, s.search_notes, s.search_case_sensitive};
  std::wstring filter = CurrentFilterText();
  if (!RunSearchDialog(MainWindow().window, &request, &filter)) return;
  if (filter != CurrentFilterText()) SetCategoryFilter(filter);
  ApplySearch(request);
  SaveSettings();  // the last search text is kept
  ReloadTasksNow();  // the match marks are set as every record is read again
  RefreshAfterViewChange(true);
}

}  // namespace velmo::app
