// velmo contacts: the device's address book. "import DIR" fills it from a
// folder of vCard files (or one file), as address-book programs and CardDAV
// synchronisers keep them: a card already imported (by its UID) is replaced,
// a broken file is named and the good ones are imported all the same. "list"
// prints each contact on a line.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "platform/cedb.h"
#include "platform/wstr.h"
#include "store/contacts_db.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage = "usage: velmo contacts import DIR|FILE.vcf | velmo contacts list\n";
constexpr std::uintmax_t kMaxFileBytes = 1 << 20;

bool IsCardFile(const std::filesystem::path& p) {
  std::string ext = p.extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
  return ext == ".vcf" || ext == ".vcard";
}

std::vector<std::filesystem::path> CardFiles(const std::filesystem::path& source, std::error_code* ec) {
  std::vector<std::filesystem::path> files;
  if (!std::filesystem::is_directory(source, *ec)) {
    if (!*ec) files.push_back(source);
    return files;
  }
  for (const auto& entry : std::filesystem::directory_iterator(source, *ec))
    if (entry.is_regular_file() && IsCardFile(entry.path())) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

// The cards of one file; its problems are printed with its name.
std::vector<Contact> ReadCardFile(const std::filesystem::path& file, bool* bad) {
  std::error_code ec;
  const std::uintmax_t size = std::filesystem::file_size(file, ec);
  std::ifstream in(file, std::ios::binary);
  if (ec || !in) {
    std::fprintf(stderr, "velmo contacts: %s: cannot be read\n", file.c_str());
    *bad = true;
    return {};
  }
  if (size > kMaxFileBytes) {
    std::fprintf(stderr, "velmo contacts: %s: larger than 1 MB, not a vCard file\n", file.c_str());
    *bad = true;
    return {};
  }
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::vector<std::string> problems;
  std::vector<Contact> cards = ParseVCards(text, &problems);
  for (const std::string& p : problems) std::fprintf(stderr, "velmo contacts: %s: %s\n", file.c_str(), p.c_str());
  *bad |= !problems.empty();
  return cards;
}

int Import(const char* source) {
  std::error_code ec;
  const std::vector<std::filesystem::path> files = CardFiles(source, &ec);
  if (ec) {
    std::fprintf(stderr, "velmo contacts: %s: %s\n", source, ec.message().c_str());
    return 1;
  }
  bool bad = false;
  std::vector<Contact> contacts;
  for (const auto& file : files) {
    std::vector<Contact> cards = ReadCardFile(file, &bad);
    contacts.insert(contacts.end(), std::make_move_iterator(cards.begin()), std::make_move_iterator(cards.end()));
  }
  if (contacts.empty()) {
    std::fprintf(stderr, "velmo contacts: no contacts found in %s\n", source);
    return 1;
  }
  if (!OpenDeviceStore("contacts", false)) return 1;
  size_t added = 0, replaced = 0;
  if (!WriteContacts(contacts, &added, &replaced)) {
    std::fprintf(stderr, "velmo contacts: the contacts database could not be written (%s); nothing was imported\n",
                 cedb::LastFailure().c_str());
    CloseDeviceStore();
    return 1;
  }
  CloseDeviceStore();
  std::printf("%zu contact(s) added, %zu replaced\n", added, replaced);
  return bad ? 1 : 0;
}

std::string Joined(const std::vector<std::wstring>& parts) {
  std::string out;
  for (const std::wstring& p : parts) out += (out.empty() ? "" : ",") + ToUtf8(p);
  return out;
}

int List() {
  if (!OpenDeviceStore("contacts", false)) return 1;
  for (const Contact& c : ReadContacts()) {
    std::vector<std::wstring> numbers;
    for (const ContactPhone& p : c.phones) numbers.push_back(p.number);
    std::printf("%s\t%s\t%s\t%s\n", ToUtf8(c.name).c_str(), Joined(numbers).c_str(),
                Joined(c.emails).c_str(), ToUtf8(c.categories).c_str());
  }
  CloseDeviceStore();
  return 0;
}

}  // namespace

int RunContacts(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[0], "import") == 0) return Import(argv[1]);
  if (argc == 1 && std::strcmp(argv[0], "list") == 0) return List();
  std::fputs(kUsage, stderr);
  return 2;
}

}  // namespace velmo::cli
