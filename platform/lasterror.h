// The calling thread's last error, as the platform's calls leave it.
#pragma once

#include "platform/wintypes.h"

DWORD GetLastError();
void SetLastError(DWORD error);

// The last error turned into an HRESULT the way the program reports failures.
inline HRESULT LastErrorAsHresult() { return HRESULT_FROM_WIN32(GetLastError()); }

// The same for a call known to have failed: never a success, E_FAIL when the
// call left no error behind.
inline HRESULT FailureFromLastError() {
  const DWORD e = GetLastError();
  return e == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(e);
}
