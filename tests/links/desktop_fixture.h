// A desktop of the test's own: XDG folders inside the device root (so the
// machine's associations never count), and a recorder program that writes
// the arguments it was started with, one a line, to a file.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {

class DesktopTest : public DeviceTest {
 protected:
  void SetUp() override {
    for (size_t i = 0; i < 4; ++i) {
      const char* old = getenv(kVariables[i]);
      saved_[i] = old ? old : "";
      had_[i] = old != nullptr;
    }
    setenv("XDG_DATA_HOME", (root() / "data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (root() / "system").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root() / "config").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (root() / "system-config").c_str(), 1);
  }
  void TearDown() override {
    for (size_t i = 0; i < 4; ++i) {
      if (had_[i]) setenv(kVariables[i], saved_[i].c_str(), 1); else unsetenv(kVariables[i]);
    }
  }

  // A program that records its arguments in `log` and returns its path.
  std::filesystem::path Recorder(const std::string& name, const std::filesystem::path& log) const {
    const std::filesystem::path program = root() / "bin" / name;
    WriteFileBytes(program, "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > '" +
                                log.string() + ".part'\nmv '" + log.string() + ".part' '" +
                                log.string() + "'\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return program;
  }
  // A desktop entry in the user's applications folder.
  void Entry(const std::string& id, const std::string& exec, const std::string& mime_types) const {
    WriteFileBytes(root() / "data" / "applications" / id,
                   "[Desktop Entry]\nType=Application\nName=" + id + "\nExec=" + exec +
                       "\nMimeType=" + mime_types + "\n");
  }
  // The lines a recorder wrote, once it has written them.
  std::string Recorded(const std::filesystem::path& log) const {
    return WaitForFile(log) ? ReadFileBytes(log) : "(nothing started)";
  }

 private:
  static constexpr const char* kVariables[] = {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME",
                                               "XDG_CONFIG_DIRS"};
  std::string saved_[4];
  bool had_[4] = {};
};

}  // namespace velmo::testing
