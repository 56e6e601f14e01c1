// The action table, the Left Menu list and the Back Key list.
#include "app/shortcut_actions.h"

namespace velmo {

const std::array<ShortcutAction, kShortcutActionCount> kShortcutActions = {{
    {40480, 0, 0},       // Nothing
    {40481, 1, 40004},   // New Task
    {40482, 49, 40005},  // New Task (Quick entry)
    {40483, 2, 40000},   // Edit Task
    {40484, 3, 40009},   // Rename Task
    {40485, 4, 40008},   // Delete Task
    {40486, 5, 40006},   // Create Copy
    {40487, 6, 40011},   // Priority Up
    {40488, 7, 40010},   // Priority Down
    {40489, 8, 40012},   // Priority Cycle
    {40490, 9, 40003},   // Activate/Complete
    {40551, 67, 40016},  // Change Due Date...
    {40553, 69, 40116},  // Change Categories...
    {40552, 68, 40017},  // Switch Team Task
    {40492, 10, 40018},  // View Notes
    {40539, 55, 40166},  // Links View
    {40491, 11, 40007},  // Task Summary
    {40493, 45, 40038},  // Save As...
    {40494, 12, 40039},  // Mail Task...
    {40523, 13, 40040},  // Beam Task
    {40495, 14, 40041},  // Beam View
    {40496, 15, 40042},  // Beam All Tasks
    {40497, 16, 40044},  // Delete Shown Tasks
    {40498, 17, 40043},  // Delete Completed Tasks
    {40499, 18, 40047},  // View: No Filter
    {40500, 19, 40048},  // View: Default View
    {40501, 20, 40050},  // View: All Tasks
    {40502, 21, 40051},  // View: Overdue Tasks
    {40503, 22, 40052},  // View: Active Tasks
    {40504, 23, 40053},  // View: Completed Tasks
    {40505, 24, 40054},  // View: Today
    {40506, 25, 40055},  // View: Next Days
    {40507, 26, 40056},  // View: Future Tasks
    {40508, 27, 40057},  // View: Undated Tasks
    {40509, 28, 40058},  // View: Search...
    {40510, 29, 40063},  // View: Filter »
    {40511, 50, 40064},  // View: Filter » skip empty
    {40512, 30, 40069},  // View: Filter «
    {40513, 51, 40070},  // View: Filter « skip empty
    {40514, 31, 48000},  // View: All Categories
    {40515, 52, 40059},  // Filter: Category »
    {40516, 32, 40060},  // Filter: Category » skip empty
    {40517, 53, 40061},  // Filter: Category «
    {40518, 33, 40062},  // Filter: Category « skip empty
    {40538, 54, 48001},  // Filter: Multiple...
    {40519, 34, 40156},  // First Task
    {40520, 35, 40158},  // Page Up
    {40521, 36, 40159},  // Page Down
    {40522, 37, 40157},  // Last Task
    {40525, 38, 40025},  // Settings: Options
    {40526, 39, 40026},  // Settings: Views
    {40527, 40, 40027},  // Settings: New Tasks
    {40529, 42, 40029},  // Settings: Appearance
    {40530, 43, 40030},  // Settings: Shortcuts
    {40531, 44, 40031},  // Settings: My Text
    {40528, 41, 40028},  // Settings: ActiveSync
    {40536, 46, 40126},  // Toggle compact mode
    {40535, 47, 40121},  // Phone/Email/URL
    {40524, 48, 40037},  // Exit
    {40540, 56, 39974},  // App: Calendar
    {40541, 57, 39975},  // App: Contacts
    {40542, 58, 39976},  // App: Messaging
    {40543, 59, 39977},  // App: Call History
    {40544, 60, 39978},  // App: Internet Explorer
    {40545, 61, 39979},  // App: MSN
    {40550, 66, 39970},  // App: Voice Notes
    {40546, 62, 39980},  // App: ActiveSync
    {40554, 63, 39973},  // App: Pictures
    {40555, 64, 39972},  // App: File Explorer
    {40556, 65, 39971},  // App: Calculator
    {40557, 70, 39981},  // App: Settings
}};

const std::array<LeftMenuChoice, kLeftMenuChoiceCount> kLeftMenuChoices = {{
    {40481, 40004},  // New Task
    {40483, 40000},  // Edit Task
    {40485, 40008},  // Delete Task
    {40490, 40003},  // Activate/Complete
    {40492, 40018},  // View Notes
    {40491, 40007},  // Task Summary
    {40482, 40005},  // New Task (Quick entry)
}};

const std::array<UINT, kBackKeyChoiceCount> kBackKeyChoiceTexts = {40684, 40685, 40686, 40687};

namespace {

// Action code -> list position, made once from the table.
struct CodeIndex {
  std::array<int, kShortcutActionCount> position{};
  CodeIndex() {
    position.fill(-1);
    for (int i = 0; i < kShortcutActionCount; ++i) position[kShortcutActions[i].code] = i;
  }
};

const CodeIndex& Index() {
  static const CodeIndex index;
  return index;
}

}  // namespace

int ShortcutActionPosition(WORD code) {
  return code < kShortcutActionCount ? Index().position[code] : -1;
}

UINT ShortcutActionCommand(WORD code) {
  int position = ShortcutActionPosition(code);
  return position < 0 ? 0 : kShortcutActions[static_cast<size_t>(position)].command;
}

UINT LeftMenuCommand(WORD index) {
  return index < kLeftMenuChoiceCount ? kLeftMenuChoices[index].command : 0;
}

}  // namespace velmo
