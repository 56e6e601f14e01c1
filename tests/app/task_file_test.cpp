// "Save As..." never replaces a file it was not told to, names the file after
// the task, and reports why a write failed.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "app/task_file.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

using TaskFileTest = DeviceTest;

TEST_F(TaskFileTest, AnExistingFileIsKeptUntilReplacingIsAskedFor) {
  const std::string path = (root() / "task.txt").string();
  int error = 0;
  EXPECT_EQ(app::WriteTaskFile(path, "first\n", false, &error), app::FileWrite::kWritten);
  EXPECT_EQ(app::WriteTaskFile(path, "second\n", false, &error), app::FileWrite::kExists);
  EXPECT_EQ(ReadFileBytes(path), "first\n");
  EXPECT_EQ(app::WriteTaskFile(path, "2\n", true, &error), app::FileWrite::kWritten);
  EXPECT_EQ(ReadFileBytes(path), "2\n") << "replaced whole, nothing of the longer text left";
  struct stat st;
  ASSERT_EQ(stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);

  std::filesystem::create_symlink(root() / "elsewhere", root() / "link.txt");
  EXPECT_EQ(app::WriteTaskFile((root() / "link.txt").string(), "x", true, &error),
            app::FileWrite::kFailed) << "a link is not followed";
  EXPECT_EQ(app::WriteTaskFile((root() / "no" / "dir.txt").string(), "x", false, &error),
            app::FileWrite::kFailed);
  EXPECT_EQ(error, ENOENT);
}

TEST(TaskFileNames, TheOfferedNameIsTheSubjectMadeSafe) {
  struct Case { std::wstring subject; std::wstring name; } const cases[] = {
      {L"Buy milk", L"~/Buy milk.txt"},
      {L"a/b\tc", L"~/a_b_c.txt"},
      {L"", L"~/Task.txt"},
      {L"..", L"~/Task.txt"},
      {L".hidden", L"~/Task.hidden.txt"},
      {std::wstring(1 << 20, L'x'), L"~/" + std::wstring(60, L'x') + L".txt"},
  };
  for (const Case& c : cases) EXPECT_EQ(app::DefaultTaskFileName(c.subject), c.name);
  const char* old = getenv("HOME");
  const std::string saved = old ? old : "";
  setenv("HOME", "/home/u", 1);
  EXPECT_EQ(app::ExpandUserPath("~/t.txt"), "/home/u/t.txt");
  EXPECT_EQ(app::ExpandUserPath("t.txt"), "/home/u/t.txt");
  EXPECT_EQ(app::ExpandUserPath("/tmp/-t.txt"), "/tmp/-t.txt");
  if (old) setenv("HOME", saved.c_str(), 1); else unsetenv("HOME");
}

}  // namespace
}  // namespace velmo::testing
