#include "sync/folder_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace velmo::sync {
namespace {

FileStamp StampOf(const struct stat& st) {
  return {static_cast<std::uint64_t>(st.st_size),
          static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec};
}

bool EndsWith(std::string_view s, std::string_view end) {
  return s.size() > end.size() && s.substr(s.size() - end.size()) == end;
}

struct CloseDir {
  void operator()(DIR* d) const { closedir(d); }
};

bool WriteAll(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t n = write(fd, text.data(), text.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

}  // namespace

bool ListTaskFiles(const std::filesystem::path& folder, std::vector<FolderFile>* out,
                   std::string* error) {
  out->clear();
  std::unique_ptr<DIR, CloseDir> dir(opendir(folder.c_str()));
  if (!dir) {
    *error = "cannot read the folder " + folder.string() + ": " + std::strerror(errno);
    return false;
  }
  const int fd = dirfd(dir.get());
  while (const dirent* e = readdir(dir.get())) {
    const std::string_view name = e->d_name;
    if (name.front() == '.' || !EndsWith(name, ".ics")) continue;
    struct stat st;
    if (fstatat(fd, e->d_name, &st, 0) != 0 || !S_ISREG(st.st_mode)) continue;
    out->push_back({std::string(name), StampOf(st)});
  }
  std::sort(out->begin(), out->end(), [](const FolderFile& a, const FolderFile& b) { return a.name < b.name; });
  return true;
}

bool ReadTaskFile(const std::filesystem::path& file, std::size_t limit, std::string* out,
                  FileStamp* stamp) {
  out->clear();
  const int fd = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  struct stat st;
  bool ok = fstat(fd, &st) == 0;
  if (ok) *stamp = StampOf(st);
  if (ok && static_cast<std::uint64_t>(st.st_size) <= limit) {
    out->resize(static_cast<std::size_t>(st.st_size));
    std::size_t done = 0;
    while (ok && done < out->size()) {
      const ssize_t n = read(fd, out->data() + done, out->size() - done);
      if (n < 0 && errno == EINTR) continue;
      ok = n > 0;
      if (ok) done += static_cast<std::size_t>(n);
    }
  }
  close(fd);
  return ok;
}

bool WriteTaskFile(const std::filesystem::path& folder, const std::string& name, std::string_view text,
                   FileStamp* stamp, std::string* error) {
  const std::filesystem::path target = folder / name;
  std::filesystem::path temp = folder / ("." + name + ".velmo-tmp");
  const int fd = open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (fd < 0) {
    *error = "cannot write " + temp.string() + ": " + std::strerror(errno);
    return false;
  }
  bool ok = WriteAll(fd, text);
  struct stat st;
  ok = ok && fstat(fd, &st) == 0;
  const int saved = errno;
  close(fd);
  if (ok && std::rename(temp.c_str(), target.c_str()) == 0) {
    *stamp = StampOf(st);
    return true;
  }
  *error = "cannot write " + target.string() + ": " + std::strerror(ok ? errno : saved);
  unlink(temp.c_str());
  return false;
}

bool RemoveTaskFile(const std::filesystem::path& folder, const std::string& name, std::string* error) {
  const std::filesystem::path file = folder / name;
  if (unlink(file.c_str()) == 0 || errno == ENOENT) return true;
  *error = "cannot remove " + file.string() + ": " + std::strerror(errno);
  return false;
}

std::uint64_t ContentHash(std::string_view bytes) {
  std::uint64_t h = 1469598103934665603ull;
  for (const unsigned char c : bytes) h = (h ^ c) * 1099511628211ull;
  return h;
}

std::string TaskFileName(const std::string& uid) {
  const bool plain = !uid.empty() && uid.size() <= 200 && uid.front() != '.' &&
                     std::all_of(uid.begin(), uid.end(), [](unsigned char c) {
                       return std::isalnum(c) || c == '-' || c == '_' || c == '.' || c == '@';
                     });
  if (plain) return uid + ".ics";
  char name[40];
  std::snprintf(name, sizeof name, "velmo-%016llx.ics",
                static_cast<unsigned long long>(ContentHash(uid)));
  return name;
}

}  // namespace velmo::sync
