// The running instance until the terminal main window takes its place: it lists
// the task subjects as plain text and prints every request handed over by a
// second instance, until SIGINT or SIGTERM arrives or standard input ends.
#pragma once

#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/handover.h"
#include "settings/settings.h"

namespace velmo::app {

// The subjects of the tasks database's records, in database order. False when
// the volume or the database cannot be opened.
bool ReadTaskSubjects(const Settings& settings, std::vector<std::wstring>* subjects);

// One line for a received request, as the plain instance prints it.
std::string DescribeHandover(const HandoverRequest& request);

// Lists the tasks, listens for hand-overs and prints them until told to stop.
// Returns the quit code (0); 0 also when the hand-over channel cannot be opened.
int RunPlainInstance(const StartRequest& start);

}  // namespace velmo::app
