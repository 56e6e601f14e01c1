// The editor's "Contact" insert: a contact chosen from the address book goes
// in at the caret as the "ContactInsertMode" setting says (its name, its
// number, its address, or some of them together), so that a number or address
// put in a task is a link of the task.
#pragma once

#include <string>

#include "links/vcard.h"
#include "platform/wintypes.h"

namespace velmo {

enum ContactInsertMode : DWORD {
  kInsertNameAndNumber = 0,
  kInsertName = 1,
  kInsertNumber = 2,
  kInsertEmail = 3,
  kInsertNameAndEmail = 4,
  kInsertEverything = 5,
};
constexpr DWORD kContactInsertModeCount = 6;
// The modes' names for the settings page's "Insert contact as:" list, in mode order.
constexpr UINT kFirstContactInsertModeText = 43110;

// Most contacts offered in the menu (by name).
constexpr size_t kMaxContactsOffered = 500;

// The text for a contact; parts the contact lacks are left out (a mode
// outside the list counts as the first).
std::wstring ContactInsertText(const Contact& contact, DWORD mode);

}  // namespace velmo
