#include "tests/support/temp_root.h"

#include <stdlib.h>

#include <fstream>
#include <iterator>

#include "platform/device.h"

namespace velmo::testing {

TempRoot::TempRoot() {
  std::string pattern = (std::filesystem::temp_directory_path() / "velmo-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) ADD_FAILURE() << "cannot make a temporary root";
  path_ = pattern;
  device::SetRoot(path_);
  setenv("VELMO_ROOT", path_.c_str(), 1);
}

TempRoot::~TempRoot() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

std::string ReadFileBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteFileBytes(const std::filesystem::path& file, const std::string& bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace velmo::testing
