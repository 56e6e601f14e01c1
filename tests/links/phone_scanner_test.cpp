#include <gtest/gtest.h>

#include <string>

#include "links/scanners.h"
#include "tests/links/ansi_text.h"

namespace velmo {
namespace {

struct PhoneCase { const wchar_t* text; const wchar_t* number; };  // number empty: none found

void ExpectNumbers(const PhoneCase* begin, const PhoneCase* end) {
  for (const PhoneCase* c = begin; c != end; ++c) {
    EXPECT_EQ(FindPhoneNumber(c->text), c->number) << "text: " << ::testing::PrintToString(std::wstring(c->text));
    if (const auto ansi = testing_links::AnsiForm(c->text)) {
      EXPECT_EQ(FindPhoneNumber(ansi->c_str()), c->number) << "bytes of: " << ::testing::PrintToString(std::wstring(c->text));
    }
  }
}

TEST(FindPhoneNumber, RealLookingText) {
  const PhoneCase cases[] = {
      {L"Call 555-1234567 today", L"555-1234567"},
      {L"Call Dr. Smith at +44 20 7946 0958 before 5pm.", L"+44 20 7946 0958"},
      {L"Office (0123) 456789, ask for Anna", L"(0123) 456789"},
      {L"Home (030) 1234567 (evenings)", L"(030) 1234567"},
      {L"Dial 0800 555 1234w123 for the extension", L"0800 555 1234w123"},
      {L"Pay invoice 2024/117 to account 12.345.678", L"12.345.678"},
      {L"Meeting 15.01.2008 10:30 with Bob", L""},  {L"Server 192.168.100.200 is down", L""},
      {L"Buy milk, eggs and bread", L""},           {L"", L""},
      {L"1234567", L"1234567"},
  };
  ExpectNumbers(std::begin(cases), std::end(cases));
}

// Each test that can turn a candidate down, with a case just on the other side.
TEST(FindPhoneNumber, EachRejectionStep) {
  const PhoneCase cases[] = {
      // A candidate starts only at "(", "+" or a digit.
      {L"no digits here at all", L""},
      // ...at the start of a word, not after "=" that follows a letter or digit.
      {L"a=123456789", L""},           {L"x123456789", L""},            {L".=123456789", L"123456789"},
      {L"=123456789", L"123456789"},
      {L"\u00e9123456789", L""},  // a letter of another script is a letter too
      // The read needs 7 characters.
      {L"12 345!", L""},
      // A "+" may only come first (or anywhere after an opening parenthesis).
      {L"12345+67890", L""},                       {L"+4930 1234567", L"+4930 1234567"},
      {L"(+49) 30 1234567", L"(+49) 30 1234567"},
      // Unpaired parentheses end the candidate.
      {L"0123) 456789", L""},
      {L"(0123 456789", L"0123 456789"},
      // An opening parenthesis must close within 8 characters.
      {L"(0800 555 1234)", L"0800 555 1234"},
      {L"(1234567) 89", L"(1234567) 89"},
      // 7 to 20 digits.
      {L"123456", L""},                 {L"123 456", L""},
      {L"123456789012345678901", L""},
      {L"12345678901234567890", L"12345678901234567890"},
      // A leading "(" must keep its ")" after the trailing characters are cut.
      {L"(0123456)", L"0123456"},
      // Internet addresses, exactly as printed.
      {L"192.168.100.200", L""},                 {L"192.168.001.200", L"192.168.001.200"},
      {L"300.168.100.200", L"300.168.100.200"},
      // Codes enclosed in punctuation, unless brackets or quotes enclose them.
      {L"#1234567#", L""},           {L"/2024001/", L""},           {L"[1234567]", L"1234567"},
      {L"\"1234567\"", L"1234567"},  {L"<1234567>", L"1234567"},
      {L"\u201c1234567\u201d", L""},  // curly quotes are punctuation, not a pair
      {L"#123 4567#", L"123 4567"},
      // Times of day beside a ":" with a digit beyond it.
      {L"10:12.30 45 678", L""},             {L"12.30 45 678:15", L""},
      {L"12.30 45 678:x", L"12.30 45 678"},  {L"x:12.30 45 678", L"12.30 45 678"},
      // Dates with a year from 1900 to 2100.
      {L"15.01.2008", L""},            {L"2008.01.15", L""},            {L"1.1.1900", L""},
      {L"15.01.1850", L"15.01.1850"},  {L"15.01.2101", L"15.01.2101"},
      // Parts of a hyphenated code.
      {L"AB-1234-5678", L""},            {L"1234-5678-CD", L""},
      {L"Tel 1234-5678", L"1234-5678"},
      {L"-12345678", L"12345678"},  // all digits: a minus sign, not a code
  };
  ExpectNumbers(std::begin(cases), std::end(cases));
}

TEST(FindPhoneNumber, ASkippedCandidateDoesNotHideALaterNumber) {
  EXPECT_EQ(FindPhoneNumber(L"On 15.01.2008 call 0171 2345678"), L"0171 2345678");
  EXPECT_EQ(FindPhoneNumber(L"#1234567# or 7654321"), L"7654321");
  EXPECT_EQ(FindPhoneNumber(std::wstring(L"0171 2345678") + L'\0' + L"tail"), L"0171 2345678");
}

TEST(FindPhoneNumber, ReadsAtMost63Characters) {
  // Read whole, the run would hold 24 digits and be turned down.
  const std::wstring text = L"0171 2345678" + std::wstring(60, L' ') + L"1234567890123";
  EXPECT_EQ(FindPhoneNumber(text), L"0171 2345678");
  EXPECT_EQ(FindPhoneNumber(static_cast<const wchar_t*>(nullptr)), L"");
}

}  // namespace
}  // namespace velmo
