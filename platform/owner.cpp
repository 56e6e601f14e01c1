// The owner's name from the user database (getpwuid_r).
#include "platform/owner.h"

#include <pwd.h>
#include <unistd.h>

#include <cctype>
#include <vector>

#include "platform/wstr.h"

namespace velmo::owner {

std::string NameFromAccount(std::string_view gecos, std::string_view login) {
  std::string_view full = gecos.substr(0, gecos.find(','));
  std::string name;
  for (char c : full) {
    if (c != '&') {
      name += c;
      continue;
    }
    std::string capital(login);
    if (!capital.empty()) capital[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(capital[0])));
    name += capital;
  }
  while (!name.empty() && name.back() == ' ') name.pop_back();
  while (!name.empty() && name.front() == ' ') name.erase(0, 1);
  return name.empty() ? std::string(login) : name;
}

std::wstring OwnerName() {
  long size = sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(size > 0 ? static_cast<size_t>(size) : 16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return {};
  return FromUtf8(NameFromAccount(found->pw_gecos ? found->pw_gecos : "",
                                  found->pw_name ? found->pw_name : ""));
}

}  // namespace velmo::owner
