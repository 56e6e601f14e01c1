#include <gtest/gtest.h>
#include <stdlib.h>

#include "app/resource_check.h"
#include "platform/wstr.h"
#include "res/strings.h"
#include "tests/support/temp_root.h"

namespace velmo::app {
namespace {

class ResourceCheckTest : public testing::DeviceTest {
 protected:
  void TearDown() override {
    unsetenv("VELMO_LANGUAGE_FILE");
    res::LoadLanguageFile("");
  }
  std::wstring ProgramFile() const { return FromUtf8((root() / "velmo-todo").string()); }
  std::string Write(const std::string& name, const std::string& lines) const {
    testing::WriteFileBytes(root() / name, lines);
    return (root() / name).string();
  }
};

TEST_F(ResourceCheckTest, OwnTablePasses) {
  EXPECT_TRUE(LoadLanguageResources(ProgramFile()));
  EXPECT_EQ(CheckStringResources(ProgramFile()), L"");
}

TEST_F(ResourceCheckTest, MessagesForAForeignTable) {
  const std::wstring beside = ProgramFile() + L".0409.mui";
  struct Case { const char* table; bool file_beside; std::wstring message; } cases[] = {
      {"120\tOther resources\n121\tOther Program\n", false, L"Restart the device"},
      {"120\tOther resources\n121\tOther Program\n", true,
       L"Bad installation.\r\nYou have to remove this file:\r\n" + beside},
      {"120\tOther resources\n", false, L"Restart the device"},
      {"121\tOther Program\n", true, L"Restart the device or Reinstall"},
      {"7\tnothing of ours\n", false, L"Restart the device or Reinstall"},
      // The name alone decides: a table with our name passes.
      {"121\tVelmo ToDo List\n", true, L""},
  };
  for (const Case& c : cases) {
    ASSERT_TRUE(res::LoadLanguageFile(Write("table.txt", c.table)));
    std::filesystem::remove(ToUtf8(beside));
    if (c.file_beside) Write("velmo-todo.0409.mui", "x");
    EXPECT_EQ(CheckStringResources(ProgramFile()), c.message) << c.table;
  }
}

TEST_F(ResourceCheckTest, LanguageFileInForce) {
  // Nothing beside the program and nothing named: the built-in table stays.
  EXPECT_TRUE(LoadLanguageResources(ProgramFile()));
  EXPECT_EQ(res::Text(121), L"Velmo ToDo List");
  // A file beside the program is put in force.
  Write("velmo-todo.0409.mui", "121\tBeside\n");
  EXPECT_TRUE(LoadLanguageResources(ProgramFile()));
  EXPECT_EQ(res::Text(121), L"Beside");
  // A named file wins over the one beside.
  setenv("VELMO_LANGUAGE_FILE", Write("named.txt", "121\tNamed\n").c_str(), 1);
  EXPECT_TRUE(LoadLanguageResources(ProgramFile()));
  EXPECT_EQ(res::Text(121), L"Named");
  // A named file that cannot be read changes nothing.
  setenv("VELMO_LANGUAGE_FILE", (root() / "missing.txt").c_str(), 1);
  EXPECT_FALSE(LoadLanguageResources(ProgramFile()));
  EXPECT_EQ(res::Text(121), L"Named");
}

}  // namespace
}  // namespace velmo::app
