// Copies of record texts that stay where they are until a load ends, kept in
// blocks that are used again by the next load.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace velmo {

// The second thread of a load reads the copies while more are added. The
// blocks are kept for the next load: fresh memory would cost a page fault
// every 4 KB.
class TextArena {
 public:
  void Clear() {
    block_ = 0;
    used_ = 0;
    oversized_.clear();
  }

  // A copy of `bytes` followed by a zero byte.
  std::string_view Copy(std::string_view bytes) {
    const size_t need = bytes.size() + 1;
    if (need > kBlockSize) return Place(oversized_.emplace_back(new char[need]).get(), bytes);
    if (block_ == blocks_.size() || used_ + need > kBlockSize) {
      if (block_ < blocks_.size()) ++block_;
      if (block_ == blocks_.size()) blocks_.emplace_back(new char[kBlockSize]);
      used_ = 0;
    }
    const std::string_view copy = Place(blocks_[block_].get() + used_, bytes);
    used_ += need;
    return copy;
  }

 private:
  static constexpr size_t kBlockSize = 256 * 1024;
  static std::string_view Place(char* at, std::string_view bytes) {
    bytes.copy(at, bytes.size());
    at[bytes.size()] = '\0';
    return {at, bytes.size()};
  }
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::vector<std::unique_ptr<char[]>> oversized_;
  size_t block_ = 0;  // the block being filled
  size_t used_ = 0;
};

}  // namespace velmo
