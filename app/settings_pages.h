// The settings pages, each over the settings block (settings_page.h), and
// "Reset Settings". Each returns IDOK when it saved and applied the block,
// IDCANCEL when it changed nothing, -1 when it could not be shown.
#pragma once

#include <array>
#include <cstddef>

#include "platform/ui/types.h"

namespace velmo::app {

INT_PTR ShowOptionsPage(HWND owner);
INT_PTR ShowViewsPage(HWND owner);
INT_PTR ShowNewTasksPage(HWND owner);
INT_PTR ShowActiveSyncPage(HWND owner);
INT_PTR ShowAppearancePage(HWND owner);
INT_PTR ShowMyTextPage(HWND owner);
INT_PTR ShowResetPage(HWND owner);

// The page of a settings command (40025-40031, 40035); -1 for another command.
INT_PTR ShowSettingsPage(UINT command, HWND owner);

// The name ids of a table whose entries carry a name_id, in table order: the
// entries of a spinner list whose position is the stored index.
template <typename Entry, std::size_t N>
constexpr std::array<UINT, N> NameIds(const std::array<Entry, N>& table) {
  std::array<UINT, N> ids{};
  for (std::size_t i = 0; i < N; ++i) ids[i] = table[i].name_id;
  return ids;
}

}  // namespace velmo::app
