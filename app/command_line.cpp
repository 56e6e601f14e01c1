#include "app/command_line.h"

#include <cwctype>
#include <string>

#include "platform/wstr.h"

namespace velmo::app {
namespace {

constexpr std::wstring_view kAfterSyncArgument = L"AppRunAfterSync";

// The options, in the order they are looked for: the first one found wins.
struct Option {
  std::wstring_view text;
  LONG command;
};
constexpr Option kOptions[] = {
    {L"-default", kCmdDefaultView},
    {L"-today", kCmdTodayView},
    {L"-new", kCmdNewTask},
};

}  // namespace

LONG LeadingDecimal(std::wstring_view text) {
  size_t i = 0;
  while (i < text.size() && std::iswspace(static_cast<wint_t>(text[i]))) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == L'+' || text[i] == L'-')) negative = text[i++] == L'-';
  DWORD value = 0;
  for (; i < text.size() && text[i] >= L'0' && text[i] <= L'9'; ++i)
    value = value * 10u + static_cast<DWORD>(text[i] - L'0');
  return static_cast<LONG>(negative ? 0u - value : value);
}

StartRequest ParseCommandLine(std::wstring_view command_line) {
  StartRequest start;
  if (command_line.empty()) return start;
  if (command_line == kAfterSyncArgument) {
    start.request = kAfterSyncRequest;
    return start;
  }
  std::wstring lower(command_line);
  for (wchar_t& c : lower) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  if (const LONG number = LeadingDecimal(lower); number != 0) {
    start.task_oid = static_cast<CEOID>(number);
    return start;
  }
  for (const Option& option : kOptions) {
    if (lower.find(option.text) != std::wstring::npos) {
      start.request = option.command;
      break;
    }
  }
  return start;
}

std::wstring JoinArguments(int argc, char** argv) {
  std::string joined;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) joined += ' ';
    joined += argv[i];
  }
  return FromUtf8(joined);
}

StartRequest& TheStartRequest() {
  static StartRequest start;
  return start;
}

}  // namespace velmo::app
