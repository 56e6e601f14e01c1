#include "links/link_spans.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmo {
namespace {

// Each link as the text it covers and its kind.
struct Found {
  std::wstring text;
  LinkKind kind;
  bool operator==(const Found&) const = default;
};

std::vector<Found> Links(const std::wstring& text) {
  std::vector<Found> found;
  for (const LinkSpan& s : FindLinkSpans(text)) found.push_back({text.substr(s.start, s.length), s.kind});
  return found;
}

TEST(FindLinkSpans, EveryLinkInOrderEachLineOnItsOwn) {
  using K = LinkKind;
  struct Case {
    std::wstring text;
    std::vector<Found> links;
  } cases[] = {
      {L"", {}},
      {L"Nothing to see here.", {}},
      {L"Call 555-1234567 today", {{L"555-1234567", K::kPhone}}},
      {L"Mail ann@example.com, then see (www.example.org).",
       {{L"ann@example.com", K::kEmail}, {L"www.example.org", K::kWeb}}},
      // Two of a kind: the scan goes on behind the first.
      {L"0123 4567890 or 0987 6543210",
       {{L"0123 4567890", K::kPhone}, {L"0987 6543210", K::kPhone}}},
      {L"https://a.example/x and http://b.example/y!",
       {{L"https://a.example/x", K::kWeb}, {L"http://b.example/y", K::kWeb}}},
      // A number does not run on over a line break.
      {L"0123\r\n4567890", {{L"4567890", K::kPhone}}},
      {L"first\nbob@mail.example\r\nlast 030 1234567",
       {{L"bob@mail.example", K::kEmail}, {L"030 1234567", K::kPhone}}},
      // Dates, addresses and times are not numbers.
      {L"15.01.2008 at 192.168.100.200", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(Links(c.text), c.links) << std::string(c.text.begin(), c.text.end());
}

TEST(FindLinkSpans, SpansDoNotOverlapAndStayInTheText) {
  const std::wstring text = L"x@y.example www.y.example 0301234567 (0301234567) a@b.cd\n+49 30 1234567";
  size_t end = 0;
  for (const LinkSpan& s : FindLinkSpans(text)) {
    EXPECT_GE(s.start, end);
    end = s.start + s.length;
    EXPECT_LE(end, text.size());
  }
  EXPECT_GT(end, 0u);
}

}  // namespace
}  // namespace velmo
