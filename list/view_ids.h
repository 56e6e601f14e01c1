// The views of the task list and the commands that switch them. A view is known
// by its menu command, and that number is what the settings keep.
#pragma once

#include "platform/wintypes.h"

namespace velmo {

enum ViewId : UINT {
  kViewAllTasks = 40050,
  kViewOverdue = 40051,
  kViewActive = 40052,
  kViewCompleted = 40053,
  kViewToday = 40054,
  kViewNextDays = 40055,
  kViewFuture = 40056,
  kViewUndated = 40057,
  kViewSearch = 40058,  // reached only through the search command
};

constexpr UINT kFirstView = kViewAllTasks;
constexpr UINT kLastSteppedView = kViewUndated;  // the view commands step within 40050..40057
constexpr UINT kLastView = kViewSearch;

constexpr bool IsView(UINT id) { return id >= kFirstView && id <= kLastView; }
// 0 (All Tasks) .. 8 (Search): the view's row in per-view tables.
constexpr int ViewIndex(UINT view) { return static_cast<int>(view - kFirstView); }

// Commands of the view and filter menus.
enum ViewCommand : UINT {
  kCmdViewAllCategories = 40047,  // "View: All Categories"
  kCmdDefaultView = 40048,      // "Default View"
  kCmdSetAsDefault = 40049,     // "Set as Default"
  kCmdSearch = kViewSearch,     // "Search..."
  kCmdNextView = 40063,         // "View: Filter »"
  kCmdNextViewSkip = 40064,     // "View: Filter » skip empty"
  kCmdPreviousView = 40069,     // "View: Filter «"
  kCmdPreviousViewSkip = 40070, // "View: Filter « skip empty"
};

// The title's string is the view's number + 310 (for All Tasks the form with a
// filter); the form without a filter and the day-count forms have their own.
constexpr UINT kTitleStringOffset = 310;
constexpr UINT kTitleAllTasksPlain = 40359;     // "Tasks [%1]", no filter
constexpr UINT kTitleNextDaysMany = 40369;      // "%2 Days [%1] %3"
constexpr UINT kTitleActiveDays = 40370;        // "Active %2d [%1] %3"
constexpr UINT kTitleMultiple = 40371;          // "Multiple"
constexpr UINT kTitleMultipleAllTasks = 40372;  // "Multiple Cat."
constexpr UINT kTextNoMatches = 196;            // "No matches for this filter"

}  // namespace velmo
