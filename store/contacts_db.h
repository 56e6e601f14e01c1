// The device's address book: the volume's "Contacts Database", one record per
// contact with its name, numbers, e-mail addresses, categories (the property
// the categories gathering reads) and the UID of the card it came from.
#pragma once

#include <string>
#include <vector>

#include "links/vcard.h"
#include "platform/cedb.h"

namespace velmo {

constexpr CEPROPID kPropContactName = 0x3001001F;
constexpr CEPROPID kPropContactUid = 0x3002001F;
constexpr CEPROPID kPropContactMobile = 0x3A1C001F;
constexpr CEPROPID kPropContactHome = 0x3A09001F;
constexpr CEPROPID kPropContactWork = 0x3A08001F;
constexpr CEPROPID kPropContactOtherPhone = 0x3A1F001F;
constexpr CEPROPID kPropContactEmail1 = 0x3003001F;
constexpr CEPROPID kPropContactEmail2 = 0x3013001F;
constexpr CEPROPID kPropContactEmail3 = 0x3023001F;

// Writes the contacts in one transaction on the mounted volume: a contact
// whose UID is already there replaces that record, the others are added. The
// first number of each kind and the first three addresses are kept. False,
// with cedb::LastFailure() saying why, when the database cannot be written.
bool WriteContacts(const std::vector<Contact>& contacts, size_t* added, size_t* replaced);

// Every contact of the database, in database order (empty when it cannot be read).
std::vector<Contact> ReadContacts();

}  // namespace velmo
