// FindEmail on any text: the address is a part of the text, its local part 1 to
// 100 characters, its domain 3 to 255 holding a dot; the test-only use agrees.
#include "fuzz/fuzz_text.h"
#include "links/scanners.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using velmo::fuzz::Require;
  const auto notes = velmo::fuzz::StoredNotesFromBytes(data, size);
  velmo::EmailAddress in_bytes, in_decoded;
  Require(velmo::FindEmail(notes.bytes.c_str(), &in_bytes) == velmo::FindEmail(notes.decoded.c_str(), &in_decoded));
  Require(in_bytes.Text() == in_decoded.Text());
  const std::wstring text = velmo::fuzz::TextFromBytes(data, size);
  velmo::EmailAddress address;
  const bool found = velmo::FindEmail(text, &address);
  Require(found == velmo::FindEmail(text, nullptr));
  if (!found) return 0;
  Require(!address.local_part.empty() && address.local_part.size() <= 100);
  Require(address.domain.size() >= 3 && address.domain.size() <= 255);
  Require(address.domain.find(L'.') != std::wstring::npos);
  Require(velmo::fuzz::ScannedPart(text).find(address.Text()) != std::wstring::npos);
  return 0;
}
