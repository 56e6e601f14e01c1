// A write the volume has acknowledged is on the disk: each commit's log is
// synced before the call returns (a power loss cannot roll it back), and a
// batch of writes pays for one commit, not one each.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <climits>
#include <string>
#include <string_view>

#include "tests/platform/cedb_fixture.h"

namespace {

// Syncs of a volume's write-ahead log, counted while `counting` is set. The
// test program's fsync and fdatasync stand in front of the C library's.
bool counting = false;
int log_syncs = 0;

void CountIfLog(int fd) {
  if (!counting) return;
  char path[PATH_MAX];
  const std::string link = "/proc/self/fd/" + std::to_string(fd);
  const ssize_t n = readlink(link.c_str(), path, sizeof path - 1);
  if (n > 0 && std::string_view(path, static_cast<size_t>(n)).ends_with(".vol-wal")) ++log_syncs;
}

template <typename Call>
Call Real(const char* name) {
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" int fsync(int fd) {
  CountIfLog(fd);
  static const auto real = Real<int (*)(int)>("fsync");
  return real(fd);
}

extern "C" int fdatasync(int fd) {
  CountIfLog(fd);
  static const auto real = Real<int (*)(int)>("fdatasync");
  return real(fd);
}

namespace velmo::testing {
namespace {

class DurabilityTest : public CedbTest {
 protected:
  // The log syncs that `writes` single writes cost, inside one batch or not.
  int SyncsOf(int writes, bool batched) {
    log_syncs = 0;
    counting = true;
    const bool began = batched && cedb::BeginWriteBatch(&volume_);
    EXPECT_EQ(began, batched);
    for (int i = 0; i < writes; ++i) EXPECT_NE(Write(0, {PropI4(1, i)}), 0u);
    if (began) {
      EXPECT_TRUE(cedb::EndWriteBatch(&volume_));
    }
    counting = false;
    return log_syncs;
  }
};

TEST_F(DurabilityTest, EachCommitReachesTheDiskAndABatchIsOneCommit) {
  EXPECT_GE(SyncsOf(1, false), 1);
  EXPECT_GE(SyncsOf(20, false), 20);
  EXPECT_LE(SyncsOf(20, true), 2);
}

}  // namespace
}  // namespace velmo::testing
