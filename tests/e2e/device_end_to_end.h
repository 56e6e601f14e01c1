// A device in a temporary root with a runtime folder of its own, as the runs
// of the real programs in tmux use it: the environment to start velmo-todo in,
// the companion command on the same device, and a look at the screen's rows.
#pragma once

#include <string>
#include <vector>

#include "tests/support/temp_root.h"

namespace velmo::testing {

class DeviceEndToEndTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // VELMO_ROOT, XDG_RUNTIME_DIR and a UTF-8 locale.
  std::vector<std::string> Env() const;
  // What `velmo --root ROOT ARGS` prints.
  std::string Velmo(const std::string& args) const;
  // The line of `velmo list` for the task of that subject, or "".
  std::string ListLine(const std::string& subject) const;
  // The row of the screen that shows `text`, or "".
  static std::string RowWith(const std::string& screen, const std::string& text);

  std::string run_;
};

}  // namespace velmo::testing
