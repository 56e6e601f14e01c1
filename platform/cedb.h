// The CE property database: volumes of databases of records of typed properties,
// with the platform's calls, structures, flags and last errors.
//
// A volume is one SQLite file under the device root (\IPSM\mxip_initdb.vol is
// <root>/IPSM/mxip_initdb.vol), shared safely by several processes: every write
// call is one transaction. Object identifiers (databases and records alike) are
// 32-bit and never reused within a volume; database order is creation order;
// every write or delete sets the database's last-modified time in the same
// transaction. Each volume keeps a change journal that every process can read
// (velmo::cedb::PollChanges below), which is how change notifications cross
// processes.
//
// Every call sets the last error (platform/lasterror.h) on failure, and for
// failures of the volume file itself (missing, locked, damaged, not writable)
// velmo::cedb::LastFailure() says what happened, naming the file. A damaged or
// foreign file is never written to.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/wintypes.h"

// ---------------------------------------------------------------------------
// Identifiers and values

// A mounted volume. The invalid identifier is all 0xFF; every call given it fails.
struct CEGUID {
  DWORD Data1;
  DWORD Data2;
  DWORD Data3;
  DWORD Data4;
};
using PCEGUID = CEGUID*;
using PCEOID = CEOID*;
static_assert(sizeof(CEGUID) == 16);

inline void CREATE_INVALIDGUID(CEGUID* guid) { *guid = CEGUID{~0u, ~0u, ~0u, ~0u}; }
inline bool CHECK_INVALIDGUID(const CEGUID* guid) {
  return guid->Data1 == ~0u && guid->Data2 == ~0u && guid->Data3 == ~0u && guid->Data4 == ~0u;
}

struct CEBLOB {
  DWORD dwCount;
  BYTE* lpb;
};

union CEVALUNION {
  SHORT iVal;
  USHORT uiVal;
  LONG lVal;  // 32 bits, as on the platform
  ULONG ulVal;
  FILETIME filetime;
  LPWSTR lpwstr;
  CEBLOB blob;
  BOOL boolVal;
  double dblVal;
};

// Property value types: the low 16 bits of a property identifier.
constexpr WORD CEVT_I2 = 2;
constexpr WORD CEVT_UI2 = 18;
constexpr WORD CEVT_I4 = 3;
constexpr WORD CEVT_UI4 = 19;
constexpr WORD CEVT_FILETIME = 64;
constexpr WORD CEVT_LPWSTR = 31;
constexpr WORD CEVT_BLOB = 65;
constexpr WORD CEVT_BOOL = 11;
constexpr WORD CEVT_R8 = 5;

constexpr WORD TypeFromPropID(CEPROPID propid) { return static_cast<WORD>(propid & 0xFFFF); }
constexpr WORD TypeFromPropid(CEPROPID propid) { return TypeFromPropID(propid); }
constexpr WORD PROP_TYPE(CEPROPID propid) { return TypeFromPropID(propid); }
constexpr WORD PROP_ID(CEPROPID propid) { return static_cast<WORD>(propid >> 16); }
constexpr CEPROPID PROPID(WORD id, WORD type) { return (static_cast<CEPROPID>(id) << 16) | type; }

// Property flags (wFlags).
constexpr WORD CEDB_PROPNOTFOUND = 0x0100;  // read: the record has no such property
constexpr WORD CEDB_PROPDELETE = 0x0200;    // write: remove the property

struct CEPROPVAL {
  CEPROPID propid;
  WORD wLenData;  // unused; 0 on reading
  WORD wFlags;
  CEVALUNION val;
};
using PCEPROPVAL = CEPROPVAL*;

// ---------------------------------------------------------------------------
// Flags

// CeOpenDatabaseEx: each CeReadRecordProps moves on to the next record.
constexpr DWORD CEDB_AUTOINCREMENT = 0x00000001;
// CeReadRecordProps: the buffer may be (re)allocated with LocalAlloc/LocalReAlloc
// (platform/localmem.h); the caller frees it with LocalFree.
constexpr DWORD CEDB_ALLOWREALLOC = 0x00000001;

// CeSeekDatabase.
constexpr DWORD CEDB_SEEK_CEOID = 0x00000001;      // value: a record's identifier
constexpr DWORD CEDB_SEEK_BEGINNING = 0x00000002;  // value: records to skip from the first
constexpr DWORD CEDB_SEEK_END = 0x00000004;        // value: records back from the last
constexpr DWORD CEDB_SEEK_CURRENT = 0x00000008;    // value: signed offset (a LONG) from here

// CeMountDBVol.
constexpr DWORD CREATE_NEW = 1;     // make the volume; fails when the file exists
constexpr DWORD CREATE_ALWAYS = 2;  // make the volume, emptying an existing one
constexpr DWORD OPEN_EXISTING = 3;  // fails when the file is missing
constexpr DWORD OPEN_ALWAYS = 4;    // open, making the volume when missing

// Last errors particular to the database.
constexpr DWORD ERROR_DUP_NAME = 52;  // CeCreateDatabaseEx: the name is taken

// ---------------------------------------------------------------------------
// Database information

constexpr int CEDB_MAXDBASENAMELEN = 32;  // characters, terminator included
constexpr int CEDB_MAXSORTORDER = 4;
constexpr int CEDB_MAXSORTPROP = 3;

// Which fields of CEDBASEINFO(EX) are valid (dwFlags).
constexpr DWORD CEDB_VALIDNAME = 0x0001;
constexpr DWORD CEDB_VALIDTYPE = 0x0002;
constexpr DWORD CEDB_VALIDSORTSPEC = 0x0004;
constexpr DWORD CEDB_VALIDMODTIME = 0x0008;
constexpr DWORD CEDB_VALIDDBFLAGS = 0x0010;
constexpr DWORD CEDB_VALIDCREATE =
    CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC | CEDB_VALIDDBFLAGS;

constexpr WORD CEDBASEINFOEX_VERSION = 1;
constexpr WORD CEOIDINFOEX_VERSION = 1;
constexpr WORD SORTORDERSPECEX_VERSION = 1;

struct SORTORDERSPEC {
  CEPROPID propid;
  DWORD dwFlags;
};

struct SORTORDERSPECEX {
  WORD wVersion;
  WORD wNumProps;
  WORD wKeyFlags;
  WORD wReserved;
  CEPROPID rgPropID[CEDB_MAXSORTPROP];
  DWORD rgdwFlags[CEDB_MAXSORTPROP];
};

struct CEDBASEINFO {
  DWORD dwFlags;
  WCHAR szDbaseName[CEDB_MAXDBASENAMELEN];
  DWORD dwDbaseType;
  WORD wNumRecords;  // capped at 0xFFFF
  WORD wNumSortOrder;
  DWORD dwSize;
  FILETIME ftLastModified;
  SORTORDERSPEC rgSortSpecs[CEDB_MAXSORTORDER];
};

struct CEDBASEINFOEX {
  WORD wVersion;
  WORD wNumSortOrder;
  DWORD dwFlags;
  WCHAR szDbaseName[CEDB_MAXDBASENAMELEN];
  DWORD dwDbaseType;
  DWORD dwNumRecords;
  DWORD dwSize;  // bytes of property data held by the records
  FILETIME ftLastModified;  // UTC; changes with every write or delete
  SORTORDERSPECEX rgSortSpecs[CEDB_MAXSORTORDER];
};

struct CERECORDINFO {
  CEOID oidParent;  // the database the record belongs to
};

// Object kinds of CEOIDINFOEX.
constexpr WORD OBJTYPE_INVALID = 0;
constexpr WORD OBJTYPE_DATABASE = 2;
constexpr WORD OBJTYPE_RECORD = 3;

struct CEOIDINFOEX {
  WORD wVersion;
  WORD wObjType;
  union {
    CEDBASEINFOEX infDatabase;
    CERECORDINFO infRecord;
  };
};

// ---------------------------------------------------------------------------
// Change notifications

// Kinds of change, as the window messages that announce them.
constexpr UINT DB_CEOID_CREATED = 0x0401;           // WM_USER + 1
constexpr UINT DB_CEOID_DATABASE_DELETED = 0x0402;  // WM_USER + 2
constexpr UINT DB_CEOID_RECORD_DELETED = 0x0403;    // WM_USER + 3
constexpr UINT DB_CEOID_CHANGED = 0x0406;           // WM_USER + 6

// CENOTIFYREQUEST.dwFlags: lParam of each message is a CENOTIFICATION* that the
// window frees with CeFreeNotification.
constexpr DWORD CEDB_EXNOTIFICATION = 0x00000001;

struct CENOTIFYREQUEST {
  DWORD dwSize;  // sizeof(CENOTIFYREQUEST)
  HWND hwnd;     // the window told of changes
  DWORD dwFlags;
  HANDLE hHeap;  // unused: notifications come from the process heap
  DWORD dwParam;
};
using PCENOTIFYREQUEST = CENOTIFYREQUEST*;

struct CENOTIFICATION {
  DWORD dwSize;
  DWORD dwParam;  // the request's dwParam
  UINT uType;     // DB_CEOID_*
  CEGUID guid;
  CEOID oid;        // the record or database
  CEOID oidParent;  // the database of a record; 0 for a database
};
using PCENOTIFICATION = CENOTIFICATION*;

// ---------------------------------------------------------------------------
// Calls

// Mounts the volume at a platform path, making its folder when needed. flags is
// one of CREATE_NEW, CREATE_ALWAYS, OPEN_EXISTING, OPEN_ALWAYS. On failure *guid
// becomes the invalid identifier and FALSE is returned: ERROR_FILE_NOT_FOUND
// (missing, OPEN_EXISTING), ERROR_ALREADY_EXISTS (CREATE_NEW), ERROR_BAD_FORMAT
// (damaged or not a volume), ERROR_LOCK_VIOLATION (locked past the busy timeout),
// ERROR_ACCESS_DENIED. Mounting a mounted volume again counts the mounts.
BOOL CeMountDBVol(PCEGUID guid, LPCWSTR path, DWORD flags);
// Drops one mount; handles opened on the volume stay usable until closed.
BOOL CeUnmountDBVol(PCEGUID guid);

// Makes a database; returns its identifier, 0 on failure (ERROR_DUP_NAME when the
// name is taken, ERROR_INVALID_PARAMETER for a missing or too long name).
CEOID CeCreateDatabaseEx(PCEGUID guid, CEDBASEINFO* info);
CEOID CeCreateDatabaseEx2(PCEGUID guid, CEDBASEINFOEX* info);
// Deletes a database and its records.
BOOL CeDeleteDatabaseEx(PCEGUID guid, CEOID oid);

// Opens a database by name (the name is compared without case; *oid receives its
// identifier) or, with name null, by *oid. sort must be 0 (records come in
// database order). flags: CEDB_AUTOINCREMENT or 0. request (optional) asks for
// change notifications, see velmo::cedb::PollChanges. INVALID_HANDLE_VALUE on
// failure (ERROR_FILE_NOT_FOUND when there is no such database).
HANDLE CeOpenDatabaseEx(PCEGUID guid, PCEOID oid, LPCWSTR name, CEPROPID sort, DWORD flags,
                        CENOTIFYREQUEST* request);

// Moves the handle's position; returns the identifier of the record there, 0 on
// failure (ERROR_INVALID_PARAMETER for an unknown type or a record that is not in
// the database, ERROR_NO_MORE_ITEMS past either end; the position is kept).
// index (optional) receives the record's position from the beginning.
CEOID CeSeekDatabase(HANDLE db, DWORD seek_type, DWORD value, DWORD* index);

// Reads the record at the position: every property when ids is null (*count
// receives how many), else the *count properties of ids in that order, a missing
// one coming back with wFlags CEDB_PROPNOTFOUND. *buffer receives an array of
// CEPROPVAL followed by the strings and blobs they point into; each blob's bytes
// are followed by a zero byte that dwCount does not count, so a blob of stored
// text can be read in place as a C string. With
// CEDB_ALLOWREALLOC a null or too small *buffer is (re)allocated with
// LocalReAlloc and *buffer_size updated; without it a too small buffer fails with
// ERROR_INSUFFICIENT_BUFFER and *buffer_size = the size needed. Returns the
// record's identifier, 0 on failure (ERROR_NO_MORE_ITEMS past the last record,
// ERROR_INVALID_DATA for a damaged record). On a handle opened with
// CEDB_AUTOINCREMENT a read, or a damaged record, moves on to the next record.
CEOID CeReadRecordProps(HANDLE db, DWORD flags, WORD* count, CEPROPID* ids, BYTE** buffer,
                        DWORD* buffer_size);

// Writes count properties into record oid (0 makes a new record at the end of the
// database); properties flagged CEDB_PROPDELETE are removed, the others set or
// added. Returns the record's identifier, 0 on failure (ERROR_INVALID_PARAMETER for
// an unknown value type or a record that is not in the database). The position is
// not moved.
CEOID CeWriteRecordProps(HANDLE db, CEOID oid, WORD count, CEPROPVAL* values);

BOOL CeDeleteRecord(HANDLE db, CEOID oid);

// Information about a database or a record of the volume (ERROR_INVALID_PARAMETER
// when the volume has no such object).
BOOL CeOidGetInfoEx(PCEGUID guid, CEOID oid, CEOIDINFOEX* info);

// Closes a database handle.
BOOL CeCloseHandle(HANDLE handle);

// Frees a notification received with CEDB_EXNOTIFICATION.
BOOL CeFreeNotification(PCENOTIFYREQUEST request, PCENOTIFICATION notification);

// ---------------------------------------------------------------------------
// The platform's own side, for the program's message loop, start-up and tests.

namespace velmo::cedb {

// A sentence describing the last failure of a call in this thread that involved
// the volume file (missing, locked, damaged, not writable), naming the file; for
// other failures a short description of the call's failure.
std::string LastFailure();

// Groups every write call on the volume until EndWriteBatch into one
// transaction, for passes that write many records (each call still succeeds or
// fails whole). Other processes' writes wait meanwhile; they see the batch when
// the outermost EndWriteBatch commits it. False (failure set) when the volume is
// locked or the commit fails, in which case the batch's writes are lost.
bool BeginWriteBatch(PCEGUID guid);
bool EndWriteBatch(PCEGUID guid);

// Busy timeout for every connection opened afterwards (default 5,000 ms).
void SetBusyTimeout(int milliseconds);

// One change to a database: uType is DB_CEOID_CREATED, DB_CEOID_CHANGED,
// DB_CEOID_RECORD_DELETED or DB_CEOID_DATABASE_DELETED. When more changes happened
// than the journal keeps, a single DB_CEOID_CHANGED for the database itself (oid =
// the database, oidParent 0) stands for "reload everything".
struct DbChange {
  UINT uType;
  CEOID oid;
  CEOID oidParent;
  bool operator==(const DbChange&) const = default;
};

// Appends the changes to the handle's database made by any process (this one
// included) since the handle was opened or last polled, oldest first. Cheap when
// nothing changed. False (last error set) for a bad handle or an unreadable volume.
bool PollChanges(HANDLE db, std::vector<DbChange>* out);

// The handles opened with a change-notification request, for the message loop.
std::vector<HANDLE> NotifyingHandles();

// The request the handle was opened with; false when it was opened without one.
bool GetNotifyRequest(HANDLE db, CENOTIFYREQUEST* out);

// A heap notification for a change seen on a handle (freed by CeFreeNotification):
// what the window receives as lParam when it asked for CEDB_EXNOTIFICATION.
CENOTIFICATION* NewNotification(HANDLE db, const DbChange& change);

// The volume and databases of a working device: mounts \IPSM\mxip_initdb.vol
// (making it when missing) and makes "Tasks Database", "Contacts Database" and
// "Appointments Database" when absent. Returns false (last error set,
// LastFailure() naming the file) when the volume cannot be made or read.
bool EnsureDeviceVolume();

inline constexpr wchar_t kDefaultVolumePath[] = L"\\IPSM\\mxip_initdb.vol";
inline constexpr wchar_t kTasksDatabaseName[] = L"Tasks Database";
inline constexpr wchar_t kContactsDatabaseName[] = L"Contacts Database";
inline constexpr wchar_t kAppointmentsDatabaseName[] = L"Appointments Database";

}  // namespace velmo::cedb
