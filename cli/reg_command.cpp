// velmo reg: the settings in the text form of registry exports.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "cli/reg_text.h"
#include "cli/subcommand.h"
#include "platform/registry.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

constexpr const char* kDefaultKey = "HKEY_CURRENT_USER\\Software\\Velmo ToDo";

// The registry's own description of a failure, else a generic one.
void ReportRegistryError(LONG error, const std::string& what) {
  const std::string failure = registry::LastFailure();
  if (!failure.empty())
    std::fprintf(stderr, "velmo reg: %s\n", failure.c_str());
  else
    std::fprintf(stderr, "velmo reg: %s (error %d)\n", what.c_str(), static_cast<int>(error));
}

int Export(const char* key_path) {
  std::vector<registry::RawKey> keys;
  const LONG error = registry::ExportTree(FromUtf8(key_path), &keys);
  if (error == static_cast<LONG>(ERROR_FILE_NOT_FOUND)) {
    std::fprintf(stderr, "velmo reg: no key %s\n", key_path);
    return 1;
  }
  if (error == static_cast<LONG>(ERROR_INVALID_PARAMETER)) {
    std::fprintf(stderr, "velmo reg: %s: a key starts with HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE\n",
                 key_path);
    return 2;
  }
  if (error != ERROR_SUCCESS) {
    ReportRegistryError(error, "cannot read the registry");
    return 1;
  }
  const std::string text = FormatRegText(keys);
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}

// Settings exports are a few kilobytes; anything this large is not one.
constexpr off_t kLargestImport = 16 << 20;

// The file's text, read whole; false, after saying why, for what is not a plain
// file of a sensible size (a folder, a device, a pipe that never ends).
bool ReadImportFile(const char* file, std::string* text) {
  const int fd = ::open(file, O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // a pipe must not hold the open
  struct stat st;
  const char* problem = nullptr;
  if (fd < 0 || ::fstat(fd, &st) != 0)
    problem = std::strerror(errno);
  else if (!S_ISREG(st.st_mode))
    problem = S_ISDIR(st.st_mode) ? "it is a folder, not a file" : "it is not a plain file";
  else if (st.st_size > kLargestImport)
    problem = "it is larger than 16 MB, too large for a settings export";
  std::string read;
  if (!problem) {
    read.resize(static_cast<size_t>(st.st_size));
    size_t done = 0;
    // The file may shrink meanwhile; it is never read past its size.
    while (done < read.size()) {
      const ssize_t n = ::read(fd, read.data() + done, read.size() - done);
      if (n < 0 && errno == EINTR) continue;
      if (n < 0) problem = std::strerror(errno);
      if (n <= 0) break;
      done += static_cast<size_t>(n);
    }
    read.resize(done);
  }
  if (fd >= 0) ::close(fd);
  if (problem) {
    std::fprintf(stderr, "velmo reg: cannot import %s: %s; nothing imported\n", file, problem);
    return false;
  }
  *text = std::move(read);
  return true;
}

int Import(const char* file) {
  std::string text;
  if (!ReadImportFile(file, &text)) return 1;
  std::vector<registry::RawKey> keys;
  std::vector<RegTextError> errors;
  if (!ParseRegText(text, &keys, &errors)) {
    for (const RegTextError& e : errors)
      std::fprintf(stderr, "%s:%d: %s\n", file, e.line, e.message.c_str());
    std::fprintf(stderr, "velmo reg: nothing imported\n");
    return 1;
  }
  const LONG error = registry::ImportKeys(keys);
  if (error != ERROR_SUCCESS) {
    ReportRegistryError(error, "cannot write the registry");
    std::fprintf(stderr, "velmo reg: nothing imported\n");
    return 1;
  }
  return 0;
}

}  // namespace

int RunReg(int argc, char** argv) {
  if (argc >= 1 && std::strcmp(argv[0], "export") == 0 && argc <= 2)
    return Export(argc == 2 ? argv[1] : kDefaultKey);
  if (argc == 2 && std::strcmp(argv[0], "import") == 0) return Import(argv[1]);
  std::fputs("usage: velmo reg export [KEY] | velmo reg import FILE\n"
             "  KEY defaults to HKEY_CURRENT_USER\\Software\\Velmo ToDo\n",
             stderr);
  return 2;
}

}  // namespace velmo::cli
