// The main window on a headless screen, over a task table filled by the test
// (oids from 1000 in the order given), with the default settings, view and
// filter and a pinned clock (2024-05-15 noon).
#pragma once

#include <functional>
#include <string>

#include "app/commands.h"
#include "app/list_rows.h"
#include "app/main_window.h"
#include "app/main_window_state.h"
#include "app/task_changes.h"
#include "platform/clock.h"
#include "platform/poom.h"
#include "platform/ui/desktop.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/window.h"
#include "store/connection.h"
#include "store/task_table.h"
#include "tests/list/list_fixture.h"

namespace velmo::testing {

class MainWindowTest : public ListTest {
 protected:
  MainWindowTest() : screen_(80, 24), scoped_(&screen_) {}

  void SetUp() override {
    ListTest::SetUp();
    InitCategories(static_cast<UINT>(app::kNoRequest));
    window_ = app::CreateMainWindow();
    ASSERT_NE(window_, nullptr);
  }
  void TearDown() override {
    if (IsWindow(window_)) DestroyWindow(window_);
    Tasks().clear();
    ListTest::TearDown();
  }

  void Load(std::initializer_list<Task> tasks) {
    for (auto& task : MakeTable(tasks)) Tasks().push_back(std::move(task));
    app::RefreshAfterViewChange(true);
    Pump();
  }
  void Pump() { ui::PumpMessages(); }
  void Press(UINT vk, wchar_t ch = 0) {
    screen_.TypeKey(vk, ch);
    Pump();
  }
  void Type(const wchar_t* keys) {
    screen_.TypeText(keys);
    Pump();
  }
  std::wstring Title() const {
    wchar_t text[128] = {};
    GetWindowTextW(window_, text, 128);
    std::wstring title = text;
    while (!title.empty() && title.back() == L' ') title.pop_back();
    return title;
  }
  CEOID Selected() const {
    const Task* task = app::SelectedTask();
    return task ? task->oid : 0;
  }

  ScopedClock clock_{Day(0, 12)};
  ui::HeadlessScreen screen_;
  ui::ScopedScreen scoped_;
  HWND window_ = nullptr;
};

// The main window started over the device's own tasks database, which the
// test fills through the object model.
class StartedMainWindowTest : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    ASSERT_TRUE(app::StartMainWindow(app::StartRequest{}));
    Pump();
  }
  void TearDown() override {
    CloseTasksDatabase();
    MainWindowTest::TearDown();
  }
  // A task of that subject saved through the object model (`more` sets its
  // other fields before the save), the list then read again.
  CEOID AddTask(const wchar_t* subject, const std::function<void(ITask*)>& more = {}) {
    ITask* item = nullptr;
    EXPECT_EQ(Store().app->CreateItem(olTaskItem, &item), S_OK);
    if (!item) return 0;
    item->put_Subject(subject);
    if (more) more(item);
    EXPECT_EQ(item->Save(), S_OK);
    CEOID oid = 0;
    item->get_Oid(&oid);
    item->Release();
    app::ReloadTasksNow();
    Pump();
    return oid;
  }  // The task table's entry of `oid`, or null when the table has none.
  const Task* Find(CEOID oid) {
    const int i = FindTask(oid);
    return i < 0 ? nullptr : Tasks()[static_cast<size_t>(i)].get();
  }
};

}  // namespace velmo::testing
