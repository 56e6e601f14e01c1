#include "platform/ansi_codepage.h"

#include <gtest/gtest.h>

#include <string>

namespace velmo {
namespace {

// A character outside ASCII at every place of the eight-byte blocks and of the
// tail after them, so that each decoding path meets it.
TEST(AnsiCodePageTest, EveryPlaceOfABlockDecodes) {
  for (size_t length = 1; length <= 20; ++length) {
    for (size_t at = 0; at < length; ++at) {
      std::string bytes(length, 'a');
      bytes[at] = '\x80';
      std::wstring expected(length, L'a');
      expected[at] = L'\u20AC';
      EXPECT_EQ(FromWindows1252(bytes), expected) << length << " bytes, euro at " << at;
    }
  }
}

TEST(AnsiCodePageTest, EveryByteRoundTrips) {
  std::string all;
  for (int b = 1; b < 256; ++b) all.push_back(static_cast<char>(b));
  const std::wstring wide = FromWindows1252(all);
  ASSERT_EQ(wide.size(), all.size());
  EXPECT_EQ(wide[0x9F - 1], L'\u0178');  // Y with diaeresis
  EXPECT_EQ(wide[0x81 - 1], L'\u0081');  // unassigned: the C1 control
  EXPECT_EQ(ToWindows1252(wide), all);
}

}  // namespace
}  // namespace velmo
