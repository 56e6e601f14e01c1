// vCard files as address books write them: versions 2.1 to 4.0, folded lines,
// escapes, quoted-printable, and broken cards named by their line.
#include <gtest/gtest.h>

#include "editor/contact_insert.h"
#include "links/vcard.h"

namespace velmo::testing {
namespace {

TEST(VCard, CardsOfEachVersionGiveTheirNameNumbersAddressesAndCategories) {
  struct Case {
    const char* name;
    std::string text;
    std::wstring contact_name;
    std::vector<ContactPhone> phones;
    std::vector<std::wstring> emails;
    std::wstring categories;
  } const cases[] = {
      {"3.0, folded, escaped",
       "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann\r\n  Smith\\, Jr.\r\nTEL;TYPE=CELL,VOICE:+1 555\r\n"
       "item1.TEL;TYPE=work:555-1\r\nEMAIL;TYPE=INTERNET:ann@x.org\r\n"
       "CATEGORIES:Work,Old\\, dear friends\r\nEND:VCARD\r\n",
       L"Ann Smith, Jr.", {{PhoneKind::kMobile, L"+1 555"}, {PhoneKind::kWork, L"555-1"}},
       {L"ann@x.org"}, L"Work,Old  dear friends"},
      {"2.1, quoted-printable name from N",
       "BEGIN:VCARD\nVERSION:2.1\nN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller;J=\n=C3=BCrgen\n"
       "TEL;HOME:030 1234\nEND:VCARD\n",
       L"J\u00fcrgen M\u00fcller", {{PhoneKind::kHome, L"030 1234"}}, {}, L""},
      {"4.0, URIs", "BEGIN:VCARD\nVERSION:4.0\nORG:Acme;Sales\nTEL;VALUE=uri:tel:+44-20\n"
       "EMAIL:mailto:-x@y.org\nEND:VCARD\n",
       L"Acme", {{PhoneKind::kOther, L"+44-20"}}, {L"-x@y.org"}, L""},
      {"only an address", "BEGIN:VCARD\nEMAIL:solo@x.org\nEND:VCARD\n", L"solo@x.org", {}, {L"solo@x.org"}, L""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> problems;
    const std::vector<Contact> cards = ParseVCards(c.text, &problems);
    EXPECT_TRUE(problems.empty()) << problems[0];
    ASSERT_EQ(cards.size(), 1u);
    EXPECT_EQ(cards[0].name, c.contact_name);
    EXPECT_EQ(cards[0].phones, c.phones);
    EXPECT_EQ(cards[0].emails, c.emails);
    EXPECT_EQ(cards[0].categories, c.categories);
  }
}

TEST(VCard, BrokenCardsAreNamedAndTheGoodOnesKept) {
  struct Case { std::string text; size_t cards; std::vector<std::string> problems; } const cases[] = {
      {"BEGIN:VCARD\nFN:A\nBEGIN:VCARD\nFN:B\nEND:VCARD\n", 1, {"line 1: a card that is not closed"}},
      {"BEGIN:VCARD\nFN:A\nEND:VCARD\nBEGIN:VCARD\nNOTE:x\nEND:VCARD\nBEGIN:VCARD\nFN:C\n", 1,
       {"line 4: a card with no name, number or address", "line 7: a card that is not closed"}},
      {std::string("\x00\xff garbage \n:::\n;;\n", 17), 0, {"no vCard in it"}},
      {"", 0, {"no vCard in it"}},
      {"BEGIN:VCARD\nFN:" + std::string(100000, 'x') + "\nEND:VCARD\n", 1, {}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> problems;
    const std::vector<Contact> cards = ParseVCards(c.text, &problems);
    EXPECT_EQ(cards.size(), c.cards);
    EXPECT_EQ(problems, c.problems);
    for (const Contact& card : cards) EXPECT_LE(card.name.size(), kMaxVCardValueChars);
  }
}

TEST(ContactInsert, EachModeInsertsItsPartsAndSkipsMissingOnes) {
  const Contact ann{L"Ann", {{PhoneKind::kHome, L"030 1"}, {PhoneKind::kMobile, L"0170 2"}},
                    {L"ann@x.org"}, L"", L""};
  const Contact bare{L"Bob", {}, {}, L"", L""};
  struct Case { const Contact* contact; DWORD mode; std::wstring text; } const cases[] = {
      {&ann, kInsertNameAndNumber, L"Ann 0170 2"}, {&ann, kInsertName, L"Ann"},
      {&ann, kInsertNumber, L"0170 2"},           {&ann, kInsertEmail, L"ann@x.org"},
      {&ann, kInsertNameAndEmail, L"Ann ann@x.org"}, {&ann, kInsertEverything, L"Ann 0170 2 ann@x.org"},
      {&ann, 99, L"Ann 0170 2"},                  {&bare, kInsertEverything, L"Bob"},
      {&bare, kInsertNumber, L""},
  };
  for (const Case& c : cases) EXPECT_EQ(ContactInsertText(*c.contact, c.mode), c.text) << c.mode;
}

}  // namespace
}  // namespace velmo::testing
