// The main window on a headless screen, over a task table filled by the test
// (oids from 1000 in the order given), with the default settings, view and
// filter and a pinned clock (2024-05-15 noon).
#pragma once

#include <string>

#include "app/commands.h"
#include "app/list_rows.h"
#include "app/main_window.h"
#include "app/main_window_state.h"
#include "platform/clock.h"
#include "platform/ui/desktop.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/window.h"
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

}  // namespace velmo::testing
