#include <gtest/gtest.h>

#include "app/shortcut_store.h"
#include "app/shortcuts_page.h"
#include "platform/ui/virtual_keys.h"
#include "tests/support/temp_root.h"
#include "tests/ui/ui_fixture.h"

namespace velmo {
namespace {

class ShortcutsPageTest : public testing::UiTest {
 protected:
  ShortcutsPageTest() : UiTest(50, 30) {
    CurrentSettings().shortcuts = kDefaultShortcuts;
    main_ = MakeMain(L"Velmo ToDo List");
  }
  testing::TempRoot root_;
  HWND main_;
};

TEST_F(ShortcutsPageTest, RightStepsTheFocusedKeyAndDoneSavesAll) {
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Key 5: View: Completed Tasks"));
    EXPECT_TRUE(screen_.Contains(L"Back Key: Default View / Back"));
    for (int i = 0; i < 5; ++i) screen_.TypeKey(VK_DOWN);
    screen_.TypeKey(VK_RIGHT);
  });
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Key 5: View: Today"));
    screen_.TypeKey(VK_DOWN);  // Key 6 "Page Up": back past the first choice wraps
    for (int i = 0; i < 47; ++i) screen_.TypeKey(VK_LEFT);
  });
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Key 6: App: Settings"));
    screen_.TypeKey(VK_RETURN);
  });
  EXPECT_EQ(ShowShortcutsPage(main_), IDOK);
  ShortcutTable stored{};
  ASSERT_TRUE(ReadShortcutBindings(&stored));
  ShortcutTable expected = kDefaultShortcuts;
  expected[5] = 24;
  expected[6] = 70;
  EXPECT_EQ(stored, expected);
  EXPECT_EQ(CurrentSettings().shortcuts, expected);
}

TEST_F(ShortcutsPageTest, CancelKeepsTheBindings) {
  screen_.AddIdleStep([&] {
    screen_.TypeKey(VK_RIGHT);
    screen_.TypeKey(VK_ESCAPE);
  });
  EXPECT_EQ(ShowShortcutsPage(main_), IDCANCEL);
  ShortcutTable stored{};
  EXPECT_FALSE(ReadShortcutBindings(&stored));
  EXPECT_EQ(CurrentSettings().shortcuts, kDefaultShortcuts);
}

}  // namespace
}  // namespace velmo
