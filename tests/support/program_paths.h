// Where the programs under test were built. Every test file sees these names
// (the build includes this header in each); only program_paths.cpp is compiled
// with the build tree's paths, so the other test files compile the same in any
// build tree and a shared compiler cache serves them all.
#pragma once

namespace velmo::testing {
extern const char* const kVelmoTodoBin;
extern const char* const kVelmoBin;
extern const char* const kNotificationServerBin;
}  // namespace velmo::testing

#define VELMO_TODO_BIN (::velmo::testing::kVelmoTodoBin)
#define VELMO_BIN (::velmo::testing::kVelmoBin)
#define VELMO_NOTIFICATION_SERVER_BIN (::velmo::testing::kNotificationServerBin)
