// The device's owner: the user's name from the system's user database, for the
// places that name the owner (the About text, the organiser of exported tasks,
// the sender line of mailed tasks).
#pragma once

#include <string>
#include <string_view>

namespace velmo::owner {

// The full name of the user running the program: the first field of the
// account's GECOS entry, "&" in it standing for the login name with a capital
// first letter; the login name when the entry has no name; empty when the
// account is unknown.
std::wstring OwnerName();

// The same rule on an entry's fields, in UTF-8.
std::string NameFromAccount(std::string_view gecos, std::string_view login);

}  // namespace velmo::owner
