// FindPhoneNumber on any text: the number it returns is a part of the text of
// 7 to 20 digits, at most 63 characters, starting with "(", "+" or a digit and
// ending with a digit.
#include <algorithm>

#include "fuzz/fuzz_text.h"
#include "links/scanners.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using velmo::fuzz::Require;
  const auto notes = velmo::fuzz::StoredNotesFromBytes(data, size);
  Require(velmo::FindPhoneNumber(notes.bytes.c_str()) == velmo::FindPhoneNumber(notes.decoded.c_str()));
  const std::wstring text = velmo::fuzz::TextFromBytes(data, size);
  const std::wstring number = velmo::FindPhoneNumber(text);
  if (number.empty()) return 0;
  const auto digits = std::count_if(number.begin(), number.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
  Require(digits >= 7 && digits <= 20 && number.size() <= 63);
  Require(number.back() >= L'0' && number.back() <= L'9');
  Require(number.front() == L'(' || number.front() == L'+' || (number.front() >= L'0' && number.front() <= L'9'));
  Require(velmo::fuzz::ScannedPart(text).find(number) != std::wstring::npos);
  return 0;
}
