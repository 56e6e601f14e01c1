// Pins the locale the weekday and month names come from while it lives.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace velmo::testing {

class PinnedNamesLocale {
 public:
  explicit PinnedNamesLocale(const char* name) {
    if (const char* old = std::getenv("LC_ALL")) previous_ = old;
    setenv("LC_ALL", name, 1);
  }
  ~PinnedNamesLocale() {
    if (previous_) setenv("LC_ALL", previous_->c_str(), 1);
    else unsetenv("LC_ALL");
  }
  PinnedNamesLocale(const PinnedNamesLocale&) = delete;
  PinnedNamesLocale& operator=(const PinnedNamesLocale&) = delete;

 private:
  std::optional<std::string> previous_;
};

}  // namespace velmo::testing
