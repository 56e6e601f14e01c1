// velmo add and velmo edit on a device, as a user runs them: both save through
// the editor's commit, refuse what it refuses with its texts, and write nothing
// then.
#include <gtest/gtest.h>

#include <ctime>
#include <sstream>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

class EditCommandTest : public DeviceTest {
 protected:
  static RunResult Velmo(std::vector<std::string> args) { return RunProgram(VELMO_BIN, args); }
  static std::string Id(const RunResult& r) { return r.out.substr(0, r.out.find('\n')); }
  static std::string Add(std::vector<std::string> args) {
    args.insert(args.begin(), "add");
    const RunResult r = Velmo(args);
    EXPECT_EQ(r.code, 0) << r.err;
    return Id(r);
  }
  static std::string Edit(std::vector<std::string> args) {
    args.insert(args.begin(), "edit");
    const RunResult r = Velmo(args);
    EXPECT_EQ(r.code, 0) << r.err;
    return Id(r);
  }
  static std::vector<std::string> Lines() {
    const RunResult list = Velmo({"list"});
    std::vector<std::string> lines;
    std::istringstream in(list.out);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
};

TEST_F(EditCommandTest, AddAndEditRefuseWhatTheEditorRefusesWithItsTexts) {
  const std::string id = Add({"Plan", "--start", "2031-03-01", "--due", "2031-03-10"});
  const std::vector<std::string> before = Lines();
  const struct {
    std::vector<std::string> add, edit;
    std::string says;
  } cases[] = {
      {{"--reminder", "2031-03-04T09:30"},
       {"--start", "none", "--due", "none", "--reminder", "2031-03-04T09:30"},
       "Invalid Date inputs: ReminderTime needs a DueDate"},
      {{"--due", "2031-03-01", "--reminder", "2031-03-03T10:00"},
       {"--reminder", "2031-03-12T10:00"},
       "Invalid Date inputs: ReminderTime after DueDate"},
      {{"--start", "2031-03-05"}, {"--due", "none"}, "Invalid Date inputs: StartDate needs a DueDate"},
      {{"--start", "2031-03-05", "--due", "2031-03-04"}, {"--start", "2031-03-11"},
       "Invalid Date inputs: DueDate before StartDate"},
      {{"--due", "2031-03-01", "--recurs", "daily", "--until", "2035-01-01"},
       {"--recurs", "daily", "--until", "2035-01-01"},
       "Invalid Date inputs: Too many Occurrences."},
      {{"--due", "2031-03-01", "--reminder", "2020-01-01T09:00"},
       {"--reminder", "2020-01-01T09:00"},
       "The reminder for this task is in the past, so no reminder will be set. Is this OK?"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.says);
    std::vector<std::string> add = {"add", "New"}, edit = {"edit", id};
    add.insert(add.end(), c.add.begin(), c.add.end());
    edit.insert(edit.end(), c.edit.begin(), c.edit.end());
    const RunResult added = Velmo(add), edited = Velmo(edit);
    EXPECT_EQ(added.code, 1);
    EXPECT_EQ(edited.code, 1);
    EXPECT_NE(added.err.find("velmo add: " + c.says + "\n"), std::string::npos) << added.err;
    EXPECT_NE(edited.err.find("velmo edit: " + c.says + "\n"), std::string::npos) << edited.err;
    EXPECT_TRUE(added.out.empty() && edited.out.empty());
  }
  EXPECT_EQ(Lines(), before) << "nothing refused was written";
}

TEST_F(EditCommandTest, FieldsNotGivenKeepTheTasksValues) {
  Settings s;
  LoadSettings(s);
  s.reminder_delta = 2;  // the reminder must come back as the user gave it
  ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s));
  const std::string id = Add({"Buy tyres", "--start", "2031-03-01", "--due", "2031-03-04", "--reminder",
                              "2031-03-03T09:30", "--priority", "high", "--categories", "Car,Errands",
                              "--notes", "winter ones", "--private", "--team"});
  ASSERT_EQ(Lines(), std::vector<std::string>{id + "\tBuy tyres\t2031-03-01\t2031-03-04\t2031-03-03T09:30\t\t"
                                                    "high\tCar,Errands"});
  EXPECT_EQ(Edit({id, "--subject", "Buy winter tyres"}), id);
  EXPECT_EQ(Lines(), std::vector<std::string>{id + "\tBuy winter tyres\t2031-03-01\t2031-03-04\t"
                                                    "2031-03-03T09:30\t\thigh\tCar,Errands"});
  EXPECT_EQ(Edit({id, "--due", "2031-03-05", "--priority", "low", "--reminder", "none"}), id);
  EXPECT_EQ(Lines(), std::vector<std::string>{id + "\tBuy winter tyres\t2031-03-01\t2031-03-05\t\t\tlow\t"
                                                    "Car,Errands"});

  // Notes edited here replace the task by a copy with a new identifier.
  const std::string copy = Edit({id, "--notes", "summer ones"});
  EXPECT_NE(copy, id);
  EXPECT_EQ(Lines(), std::vector<std::string>{copy + "\tBuy winter tyres\t2031-03-01\t2031-03-05\t\t\tlow\t"
                                                      "Car,Errands"});
  const RunResult gone = Velmo({"edit", id, "--subject", "x"});
  EXPECT_EQ(gone.code, 1);
  EXPECT_NE(gone.err.find("there is no task " + id), std::string::npos) << gone.err;
}

TEST_F(EditCommandTest, CompletingARecurringTaskCompletesOneOccurrence) {
  const std::string id = Add({"Water plants", "--due", "2031-03-04", "--recurs", "weekly"});
  EXPECT_EQ(Edit({id, "--complete"}), id);
  char today[16];
  const time_t now = time(nullptr);
  std::strftime(today, sizeof today, "%Y-%m-%d", localtime(&now));
  const std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], id + "\tWater plants\t\t2031-03-11\t\t\tnormal\t") << "the series moved on";
  EXPECT_EQ(lines[1].substr(lines[1].find('\t')),
            "\tWater plants\t\t2031-03-04\t\t" + std::string(today) + "\tnormal\t") << "this one done";
}

TEST_F(EditCommandTest, PastReminderNeedsYesAndHelpListsEdit) {
  const std::string id = Add({"Call back", "--due", "2031-03-04", "--reminder", "2031-03-04T08:00"});
  EXPECT_EQ(Edit({id, "--reminder", "2020-01-01T09:00", "--yes"}), id);
  EXPECT_EQ(Lines(), std::vector<std::string>{id + "\tCall back\t\t2031-03-04\t\t\tnormal\t"}) << "no reminder";

  const RunResult help = Velmo({"--help"});
  EXPECT_NE(help.out.find("\n  edit ID [OPTIONS]"), std::string::npos) << help.out;
  const struct {
    std::vector<std::string> args;
    std::string says;
  } bad[] = {
      {{"edit"}, "usage: velmo edit ID"},
      {{"edit", "12x"}, "usage: velmo edit ID"},
      {{"edit", id, "--recurs", "fortnightly"}, "bad value: --recurs fortnightly"},
      {{"edit", id, "--due"}, "missing value: --due"},
      {{"edit", id, "--colour", "red"}, "unknown option: --colour"},
  };
  for (const auto& b : bad) {
    const RunResult r = Velmo(b.args);
    EXPECT_EQ(r.code, 2) << b.says;
    EXPECT_NE(r.err.find(b.says), std::string::npos) << r.err;
  }
}

}  // namespace
}  // namespace velmo::testing
