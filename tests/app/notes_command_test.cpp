#include <string>

#include "app/task_changes.h"
#include "platform/poom.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/task_table.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class NotesCommandTest : public StartedMainWindowTest {
 protected:
  std::wstring BodyOf(CEOID oid) {
    ITask* item = nullptr;
    if (FAILED(app::OpenTaskItem(oid, &item)) || !item) return L"<gone>";
    BSTR body = nullptr;
    item->get_Body(&body);
    std::wstring text = body ? body : L"";
    SysFreeString(body);
    item->Release();
    return text;
  }
};

// Done saves through the editor's commit: with "Resolve Notes synchro." the
// task comes back as a fresh copy (a new identifier); the menu's Cancel keeps
// the notes as they were.
TEST_F(NotesCommandTest, NotesAreSavedOnDoneThroughTheCommitAndKeptOnCancel) {
  struct Case {
    DWORD notes_synchro;
    UINT close_key;  // Done, or 0: the menu's Cancel
    const wchar_t* saved;
    bool replaced;
  } const cases[] = {{1, VK_TSOFT1, L"milk, eggs", true},
                     {0, VK_TSOFT1, L"milk, eggs", false},
                     {0, 0, L"milk", false}};
  for (const Case& c : cases) {
    CurrentSettings().notes_synchro = c.notes_synchro;
    ITask* item = nullptr;
    ASSERT_EQ(Store().app->CreateItem(olTaskItem, &item), S_OK);
    item->put_Subject(L"Shopping");
    item->put_Body(L"milk");
    ASSERT_EQ(item->Save(), S_OK);
    CEOID oid = 0;
    item->get_Oid(&oid);
    item->Release();
    app::ReloadTasksNow();
    Pump();
    ASSERT_TRUE(app::SelectTaskRow(oid));

    screen_.AddIdleStep([&] {
      EXPECT_TRUE(screen_.Contains(L"milk"));
      screen_.TypeKey(VK_END, 0, ui::kModControl);
      screen_.TypeText(L", eggs");
      screen_.TypeKey(c.close_key ? c.close_key : VK_TSOFT2);
    });
    if (!c.close_key) {
      screen_.AddIdleStep([&] {
        // The menu item's quick-choice number stands before its text.
        const POINT at = screen_.Find(L"Cancel");
        ASSERT_GE(at.x, 2);
        screen_.TypeText(std::wstring(1, screen_.at(at.x - 2, at.y).ch));
      });
    }
    app::SendCommand(cmd::kNotes);
    Pump();
    EXPECT_FALSE(screen_.stalled());
    app::ReloadTasksNow();
    CEOID now = 0;
    for (const auto& task : Tasks())
      if (task->subject == L"Shopping") now = task->oid;
    ASSERT_NE(now, 0u);
    EXPECT_EQ(now != oid, c.replaced);
    EXPECT_EQ(BodyOf(now), c.saved);
    ITask* done = nullptr;
    if (SUCCEEDED(app::OpenTaskItem(now, &done)) && done) {
      done->Delete();
      done->Release();
    }
    app::ReloadTasksNow();
  }
}

}  // namespace
}  // namespace velmo::testing
