#include "app/text_screen.h"

#include <gtest/gtest.h>

#include "platform/ui/virtual_keys.h"

namespace velmo::testing {
namespace {

std::vector<UINT> KeysOf(const std::vector<std::string>& pieces) {
  app::TextScreen screen(20, 5, -1, -1);
  for (const std::string& piece : pieces) screen.TypeInput(piece);
  std::vector<UINT> keys;
  for (ui::InputEvent event; screen.ReadInput(&event);) keys.push_back(event.vk);
  return keys;
}

TEST(TextScreenTest, InputTextBecomesKeysWhateverWayItArrives) {
  struct Case { std::vector<std::string> pieces; std::vector<UINT> keys; } const cases[] = {
      {{"5a\n"}, {'5', 'A', VK_RETURN}},
      {{"{F1}{Up}{PgDn}"}, {VK_TSOFT1, VK_UP, VK_TVOLUMEDOWN}},
      {{"{F", "2}x"}, {VK_TSOFT2, 'X'}},                      // a name split between reads
      {{"\xc3", "\xa9"}, {VK_NONAME}},                         // é split between reads
      {{"{Nope}"}, {VK_NONAME, 'N', 'O', 'P', 'E', VK_NONAME}},  // no such key: its characters
      {{"\x01"}, {}},                                          // a control character is no key
  };
  for (const Case& c : cases) EXPECT_EQ(KeysOf(c.pieces), c.keys) << c.pieces[0];
}

}  // namespace
}  // namespace velmo::testing
