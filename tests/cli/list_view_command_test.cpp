// velmo list VIEW on a device: the title and rows the program would show, under
// the device's own settings and the options that replace them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/settings.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

class ListViewCommandTest : public DeviceTest {
 protected:
  int Velmo(const std::vector<std::string>& args, std::string* out, std::string* err = nullptr) {
    return RunToEnd(VELMO_BIN, args, err, out);
  }
  // Adds a task and returns its object identifier as printed.
  std::string Add(const std::vector<std::string>& args) {
    std::vector<std::string> all = {"add"};
    all.insert(all.end(), args.begin(), args.end());
    std::string out;
    EXPECT_EQ(0, Velmo(all, &out));
    return out.substr(0, out.find('\n'));
  }
  void AddTasks() {
    call_ = Add({"Call Anna", "--due", "2031-03-09", "--categories", "Work", "--notes",
                 "about the budget"});
    tyres_ = Add({"Buy tyres", "--due", "2031-03-09", "--reminder", "2031-03-09T09:30",
                  "--priority", "high", "--categories", "Car,Errands"});
    report_ = Add({"Report", "--start", "2031-03-01", "--due", "2031-03-05", "--categories",
                   "work"});
    Add({"Holiday", "--due", "2031-03-11"});
    Add({"Someday"});
  }
  std::string call_, tyres_, report_;
};

TEST_F(ListViewCommandTest, OverdueAsTheProgramShowsIt) {
  AddTasks();
  std::string out;
  ASSERT_EQ(0, Velmo({"list", "overdue", "--at", "2031-03-10T12:00"}, &out));
  EXPECT_EQ("Overdue [3] \n" +
                tyres_ + "\tBuy tyres\t\t2031-03-09\t2031-03-09T09:30\t\thigh\tCar,Errands\n" +
                call_ + "\tCall Anna\t\t2031-03-09\t\t\tnormal\tWork\n" +
                report_ + "\tReport\t2031-03-01\t2031-03-05\t\t\tnormal\twork\n", out);
  ASSERT_EQ(0, Velmo({"list", "overdue", "--at", "2031-03-10", "--filter", "WORK"}, &out));
  EXPECT_EQ(0u, out.find("Overdue [2] WORK\n" + call_ + "\t")) << out;
}

TEST_F(ListViewCommandTest, TheDevicesSettingsAreInForce) {
  AddTasks();
  Settings s;
  LoadSettings(s);
  s.n_days = 1;
  s.filter_categories = L"Car";
  s.sort[5] = {{{3, 1}, {0, 0}, {0, 0}}};  // Next Days by subject, descending
  ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s));
  std::string out;
  ASSERT_EQ(0, Velmo({"list", "next", "--at", "2031-03-08T23:00"}, &out));
  EXPECT_EQ("Tomorrow [1] Car\n" + tyres_ + "\tBuy tyres\t\t2031-03-09\t2031-03-09T09:30\t\thigh\t"
            "Car,Errands\n", out);
  ASSERT_EQ(0, Velmo({"list", "next", "--at", "2031-03-08T23:00", "--filter", ""}, &out));
  EXPECT_EQ(0u, out.find("Tomorrow [2] \n" + call_ + "\tCall Anna\t")) << out;
  EXPECT_NE(std::string::npos, out.find("\n" + tyres_ + "\tBuy tyres\t")) << out;
}

TEST_F(ListViewCommandTest, SearchFindsSubjectsAndNotes) {
  AddTasks();
  std::string out;
  ASSERT_EQ(0, Velmo({"list", "search", "--search", "BUDGET", "--filter", ""}, &out));
  EXPECT_EQ("Search [1] \n" + call_ + "\tCall Anna\t\t2031-03-09\t\t\tnormal\tWork\n", out);
  ASSERT_EQ(0, Velmo({"list", "search", "--search", "t", "--filter", ""}, &out));
  EXPECT_EQ(0u, out.find("Search [3] \n")) << out;  // Buy tyres, Report, Call Anna's notes
}

TEST_F(ListViewCommandTest, BadArgumentsSayWhatIsWrong) {
  const struct { std::vector<std::string> args; const char* says; } cases[] = {
      {{"list", "later"}, "unknown view 'later'"},
      {{"list", "today", "--at", "tomorrow"}, "bad date 'tomorrow'"},
      {{"list", "today", "--filter"}, "'--filter' needs a value"},
      {{"list", "all", "--search", "x"}, "--search goes with the search view"},
  };
  for (const auto& c : cases) {
    std::string out, err;
    EXPECT_EQ(2, Velmo(c.args, &out, &err)) << c.args[1];
    EXPECT_NE(std::string::npos, err.find(c.says)) << err;
    EXPECT_EQ("", out);
  }
}

}  // namespace
}  // namespace velmo::testing
