// A fresh device root in a temporary folder for one test, removed afterwards.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace velmo::testing {

class TempRoot {
 public:
  TempRoot();
  ~TempRoot();
  TempRoot(const TempRoot&) = delete;
  TempRoot& operator=(const TempRoot&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// Base fixture: every test gets its own device root, set for the process and
// exported as VELMO_ROOT for child processes.
class DeviceTest : public ::testing::Test {
 protected:
  const std::filesystem::path& root() const { return root_.path(); }

 private:
  TempRoot root_;
};

// A file's bytes ("" when it cannot be read), and a file written with the bytes,
// its folders made first.
std::string ReadFileBytes(const std::filesystem::path& file);
void WriteFileBytes(const std::filesystem::path& file, const std::string& bytes);

}  // namespace velmo::testing
