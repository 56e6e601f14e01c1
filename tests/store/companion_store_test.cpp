// velmo add, velmo list and velmo demo on a device, as a user runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

class CompanionStoreTest : public DeviceTest {
 protected:
  static RunResult Velmo(const std::vector<std::string>& args) { return RunProgram(VELMO_BIN, args); }
  std::vector<std::string> ListLines() {
    const RunResult list = Velmo({"list"});
    EXPECT_EQ(list.code, 0);
    std::vector<std::string> lines;
    std::istringstream in(list.out);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
};

TEST_F(CompanionStoreTest, AddedTasksListInDatabaseOrder) {
  const RunResult first = Velmo({"add", "Buy tyres", "--start", "2031-03-01", "--due", "2031-03-04",
                                 "--reminder", "2031-03-04T09:30", "--priority", "high", "--categories",
                                 "Car,Errands", "--notes", "Call 0171 2345678", "--private"});
  const RunResult second = Velmo({"add", "Tax\treturn", "--priority", "low", "--complete"});
  ASSERT_EQ(first.code, 0);
  ASSERT_EQ(second.code, 0);
  const std::vector<std::string> lines = ListLines();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], first.out.substr(0, first.out.size() - 1) +
                          "\tBuy tyres\t2031-03-01\t2031-03-04\t2031-03-04T09:30\t\thigh\tCar,Errands");
  char today[16];
  const time_t now = time(nullptr);
  std::strftime(today, sizeof today, "%Y-%m-%d", localtime(&now));
  EXPECT_EQ(lines[1], second.out.substr(0, second.out.size() - 1) + "\tTax return\t\t\t\t" + today + "\tlow\t");
}

TEST_F(CompanionStoreTest, RefusalsAndBadArgumentsExitNonZero) {
  const struct { std::vector<std::string> args; int code; const char* says; } cases[] = {
      {{"add", "No due", "--reminder", "2031-03-04T09:30"}, 1, "Reminder"},
      {{"add", "Backwards", "--start", "2031-03-05", "--due", "2031-03-04"}, 1, "Date"},
      {{"add", "Bad", "--due", "2031-02-30"}, 2, "2031-02-30"},
      {{"add", "Bad", "--priority", "urgent"}, 2, "urgent"},
      {{"add"}, 2, "usage"},
      {{"demo", "0"}, 2, "usage"},
  };
  for (const auto& c : cases) {
    const RunResult r = Velmo(c.args);
    EXPECT_EQ(r.code, c.code) << c.args[1];
    EXPECT_NE(r.err.find(c.says), std::string::npos) << r.err;
  }
  EXPECT_TRUE(ListLines().empty()) << "nothing refused was stored";
}

TEST_F(CompanionStoreTest, DemoFillsTheDevice) {
  const RunResult demo = Velmo({"demo", "300"});
  ASSERT_EQ(demo.code, 0);
  EXPECT_EQ(demo.out, "300 tasks added\n");
  const std::vector<std::string> lines = ListLines();
  ASSERT_EQ(lines.size(), 300u);
  const std::regex reminder(R"(\t\d{4}-\d\d-\d\dT\d\d:\d\d\t)");
  EXPECT_GT(std::count_if(lines.begin(), lines.end(),
                          [&](const std::string& l) { return std::regex_search(l, reminder); }),
            30);
}

}  // namespace
}  // namespace velmo::testing
