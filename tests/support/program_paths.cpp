#include "tests/support/program_paths.h"

namespace velmo::testing {
const char* const kVelmoTodoBin = VELMO_TODO_BIN_PATH;
const char* const kVelmoBin = VELMO_BIN_PATH;
const char* const kNotificationServerBin = VELMO_NOTIFICATION_SERVER_BIN_PATH;
}  // namespace velmo::testing
