// Writers killed with SIGKILL at random moments, several at once: every task a
// writer acknowledged (printed its identifier) is there afterwards, and every
// file of the device passes its integrity check.
#include <signal.h>

#include <chrono>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

using CrashTest = DeviceTest;

constexpr int kWritersAtOnce = 4;
constexpr int kMostAdds = 240;
constexpr size_t kEnoughAcknowledged = 30;
// A bound for a slow machine (a sanitizer build under load); a quiet one has
// enough acknowledged adds after a few seconds.
constexpr auto kLongestRun = std::chrono::seconds(45);

TEST_F(CrashTest, WritersKilledAtRandomLoseNothingAcknowledged) {
  const std::string device = root().string();
  ASSERT_EQ(RunProgram(VELMO_BIN, {"--root", device, "add", "first"}).code, 0);
  std::mt19937 random(20261123);
  std::set<unsigned> acknowledged;
  int adds = 0, killed = 0;
  const auto end = std::chrono::steady_clock::now() + kLongestRun;
  while ((acknowledged.size() < kEnoughAcknowledged || killed == 0) && adds < kMostAdds &&
         std::chrono::steady_clock::now() < end) {
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (int i = 0; i < kWritersAtOnce; ++i, ++adds)
      writers.push_back(std::make_unique<ChildProcess>(
          VELMO_BIN, std::vector<std::string>{"--root", device, "add", "task " + std::to_string(adds)}));
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 40000));
    writers[random() % kWritersAtOnce]->Signal(SIGKILL);
    for (auto& writer : writers) {
      const int code = writer->Wait(std::chrono::seconds(30));
      if (code == 0) {
        acknowledged.insert(static_cast<unsigned>(std::stoul(writer->output())));
      } else {
        ++killed;
        EXPECT_EQ(code, -1) << writer->error_output();  // only the kill may stop a writer
      }
    }
  }
  EXPECT_GT(killed, 0);
  EXPECT_GT(acknowledged.size(), 20u);

  const RunResult list = RunProgram(VELMO_BIN, {"--root", device, "list"});
  ASSERT_EQ(list.code, 0) << list.err;
  std::set<unsigned> listed;
  std::istringstream lines(list.out);
  for (std::string line; std::getline(lines, line);) listed.insert(static_cast<unsigned>(std::stoul(line)));
  for (const unsigned oid : acknowledged) EXPECT_TRUE(listed.count(oid)) << "lost task " << oid;

  const RunResult check = RunProgram(VELMO_BIN, {"--root", device, "check"});
  EXPECT_EQ(check.code, 0) << check.out;
}

}  // namespace
}  // namespace velmo::testing
