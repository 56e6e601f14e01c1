// The main window on the headless screen over a real tasks database, with
// tasks added through the object model, and the steps a test queues for the
// dialogs it opens (each runs while the dialog waits for a key).
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/list_rows.h"
#include "app/task_changes.h"
#include "platform/poom.h"
#include "platform/ui/dialog.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {

class CategoriesDialogTest : public StartedMainWindowTest {
 protected:
  CEOID Add(const wchar_t* subject, const wchar_t* categories, const wchar_t* notes = nullptr) {
    ITask* item = nullptr;
    EXPECT_EQ(Store().app->CreateItem(olTaskItem, &item), S_OK);
    item->put_Subject(subject);
    if (notes) item->put_Body(notes);
    EXPECT_EQ(item->Save(), S_OK);
    if (categories) WriteTaskCategories(item, categories, false);
    CEOID oid = 0;
    item->get_Oid(&oid);
    item->Release();
    app::ReloadTasksNow();
    Pump();
    return oid;
  }
  // The first start also made a welcome task.
  void SelectTask(CEOID oid) {
    for (int row = 0; row < app::RowCount() && Selected() != oid; ++row) app::SelectRow(row);
    ASSERT_EQ(Selected(), oid);
  }
  std::wstring CategoriesOf(CEOID oid) {
    const int i = FindTask(oid);
    return i < 0 ? L"?" : Tasks()[static_cast<size_t>(i)]->categories;
  }
  void Key(UINT vk, wchar_t ch = 0) {
    screen_.AddIdleStep([this, vk, ch] { screen_.TypeKey(vk, ch); });
  }
  void Text(const wchar_t* text) {
    screen_.AddIdleStep([this, text] { screen_.TypeText(text); });
  }
  void Command(UINT command) {
    screen_.AddIdleStep([command] { SendMessageW(GetActiveWindow(), WM_COMMAND, command, 0); });
  }
  void Look(std::wstring* seen) {
    screen_.AddIdleStep([this, seen] { *seen = screen_.Text(); });
  }
  void LookTitle(std::wstring* title) {
    screen_.AddIdleStep([title] {
      wchar_t text[128] = {};
      GetWindowTextW(GetActiveWindow(), text, 128);
      *title = text;
    });
  }
  static bool Has(const std::wstring& text, const wchar_t* part) {
    return text.find(part) != std::wstring::npos;
  }
};

}  // namespace velmo::testing
