// vCard files (versions 2.1, 3.0 and 4.0, as address books and CardDAV
// synchronisers keep them): the name, telephone numbers, e-mail addresses,
// categories and UID of each card. A small, bounded reader: lines are
// unfolded, quoted-printable and backslash escapes are undone, and every value
// is cut at kMaxVCardValueChars; anything else on a card is skipped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo {

constexpr size_t kMaxVCardValueChars = 1024;
constexpr size_t kMaxCardsPerFile = 10000;

enum class PhoneKind { kMobile, kHome, kWork, kOther };

struct ContactPhone {
  PhoneKind kind;
  std::wstring number;
  bool operator==(const ContactPhone&) const = default;
};

struct Contact {
  std::wstring name;  // FN, else from N, else the organisation
  std::vector<ContactPhone> phones;
  std::vector<std::wstring> emails;
  std::wstring categories;  // the categories string: names separated by ","
  std::wstring uid;
};

// The cards of one file's text. A card that is not closed, or that has
// neither a name nor a number nor an address, is not returned; *problems gets
// one line for each (numbered from 1 in the file), and one when the text holds
// no card at all.
std::vector<Contact> ParseVCards(std::string_view text, std::vector<std::string>* problems);

}  // namespace velmo
