// The hand-over channel's wire format: every message and every answer is one
// fixed 16-byte header (little-endian: magic, version, kind, data, size) followed
// by size payload bytes. Kept apart so that the tests and the fuzzer can build and
// break frames.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/wintypes.h"

namespace velmo::ipc::wire {

constexpr std::uint32_t kMagic = 0x4F4D4C56;  // "VLMO"
constexpr std::uint16_t kVersion = 1;
constexpr size_t kHeaderSize = 16;

enum class Kind : std::uint16_t {
  kCopyData = 1,        // data: dwData; payload: the record's bytes
  kDismissDialogs = 2,  // no payload
  kReply = 0x80,        // the receiver's answer; data: the result
};

struct Header {
  std::uint32_t magic = kMagic;
  std::uint16_t version = kVersion;
  Kind kind = Kind::kCopyData;
  std::uint32_t data = 0;
  std::uint32_t size = 0;
};

using HeaderBytes = std::array<BYTE, kHeaderSize>;

HeaderBytes Encode(const Header& header);

// Reads and checks a header: the magic, the version, a known kind and a payload of
// at most max_payload bytes (a reply carries none). On failure, why says what was
// wrong and false is returned.
bool Decode(const HeaderBytes& bytes, std::uint32_t max_payload, Header* header,
            std::string* why);

}  // namespace velmo::ipc::wire
