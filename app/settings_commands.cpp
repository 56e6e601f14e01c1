// The settings commands of the main window, each opening its page.
#include "app/settings_pages.h"
#include "app/shortcuts_page.h"
#include "res/command_ids.h"

namespace velmo::app {
namespace {

struct PageCommand {
  UINT command;
  INT_PTR (*show)(HWND owner);
};

constexpr PageCommand kPages[] = {
    {cmd::kSettingsOptions, ShowOptionsPage},
    {cmd::kSettingsViews, ShowViewsPage},
    {cmd::kSettingsNewTasks, ShowNewTasksPage},
    {cmd::kSettingsActiveSync, ShowActiveSyncPage},
    {cmd::kSettingsAppearance, ShowAppearancePage},
    {cmd::kSettingsShortcuts, velmo::ShowShortcutsPage},
    {cmd::kSettingsMyText, ShowMyTextPage},
    {cmd::kSettingsReset, ShowResetPage},
};

}  // namespace

INT_PTR ShowSettingsPage(UINT command, HWND owner) {
  for (const PageCommand& page : kPages)
    if (page.command == command) return page.show(owner);
  return -1;
}

}  // namespace velmo::app
