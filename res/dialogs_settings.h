// The settings pages as tables: Options, Views, New Tasks, ActiveSync,
// Appearance, My Text and Reset Settings. A spinner list is a list box followed
// by its up-down (id + 1); a number field an edit followed by its up-down.
#pragma once

#include "res/dialog_table.h"

namespace velmo::res {

namespace settings_id {
enum : int {
  // Options
  kInputMode = 100,
  kContactInsertMode = 102,
  kCallInsertMode = 104,
  kDeleteConfirm = 110,
  kRenameCopy,
  kDelReminderOnComplete,
  kDatesInput,
  kExitMenu,
  kSubjectInCallLog,
  // Views
  kShowCompleted = 200,
  kUndatedInActive,
  kTodayInFuture,
  kTodayInPast,
  kSameSort,
  kNDays = 210,
  kADays = 212,
  kSortView = 220,
  kSortKeyFirst = 230,  // key of row n: kSortKeyFirst + 4 n, its direction + 2
  // New Tasks
  kCategoriesForNew = 300,
  kImportanceForNew = 302,
  kSensitivityForNew = 304,
  kTeamTaskForNew = 310,
  kFilteredCatForNew,
  kReminderForNew,
  kReminderTimeForNew = 320,
  // ActiveSync
  kReminderDelta = 400,
  kNotesSynchro = 410,
  kReminderTime = 420,
  // Appearance
  kNormalColor = 500,  // the colour and style lists, two ids apart, in table order
  kFutureColor = 502,
  kOverdueColor = 504,
  kCompletedColor = 506,
  kUndatedColor = 508,
  kHighlightColor = 510,
  kHighlightTextColor = 512,
  kNotesPreview = 514,
  kNotesPreviewColor = 516,
  kNormalFont = 518,
  kTodayFont = 520,
  kGradient = 530,
  kCompressed,
  kQuickEntry,
  kNoEndScroll,
  kEditCompact,
  kInfosFirst = 540,            // one check box per field, normal list
  kInfosCompressedFirst = 560,  // the same for the compact list
  // My Text
  kMyTextChoice = 600,
  kMyTextEdit = 610,
  // Reset Settings: one check box per group, in ResetGroup bit order
  kResetFirst = 700,
};
}  // namespace settings_id

constexpr int kSortRows = 3;
constexpr int kInfoFieldCount = 12;


extern const DialogDef kOptionsPage;
extern const DialogDef kViewsPage;
extern const DialogDef kNewTasksPage;
extern const DialogDef kActiveSyncPage;
extern const DialogDef kAppearancePage;
extern const DialogDef kMyTextPage;
extern const DialogDef kResetPage;

// Texts of the pages' lists.
constexpr UINT kTextDirectionAscending = 491;  // list order 491, 493, 492 = orders 0, 1, 2
constexpr UINT kTextSortKeyFirst = 480;        // "None" .. "Categories"
constexpr UINT kTextPreviewFirst = 44760;      // "Off", "Small", "Medium", "Large"
constexpr UINT kTextMyTextEntry = 44765;       // "Text %1"
constexpr UINT kTextLongTextEntry = 44766;     // "Long text %1"

}  // namespace velmo::res
