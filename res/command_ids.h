// The menu commands of the main window: the common currency of the program.
// Soft-key menus, key shortcuts, a second instance and other parts of the
// program all reach the main window with one of these.
#pragma once

#include "platform/wintypes.h"

namespace velmo::cmd {

constexpr UINT kEdit = 40000;
constexpr UINT kActivate = 40001;  // Activate/Complete sends this for a completed task
constexpr UINT kComplete = 40002;  // and this for an open one
constexpr UINT kCompleteOrActivate = 40003;
constexpr UINT kNew = 40004;
constexpr UINT kNewQuick = 40005;
constexpr UINT kCreateCopy = 40006;
constexpr UINT kView = 40007;
constexpr UINT kDelete = 40008;
constexpr UINT kRename = 40009;
constexpr UINT kPriorityDown = 40010;
constexpr UINT kPriorityUp = 40011;
constexpr UINT kPriorityCycle = 40012;
constexpr UINT kHigh = 40013;
constexpr UINT kNormal = 40014;
constexpr UINT kLow = 40015;
constexpr UINT kDueDate = 40016;
constexpr UINT kTeamTask = 40017;
constexpr UINT kNotes = 40018;
constexpr UINT kNextTask = 40019;
constexpr UINT kPreviousTask = 40020;
constexpr UINT kReload = 40021;
constexpr UINT kSettingsOptions = 40025;
constexpr UINT kSettingsViews = 40026;
constexpr UINT kSettingsNewTasks = 40027;
constexpr UINT kSettingsActiveSync = 40028;
constexpr UINT kSettingsAppearance = 40029;
constexpr UINT kSettingsShortcuts = 40030;
constexpr UINT kSettingsMyText = 40031;
constexpr UINT kSettingsReset = 40035;
constexpr UINT kExit = 40037;
constexpr UINT kSaveToFile = 40038;
constexpr UINT kSendMessaging = 40039;
constexpr UINT kBeamTask = 40040;
constexpr UINT kBeamDisplayed = 40041;
constexpr UINT kBeamAll = 40042;
constexpr UINT kDeleteCompleted = 40043;
constexpr UINT kDeleteDisplayed = 40044;
constexpr UINT kQuickEntryEnter = 40084;
constexpr UINT kQuickEntryCallHistory = 40092;
constexpr UINT kChangeCategories = 40116;
constexpr UINT kQuickReminder = 40117;
constexpr UINT kLinksMenuFirst = 40118;  // link items inserted by the links part
constexpr UINT kLinksMenuMail = 40119;
constexpr UINT kLinksMenuWeb = 40120;
constexpr UINT kLinks = 40121;
constexpr UINT kToggleCompact = 40126;
constexpr UINT kFirstTask = 40156;
constexpr UINT kLastTask = 40157;
constexpr UINT kPageUp = 40158;
constexpr UINT kPageDown = 40159;
constexpr UINT kLinksMenuPhone = 40165;
constexpr UINT kLinksView = 40166;
constexpr UINT kSensitivityNormal = 39993;
constexpr UINT kSensitivityPrivate = 39995;

// "All Categories" of the Filter menu; with this lParam it rebuilds the list
// even when no filter was in force (a key shortcut's, or the hand-over's, call).
constexpr UINT kAllCategories = 48000;
constexpr UINT kMultipleCategories = 48001;
constexpr LPARAM kForcedRebuild = 1967;

}  // namespace velmo::cmd
