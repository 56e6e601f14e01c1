// Placeholder until the SQLite-backed volumes land: every call fails cleanly.
#include "platform/cedb.h"
#include "platform/lasterror.h"

namespace {
constexpr DWORD kNotReady = 120;  // ERROR_CALL_NOT_IMPLEMENTED
template <typename T>
T Fail(T value) {
  SetLastError(kNotReady);
  return value;
}
}  // namespace

BOOL CeMountDBVol(PCEGUID guid, LPCWSTR, DWORD) {
  if (guid) CREATE_INVALIDGUID(guid);
  return Fail(FALSE);
}
BOOL CeUnmountDBVol(PCEGUID) { return Fail(FALSE); }
CEOID CeCreateDatabaseEx(PCEGUID, CEDBASEINFO*) { return Fail(CEOID{0}); }
CEOID CeCreateDatabaseEx2(PCEGUID, CEDBASEINFOEX*) { return Fail(CEOID{0}); }
BOOL CeDeleteDatabaseEx(PCEGUID, CEOID) { return Fail(FALSE); }
HANDLE CeOpenDatabaseEx(PCEGUID, PCEOID, LPCWSTR, CEPROPID, DWORD, CENOTIFYREQUEST*) {
  return Fail(INVALID_HANDLE_VALUE);
}
CEOID CeSeekDatabase(HANDLE, DWORD, DWORD, DWORD*) { return Fail(CEOID{0}); }
CEOID CeReadRecordProps(HANDLE, DWORD, WORD*, CEPROPID*, BYTE**, DWORD*) {
  return Fail(CEOID{0});
}
CEOID CeWriteRecordProps(HANDLE, CEOID, WORD, CEPROPVAL*) { return Fail(CEOID{0}); }
BOOL CeDeleteRecord(HANDLE, CEOID) { return Fail(FALSE); }
BOOL CeOidGetInfoEx(PCEGUID, CEOID, CEOIDINFOEX*) { return Fail(FALSE); }
BOOL CeCloseHandle(HANDLE) { return Fail(FALSE); }
BOOL CeFreeNotification(PCENOTIFYREQUEST, PCENOTIFICATION n) {
  delete n;
  return TRUE;
}

namespace velmo::cedb {
std::string LastFailure() { return "the database is not available yet"; }
void SetBusyTimeout(int) {}
bool PollChanges(HANDLE, std::vector<DbChange>*) { return Fail(false); }
std::vector<HANDLE> NotifyingHandles() { return {}; }
bool GetNotifyRequest(HANDLE, CENOTIFYREQUEST*) { return Fail(false); }
CENOTIFICATION* NewNotification(HANDLE, const DbChange&) { return nullptr; }
bool EnsureDeviceVolume() { return Fail(false); }
}  // namespace velmo::cedb
