// FindWebAddress on any text: the address is a part of the text of at most 511
// characters; the test-only use agrees; cutting its trailing punctuation leaves
// a beginning of it.
#include "fuzz/fuzz_text.h"
#include "links/scanners.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using velmo::fuzz::Require;
  const auto notes = velmo::fuzz::StoredNotesFromBytes(data, size);
  std::wstring in_bytes, in_decoded;
  Require(velmo::FindWebAddress(notes.bytes.c_str(), &in_bytes) ==
          velmo::FindWebAddress(notes.decoded.c_str(), &in_decoded));
  Require(in_bytes == in_decoded);
  const std::wstring text = velmo::fuzz::TextFromBytes(data, size);
  std::wstring address;
  const bool found = velmo::FindWebAddress(text, &address);
  Require(found == velmo::FindWebAddress(text, nullptr));
  if (!found) return 0;
  Require(!address.empty() && address.size() <= 511);
  Require(velmo::fuzz::ScannedPart(text).find(address) != std::wstring::npos);
  std::wstring cut = address;
  velmo::CutTrailingPunctuation(&cut);
  Require(address.compare(0, cut.size(), cut) == 0);
  return 0;
}
