#include <string>

#include "app/task_changes.h"
#include "platform/poom.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "store/connection.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class NotesCommandTest : public MainWindowTest {
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

TEST_F(NotesCommandTest, NotesOfTheSelectedTaskAreEditedAndSavedOnDoneOnly) {
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

  struct Case {
    UINT close_key;  // Done, or 0: the menu's Cancel
    const wchar_t* saved;
  } const cases[] = {{VK_TSOFT1, L"milk, eggs"}, {0, L"milk, eggs"}};
  for (const Case& c : cases) {
    screen_.AddIdleStep([&] {
      EXPECT_TRUE(screen_.Contains(L"Notes"));
      EXPECT_TRUE(screen_.Contains(c.close_key ? L"milk" : L"milk, eggs"));
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
    EXPECT_EQ(BodyOf(oid), c.saved);
  }
}

}  // namespace
}  // namespace velmo::testing
