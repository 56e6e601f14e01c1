// Tasks made by description, and a fixture that gives every test the default
// settings, view and filter on a fresh device root.
#pragma once

#include <memory>
#include <string>

#include "categories/category_state.h"
#include "list/list_state.h"
#include "platform/locale.h"
#include "platform/oletime.h"
#include "settings/settings.h"
#include "store/task.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {

// A task described field by field: Dated().Due(d).Done(c) ...
struct TaskSpec {
  Task task;
  TaskSpec& Subject(const wchar_t* s) { task.subject = s; return *this; }
  TaskSpec& Categories(const wchar_t* c) { task.categories = c; return *this; }
  TaskSpec& Start(DATE d) { task.start_date = d; return *this; }
  TaskSpec& Due(DATE d) { task.due_date = d; return *this; }
  TaskSpec& Reminder(DATE d) { task.reminder_set = 1; task.reminder_time = d; return *this; }
  TaskSpec& Done(DATE d) { task.complete = 1; task.date_completed = d; return *this; }
  TaskSpec& Priority(LONG p) { task.importance = p; return *this; }
  TaskSpec& Private() { task.sensitivity = kSensitivityPrivate; return *this; }
  TaskSpec& Team() { task.team_task = 1; return *this; }
  TaskSpec& Marks(DWORD m) { task.search_match = m; return *this; }
  TaskSpec& Oid(CEOID oid) { task.oid = oid; return *this; }
  operator Task() const { return task; }
};
inline TaskSpec T() { return TaskSpec{}.Oid(1); }

// 2024-05-15 (a Wednesday) at the given time; day offsets count from it.
inline DATE May15(int hour = 0, int minute = 0) { return MakeDate(2024, 5, 15, hour, minute); }
inline DATE Day(int offset, int hour = 0, int minute = 0) {
  return MakeDate(2024, 5, 15, hour, minute) + offset;
}

class ListTest : public DeviceTest {
 protected:
  void SetUp() override {
    CurrentSettings() = Settings{};
    CurrentListState() = ListState{};
    SetCategoryFilter(L"");
    InitListState();
  }
  void TearDown() override {
    CurrentSettings() = Settings{};
    CurrentListState() = ListState{};
    SetCategoryFilter(L"");
  }
  locale::ScopedLocale locale_{"en_US"};
};

inline TaskTable MakeTable(std::initializer_list<Task> tasks) {
  TaskTable table;
  CEOID oid = 1000;
  for (const Task& t : tasks) {
    auto task = std::make_unique<Task>(t);
    task->oid = oid++;
    table.push_back(std::move(task));
  }
  return table;
}

}  // namespace velmo::testing
