// Feeds arbitrary bytes to the hand-over channel's header check and to the
// decoding of a received copy-data record: neither may crash or read past the
// bytes it was given.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "app/handover.h"
#include "platform/ipc.h"
#include "platform/ipc_wire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size >= velmo::ipc::wire::kHeaderSize) {
    velmo::ipc::wire::HeaderBytes raw;
    std::memcpy(raw.data(), data, raw.size());
    velmo::ipc::wire::Header header;
    std::string why;
    velmo::ipc::wire::Decode(raw, velmo::ipc::kMaxPayload, &header, &why);
  }
  if (size >= 5) {
    DWORD claimed;
    std::memcpy(&claimed, data, 4);
    const ULONG_PTR code = data[4] % 2 ? 0 : 5;
    velmo::app::DecodeHandover(code, claimed, size > 5 ? data + 5 : nullptr, size - 5);
  }
  return 0;
}
