#include <gtest/gtest.h>

#include "platform/owner.h"

namespace velmo::testing {
namespace {

TEST(OwnerTest, TheNameIsTheFirstGecosFieldElseTheLogin) {
  struct Case { const char* gecos; const char* login; const char* name; } const cases[] = {
      {"Ann Smith,Room 4,555-1234,,", "ann", "Ann Smith"},
      {"Ann Smith", "ann", "Ann Smith"},
      {"& Jones", "bob", "Bob Jones"},
      {",,,", "carol", "carol"},
      {"", "dave", "dave"},
      {"  Eve  ,x", "eve", "Eve"},
      {"Zo\xC3\xAB M\xC3\xBCller", "zoe", "Zo\xC3\xAB M\xC3\xBCller"},
      {"", "", ""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(owner::NameFromAccount(c.gecos, c.login), c.name) << c.gecos << " / " << c.login;
}

}  // namespace
}  // namespace velmo::testing
