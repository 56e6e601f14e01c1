// The start request: what the command line asks of this run. Parsed once at
// start-up and kept for the whole run (the initialisation, the main window's
// creation and the hand-over to a running instance consult it).
#pragma once

#include <string>
#include <string_view>

#include "platform/wintypes.h"

namespace velmo::app {

// Values of the start request besides the menu commands.
constexpr LONG kNoRequest = -1;
constexpr LONG kAfterSyncRequest = -2;

// Menu commands a command line may ask for.
constexpr LONG kCmdDefaultView = 40048;
constexpr LONG kCmdTodayView = 40054;
constexpr LONG kCmdNewTask = 40004;

struct StartRequest {
  LONG request = kNoRequest;  // kNoRequest, kAfterSyncRequest or one of the commands
  CEOID task_oid = 0;         // non-zero: select this task (request stays kNoRequest)
};

// The leading decimal number of a text the way the platform's wide atol reads it
// (white space, an optional sign, digits; no digits give 0). The platform's long
// is 32 bits: the value is kept modulo 2^32, so every identifier written as
// unsigned decimal comes back whole.
LONG LeadingDecimal(std::wstring_view text);

// Parses a command line (the arguments joined by single spaces, no program name).
StartRequest ParseCommandLine(std::wstring_view command_line);

// The arguments after the program name joined by single spaces, as the
// platform hands the command line to the entry point.
std::wstring JoinArguments(int argc, char** argv);

// The program-wide start request of this run.
StartRequest& TheStartRequest();

}  // namespace velmo::app
