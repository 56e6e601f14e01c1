#include <gtest/gtest.h>

#include <string>

#include "links/scanners.h"
#include "tests/links/ansi_text.h"

namespace velmo {
namespace {

struct FindCase { std::wstring text; std::wstring found; };  // found empty: none

std::wstring EmailIn(const std::wstring& text) {
  EmailAddress address;
  const bool found = FindEmail(text, &address);
  EXPECT_EQ(found, FindEmail(text, nullptr)) << "the test-only use must agree";
  if (const auto ansi = testing_links::AnsiForm(text)) {
    EmailAddress from_bytes;
    EXPECT_EQ(FindEmail(ansi->c_str(), &from_bytes), found);
    EXPECT_EQ(from_bytes.Text(), address.Text()) << "the stored bytes must agree";
  }
  return found ? address.Text() : L"";
}

std::wstring WebAddressIn(const std::wstring& text) {
  std::wstring address;
  const bool found = FindWebAddress(text, &address);
  EXPECT_EQ(found, FindWebAddress(text, nullptr)) << "the test-only use must agree";
  if (const auto ansi = testing_links::AnsiForm(text)) {
    std::wstring from_bytes;
    EXPECT_EQ(FindWebAddress(ansi->c_str(), &from_bytes), found);
    EXPECT_EQ(from_bytes, address) << "the stored bytes must agree";
  }
  return found ? address : L"";
}

TEST(FindEmail, Table) {
  const std::wstring a100(100, L'a');
  const FindCase cases[] = {
      {L"Send the report to john.doe@example.com.", L"john.doe@example.com."},
      {L"meet @ 5, then write to bob_smith@mail.example.org", L"bob_smith@mail.example.org"},
      {L"<anna-lena@firma.de>", L"anna-lena@firma.de"},
      {L"x@a.b", L"x@a.b"},
      {L"x@ab", L""},               // domain shorter than 3
      {L"x@abcdef", L""},           // domain without a dot
      {L"@example.com", L""},       // no local part
      {L"a@ex_ample.com", L""},     // "_" ends the domain
      {L"a@b@example.com", L"b@example.com"},
      {L"j\u00f6rg@example.com", L"rg@example.com"},  // the local part is ASCII
      {L"x" + a100 + L"@example.com", a100 + L"@example.com"},
      {L"a@" + std::wstring(255, L'b') + L".com", L""},  // the dot lies past 255
      {L"a@" + std::wstring(252, L'b') + L".com", L"a@" + std::wstring(252, L'b') + L".co"},
      {L"", L""},
      {L"no address here", L""},
  };
  for (const FindCase& c : cases) EXPECT_EQ(EmailIn(c.text), c.found) << ::testing::PrintToString(c.text);
  EXPECT_FALSE(FindEmail(static_cast<const wchar_t*>(nullptr), nullptr));
}

TEST(FindEmail, KeepsTheParts) {
  EmailAddress address;
  ASSERT_TRUE(FindEmail(L"to: info@example.com", &address));
  EXPECT_EQ(address.local_part, L"info");
  EXPECT_EQ(address.domain, L"example.com");
}

TEST(FindWebAddress, Table) {
  const FindCase cases[] = {
      {L"see http://example.com/page.", L"http://example.com/page."},
      {L"(see https://example.com/x).", L"https://example.com/x)."},
      {L"ftp://files.example.com then http://example.com", L"ftp://files.example.com"},
      {L"http://later.example.com after wsps://first", L"http://later.example.com"},
      {L"stream rtsp://cam.local/live now", L"rtsp://cam.local/live"},
      {L"file://home/me/plan.txt", L"file://home/me/plan.txt"},
      {L"wsp://a and wsps://b", L"wsp://a"},
      {L"HTTP://EXAMPLE.COM", L""},  // schemes are case-sensitive
      {L"foo://bar and www.example.com/x", L"www.example.com/x"},
      {L"visit www.example.com\tor not", L"www.example.com"},
      {L"www.ab", L""},
      {L"www.abcdef", L""},
      {L"www.ab www.example.com", L""},  // only the first "www." counts
      {L"www.a.b", L"www.a.b"},
      {L"read http://example.com/na\u00efve\u00a0page, then", L"http://example.com/na\u00efve\u00a0page,"},
      {L"http://" + std::wstring(600, L'x'), L"http://" + std::wstring(504, L'x')},
      {L"", L""},
  };
  for (const FindCase& c : cases) EXPECT_EQ(WebAddressIn(c.text), c.found) << ::testing::PrintToString(c.text);
}

TEST(CutTrailingPunctuation, CutsWhatTheSentenceAdded) {
  const FindCase cases[] = {
      {L"https://example.com/x).", L"https://example.com/x"},
      {L"http://example.com/a?b=c", L"http://example.com/a?b=c"},
      {L"www.example.com!\"", L"www.example.com"},
      {L"http://x/{}[]-:;,", L"http://x/"},
      {L"...", L""},
  };
  for (const FindCase& c : cases) {
    std::wstring address = c.text;
    CutTrailingPunctuation(&address);
    EXPECT_EQ(address, c.found);
  }
}

}  // namespace
}  // namespace velmo
