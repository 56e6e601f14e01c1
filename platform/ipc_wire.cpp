#include "platform/ipc_wire.h"

namespace velmo::ipc::wire {
namespace {

void Put16(BYTE* at, std::uint16_t v) {
  at[0] = static_cast<BYTE>(v);
  at[1] = static_cast<BYTE>(v >> 8);
}
void Put32(BYTE* at, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) at[i] = static_cast<BYTE>(v >> (8 * i));
}
std::uint16_t Get16(const BYTE* at) { return static_cast<std::uint16_t>(at[0] | at[1] << 8); }
std::uint32_t Get32(const BYTE* at) {
  std::uint32_t v = 0;
  for (int i = 3; i >= 0; --i) v = v << 8 | at[i];
  return v;
}

bool KnownKind(std::uint16_t kind) {
  return kind == static_cast<std::uint16_t>(Kind::kCopyData) ||
         kind == static_cast<std::uint16_t>(Kind::kDismissDialogs) ||
         kind == static_cast<std::uint16_t>(Kind::kReply);
}

}  // namespace

HeaderBytes Encode(const Header& header) {
  HeaderBytes out{};
  Put32(&out[0], header.magic);
  Put16(&out[4], header.version);
  Put16(&out[6], static_cast<std::uint16_t>(header.kind));
  Put32(&out[8], header.data);
  Put32(&out[12], header.size);
  return out;
}

bool Decode(const HeaderBytes& bytes, std::uint32_t max_payload, Header* header,
            std::string* why) {
  Header h;
  h.magic = Get32(&bytes[0]);
  h.version = Get16(&bytes[4]);
  const std::uint16_t kind = Get16(&bytes[6]);
  h.data = Get32(&bytes[8]);
  h.size = Get32(&bytes[12]);
  if (h.magic != kMagic) {
    *why = "bad magic";
  } else if (h.version != kVersion) {
    *why = "unsupported version " + std::to_string(h.version);
  } else if (!KnownKind(kind)) {
    *why = "unknown kind " + std::to_string(kind);
  } else if (h.size > max_payload) {
    *why = "payload of " + std::to_string(h.size) + " bytes exceeds " +
           std::to_string(max_payload);
  } else if (kind != static_cast<std::uint16_t>(Kind::kCopyData) && h.size != 0) {
    *why = "unexpected payload of " + std::to_string(h.size) + " bytes";
  } else {
    h.kind = static_cast<Kind>(kind);
    *header = h;
    return true;
  }
  return false;
}

}  // namespace velmo::ipc::wire
