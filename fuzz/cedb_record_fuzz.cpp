// Feeds arbitrary bytes as a record's stored properties: parsing must refuse
// damaged ones, and whatever it accepts must lay out into a read buffer of the
// size it asked for, both for every property and for chosen ones.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/cedb_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<velmo::cedb::StoredProp> stored;
  if (!velmo::cedb::ParseRecord(data, size, &stored)) return 0;
  const CEPROPID chosen[] = {0x0037001F, 0x00170041, 0x41040040, 0x00260003};
  for (const CEPROPID* ids : {static_cast<const CEPROPID*>(nullptr), chosen}) {
    std::vector<const velmo::cedb::StoredProp*> selected;
    velmo::cedb::SelectProps(stored, ids, ids ? 4 : 0, &selected);
    std::vector<std::uint64_t> buffer(velmo::cedb::ReadBufferSize(selected) / 8 + 1);
    velmo::cedb::FillReadBuffer(selected, ids, reinterpret_cast<BYTE*>(buffer.data()));
  }
  return 0;
}
