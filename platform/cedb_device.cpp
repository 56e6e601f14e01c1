// The database side of a working device: the default volume and its three
// databases, made on first use.
#include <cwchar>

#include "platform/cedb.h"
#include "platform/lasterror.h"

namespace velmo::cedb {

bool EnsureDeviceVolume() {
  CEGUID volume;
  if (!CeMountDBVol(&volume, kDefaultVolumePath, OPEN_ALWAYS)) return false;
  bool ok = true;
  for (const wchar_t* name : {kTasksDatabaseName, kContactsDatabaseName, kAppointmentsDatabaseName}) {
    CEOID oid = 0;
    HANDLE existing = CeOpenDatabaseEx(&volume, &oid, name, 0, 0, nullptr);
    if (existing != INVALID_HANDLE_VALUE) {
      CeCloseHandle(existing);
      continue;
    }
    CEDBASEINFO info{};
    info.dwFlags = CEDB_VALIDNAME | CEDB_VALIDTYPE;
    std::wcsncpy(info.szDbaseName, name, CEDB_MAXDBASENAMELEN - 1);
    // Another process may have made it in between: a taken name is success.
    if (!CeCreateDatabaseEx(&volume, &info) && GetLastError() != ERROR_DUP_NAME) {
      ok = false;
      break;
    }
  }
  DWORD error = GetLastError();
  CeUnmountDBVol(&volume);
  if (!ok) SetLastError(error);
  return ok;
}

}  // namespace velmo::cedb
