// velmo notifications: the device's pending notifications, one line each.
#include <cstdio>
#include <string>

#include "cli/subcommand.h"
#include "platform/notify.h"
#include "platform/notify_store.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

// A field on one line: CR LF and LF become "\n", tabs and backslashes escaped.
std::string Field(const std::wstring& text) {
  std::string out;
  const std::string utf8 = ToUtf8(text);
  for (size_t i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i];
    if (c == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n') continue;
    if (c == '\n' || c == '\r') out += "\\n";
    else if (c == '\t') out += "\\t";
    else if (c == '\\') out += "\\\\";
    else out += c;
  }
  return out;
}

std::string Time(const notify::PendingNotification& n) {
  if (n.type == CNT_EVENT) return "";
  char text[24];
  std::snprintf(text, sizeof text, "%04u-%02u-%02uT%02u:%02u", n.start.wYear % 10000u,
                n.start.wMonth % 100u, n.start.wDay % 100u, n.start.wHour % 100u,
                n.start.wMinute % 100u);
  return text;
}

}  // namespace

int RunNotifications(int argc, char** argv) {
  if (argc > 0) {
    std::fprintf(stderr, "velmo notifications: unexpected argument '%s'\n", argv[0]);
    return 2;
  }
  std::vector<notify::PendingNotification> pending;
  if (!notify::ListUserNotifications(&pending)) {
    std::fprintf(stderr, "velmo notifications: %s\n", notify::StoreFailure().c_str());
    return 1;
  }
  for (const notify::PendingNotification& n : pending)
    std::printf("%u\t%s\t%s\t%s\t%s\t%s\n", n.handle, Time(n).c_str(), Field(n.application).c_str(),
                Field(n.arguments).c_str(), Field(n.title).c_str(), Field(n.text).c_str());
  return 0;
}

}  // namespace velmo::cli
