#include "platform/lasterror.h"

namespace {
thread_local DWORD g_last_error = ERROR_SUCCESS;
}

DWORD GetLastError() { return g_last_error; }
void SetLastError(DWORD error) { g_last_error = error; }
