#include "tests/e2e/device_end_to_end.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <sstream>

#include "tests/e2e/tmux_session.h"

namespace velmo::testing {

void DeviceEndToEndTest::SetUp() {
  run_ = root().string() + "/run";
  mkdir(run_.c_str(), 0700);
  setenv("XDG_RUNTIME_DIR", run_.c_str(), 1);
}

void DeviceEndToEndTest::TearDown() { unsetenv("XDG_RUNTIME_DIR"); }

std::vector<std::string> DeviceEndToEndTest::Env() const {
  return {"VELMO_ROOT=" + root().string(), "XDG_RUNTIME_DIR=" + run_, "LANG=C.UTF-8"};
}

std::string DeviceEndToEndTest::Velmo(const std::string& args) const {
  return CommandOutput(std::string(VELMO_BIN) + " --root '" + root().string() + "' " + args);
}

std::string DeviceEndToEndTest::ListLine(const std::string& subject) const {
  std::istringstream lines(Velmo("list"));
  for (std::string line; std::getline(lines, line);)
    if (line.find("\t" + subject + "\t") != std::string::npos) return line;
  return "";
}

std::string DeviceEndToEndTest::RowWith(const std::string& screen, const std::string& text) {
  std::istringstream rows(screen);
  for (std::string row; std::getline(rows, row);)
    if (row.find(text) != std::string::npos) return row;
  return "";
}

}  // namespace velmo::testing
