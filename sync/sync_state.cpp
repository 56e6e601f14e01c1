#include "sync/sync_state.h"

#include <cinttypes>
#include <cstdio>
#include <sstream>

#include "platform/device.h"

namespace velmo::sync {
namespace {

constexpr char kHeader[] = "velmo-sync-state 1";

// UIDs and names are kept with tabs, line ends and "%" written as %XX.
std::string Escape(const std::string& s) {
  std::string out;
  for (const unsigned char c : s) {
    if (c < 0x20 || c == '%' || c == 0x7F) {
      char hex[4];
      std::snprintf(hex, sizeof hex, "%%%02X", c);
      out += hex;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

std::string Unescape(const std::string& s) {
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    unsigned value;
    if (s[i] == '%' && i + 2 < s.size() && std::sscanf(s.c_str() + i + 1, "%2X", &value) == 1) {
      out += static_cast<char>(value);
      i += 2;
    } else {
      out += s[i];
    }
  }
  return out;
}

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  for (;;) {
    const auto tab = line.find('\t', start);
    fields.push_back(line.substr(start, tab == std::string::npos ? std::string::npos : tab - start));
    if (tab == std::string::npos) return fields;
    start = tab + 1;
  }
}

bool ParseEntry(const std::string& line, StateEntry* e) {
  const std::vector<std::string> f = Fields(line);
  if (f.size() != 7) return false;
  e->uid = Unescape(f[0]);
  e->file = Unescape(f[3]);
  return std::sscanf(f[1].c_str(), "%u", &e->oid) == 1 &&
         std::sscanf(f[2].c_str(), "%" SCNx64, &e->values) == 1 &&
         std::sscanf(f[4].c_str(), "%" SCNu64, &e->stamp.size) == 1 &&
         std::sscanf(f[5].c_str(), "%" SCNd64, &e->stamp.mtime_ns) == 1 &&
         std::sscanf(f[6].c_str(), "%" SCNx64, &e->content) == 1;
}

}  // namespace

std::filesystem::path StateFile() { return device::Root() / "sync-state"; }

bool LoadState(const std::filesystem::path& file, SyncState* out, std::string* error) {
  *out = SyncState{};
  std::string text;
  FileStamp stamp;
  if (!ReadTaskFile(file, std::size_t{1} << 30, &text, &stamp)) return true;  // none yet
  std::istringstream in(text);
  std::string line;
  std::getline(in, line);
  bool ok = line == kHeader;
  if (ok && std::getline(in, line) && line.rfind("folder\t", 0) == 0) out->folder = Unescape(line.substr(7));
  else ok = false;
  if (ok && std::getline(in, line) && line.rfind("journal\t", 0) == 0)
    ok = std::sscanf(line.c_str() + 8, "%" SCNd64, &out->journal) == 1;
  else ok = false;
  while (ok && std::getline(in, line)) {
    out->entries.emplace_back();
    ok = ParseEntry(line, &out->entries.back());
  }
  if (ok) return true;
  *error = "the synchronisation state " + file.string() + " is damaged; matching tasks by UID";
  *out = SyncState{};
  return false;
}

bool SaveState(const std::filesystem::path& file, const SyncState& state, std::string* error) {
  std::string text = std::string(kHeader) + "\nfolder\t" + Escape(state.folder) + "\njournal\t" +
                     std::to_string(state.journal) + "\n";
  for (const StateEntry& e : state.entries) {
    char numbers[160];
    std::snprintf(numbers, sizeof numbers, "\t%u\t%016" PRIx64 "\t", e.oid, e.values);
    text += Escape(e.uid) + numbers + Escape(e.file);
    std::snprintf(numbers, sizeof numbers, "\t%" PRIu64 "\t%" PRId64 "\t%016" PRIx64 "\n", e.stamp.size,
                  e.stamp.mtime_ns, e.content);
    text += numbers;
  }
  FileStamp stamp;
  return WriteTaskFile(file.parent_path(), file.filename().string(), text, &stamp, error);
}

}  // namespace velmo::sync
