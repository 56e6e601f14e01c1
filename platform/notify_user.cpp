// User notifications: CeSetUserNotificationEx, CeGetUserNotificationHandles,
// CeGetUserNotification, CeClearUserNotification, kept in the user_notifications
// table of the notifications file so that every process of the device shares them.
#include <cstdio>
#include <cstring>

#include "platform/lasterror.h"
#include "platform/notify.h"
#include "platform/notify_store.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::notify {
namespace {

constexpr const char* kSelectColumns =
    "SELECT handle, status, type, event, application, arguments, start_time, end_time,"
    " has_dialog, action_flags, title, text, sound FROM user_notifications";

DWORD ErrorOf(int rc) {
  const int primary = rc & 0xFF;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED ? ERROR_LOCK_VIOLATION
                                                             : ERROR_WRITE_FAULT;
}

bool ValidTime(const SYSTEMTIME& st) {
  DATE unused;
  return SystemTimeToVariantTime(&st, &unused) == TRUE;
}

std::string TimeText(const SYSTEMTIME& st) {
  char text[32];
  std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%03u", st.wYear % 10000u,
                st.wMonth % 100u, st.wDay % 100u, st.wHour % 100u, st.wMinute % 100u,
                st.wSecond % 100u, st.wMilliseconds % 1000u);
  return text;
}

SYSTEMTIME ParseTime(const char* text) {
  SYSTEMTIME st{};
  unsigned y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0, ms = 0;
  if (text && std::sscanf(text, "%u-%u-%u %u:%u:%u.%u", &y, &mo, &d, &h, &mi, &s, &ms) == 7) {
    st = SYSTEMTIME{static_cast<WORD>(y), static_cast<WORD>(mo), 0, static_cast<WORD>(d),
                    static_cast<WORD>(h),  static_cast<WORD>(mi), static_cast<WORD>(s),
                    static_cast<WORD>(ms)};
    DATE date;
    SYSTEMTIME with_weekday;
    if (SystemTimeToVariantTime(&st, &date) && VariantTimeToSystemTime(date, &with_weekday))
      st.wDayOfWeek = with_weekday.wDayOfWeek;
  }
  return st;
}

std::wstring Column(sqlite3_stmt* s, int column) {
  const unsigned char* text = sqlite3_column_text(s, column);
  return text ? FromUtf8(reinterpret_cast<const char*>(text)) : std::wstring();
}

PendingNotification FromRow(sqlite3_stmt* s) {
  PendingNotification n;
  n.handle = static_cast<DWORD>(sqlite3_column_int64(s, 0));
  n.status = static_cast<DWORD>(sqlite3_column_int64(s, 1));
  n.type = static_cast<DWORD>(sqlite3_column_int64(s, 2));
  n.event = static_cast<DWORD>(sqlite3_column_int64(s, 3));
  n.application = Column(s, 4);
  n.arguments = Column(s, 5);
  n.start = ParseTime(reinterpret_cast<const char*>(sqlite3_column_text(s, 6)));
  n.end = ParseTime(reinterpret_cast<const char*>(sqlite3_column_text(s, 7)));
  n.has_dialog = sqlite3_column_int64(s, 8) != 0;
  n.action_flags = static_cast<DWORD>(sqlite3_column_int64(s, 9));
  n.title = Column(s, 10);
  n.text = Column(s, 11);
  n.sound = Column(s, 12);
  return n;
}

bool TriggerIsValid(const CE_NOTIFICATION_TRIGGER* t) {
  if (!t || (t->dwSize != sizeof(CE_NOTIFICATION_TRIGGER) && t->dwSize != kPlatformTriggerSize))
    return false;
  if (!t->lpszApplication || !*t->lpszApplication) return false;
  switch (t->dwType) {
    case CNT_EVENT:
      return true;
    case CNT_TIME:
    case CNT_PERIOD:
      return ValidTime(t->stStartTime) && ValidTime(t->stEndTime);
    default:
      return false;
  }
}

std::string Utf8OrEmpty(const wchar_t* text) { return text ? ToUtf8(text) : std::string(); }

// Reads one notification; false with the last error set when there is none.
bool ReadOne(DWORD handle, PendingNotification* out) {
  sqlite3* db = ThreadStore();
  if (!db) return false;
  StoreStatement s = PrepareStore(db, (std::string(kSelectColumns) + " WHERE handle = ?").c_str());
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return false;
  }
  sqlite3_bind_int64(s.get(), 1, handle);
  const int rc = sqlite3_step(s.get());
  if (rc == SQLITE_ROW) {
    *out = FromRow(s.get());
    return true;
  }
  SetLastError(rc == SQLITE_DONE ? ERROR_INVALID_HANDLE : ErrorOf(rc));
  return false;
}

// Copies text into the buffer at *offset (wide characters, terminated).
LPWSTR PlaceString(BYTE* buffer, size_t* offset, const std::wstring& text) {
  auto* at = reinterpret_cast<wchar_t*>(buffer + *offset);
  std::memcpy(at, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  *offset += (text.size() + 1) * sizeof(wchar_t);
  return at;
}

}  // namespace

bool ListUserNotifications(std::vector<PendingNotification>* out) {
  out->clear();
  sqlite3* db = ThreadStore();
  if (!db) return false;
  StoreStatement s = PrepareStore(db, (std::string(kSelectColumns) + " ORDER BY handle").c_str());
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return false;
  }
  int rc;
  while ((rc = sqlite3_step(s.get())) == SQLITE_ROW) out->push_back(FromRow(s.get()));
  if (rc != SQLITE_DONE) {
    SetLastError(ErrorOf(rc));
    return false;
  }
  return true;
}

bool MarkSignalled(DWORD handle) {
  sqlite3* db = ThreadStore();
  if (!db) return false;
  StoreStatement s =
      PrepareStore(db, "UPDATE user_notifications SET status = ? WHERE handle = ?");
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return false;
  }
  sqlite3_bind_int64(s.get(), 1, CNS_SIGNALLED);
  sqlite3_bind_int64(s.get(), 2, handle);
  const int rc = sqlite3_step(s.get());
  if (rc != SQLITE_DONE) {
    SetLastError(ErrorOf(rc));
    return false;
  }
  if (sqlite3_changes(db) == 0) {
    SetLastError(ERROR_INVALID_HANDLE);
    return false;
  }
  AnnounceChange();
  return true;
}

}  // namespace velmo::notify

using namespace velmo::notify;

HANDLE CeSetUserNotificationEx(HANDLE replace, CE_NOTIFICATION_TRIGGER* trigger,
                               CE_USER_NOTIFICATION* notification) {
  if (!TriggerIsValid(trigger)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  sqlite3* db = ThreadStore();
  if (!db) {
    NoteUnscheduled(StoreFailure());
    return nullptr;
  }
  const char* sql =
      replace ? "UPDATE user_notifications SET status = 0, type = ?1, event = ?2,"
                " application = ?3, arguments = ?4, start_time = ?5, end_time = ?6,"
                " has_dialog = ?7, action_flags = ?8, title = ?9, text = ?10, sound = ?11,"
                " max_sound = ?12 WHERE handle = ?13"
              : "INSERT INTO user_notifications(type, event, application, arguments,"
                " start_time, end_time, has_dialog, action_flags, title, text, sound,"
                " max_sound) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12)";
  StoreStatement s = PrepareStore(db, sql);
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return nullptr;
  }
  const bool timed = trigger->dwType != CNT_EVENT;
  const SYSTEMTIME none{};
  sqlite3_bind_int64(s.get(), 1, trigger->dwType);
  sqlite3_bind_int64(s.get(), 2, trigger->dwEvent);
  sqlite3_bind_text(s.get(), 3, Utf8OrEmpty(trigger->lpszApplication).c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s.get(), 4, Utf8OrEmpty(trigger->lpszArguments).c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s.get(), 5, TimeText(timed ? trigger->stStartTime : none).c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s.get(), 6, TimeText(timed ? trigger->stEndTime : none).c_str(), -1, SQLITE_TRANSIENT);
  const CE_USER_NOTIFICATION empty{};
  const CE_USER_NOTIFICATION& n = notification ? *notification : empty;
  sqlite3_bind_int64(s.get(), 7, notification != nullptr);
  sqlite3_bind_int64(s.get(), 8, n.ActionFlags);
  sqlite3_bind_text(s.get(), 9, Utf8OrEmpty(n.pwszDialogTitle).c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s.get(), 10, Utf8OrEmpty(n.pwszDialogText).c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s.get(), 11, Utf8OrEmpty(n.pwszSound).c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_int64(s.get(), 12, n.nMaxSound);
  if (replace) sqlite3_bind_int64(s.get(), 13, HandleValue(replace));
  const int rc = sqlite3_step(s.get());
  if (rc != SQLITE_DONE) {
    NoteUnscheduled(DescribeWriteFailure(db, rc));
    SetLastError(ErrorOf(rc));
    return nullptr;
  }
  if (replace && sqlite3_changes(db) == 0) {
    NoteUnscheduled("the notification to replace is gone");
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
  }
  const HANDLE handle = replace ? replace : HandleOf(static_cast<DWORD>(sqlite3_last_insert_rowid(db)));
  NoteUnscheduled({});
  AnnounceChange();
  return handle;
}

BOOL CeGetUserNotificationHandles(HANDLE* out, DWORD max, DWORD* needed) {
  std::vector<PendingNotification> all;
  if (!ListUserNotifications(&all)) return FALSE;
  if (needed) *needed = static_cast<DWORD>(all.size());
  if (all.size() > max || (!out && !all.empty())) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
  }
  for (size_t i = 0; i < all.size(); ++i) out[i] = HandleOf(all[i].handle);
  return TRUE;
}

BOOL CeGetUserNotification(HANDLE notification, DWORD cbBuffer, DWORD* cbNeeded, BYTE* buffer) {
  PendingNotification n;
  if (!ReadOne(HandleValue(notification), &n)) return FALSE;
  auto bytes = [](const std::wstring& text) { return (text.size() + 1) * sizeof(wchar_t); };
  size_t size = sizeof(CE_NOTIFICATION_INFO_HEADER) + sizeof(CE_NOTIFICATION_TRIGGER) +
                bytes(n.application) + bytes(n.arguments);
  if (n.has_dialog)
    size += sizeof(CE_USER_NOTIFICATION) + bytes(n.title) + bytes(n.text) + bytes(n.sound);
  if (cbNeeded) *cbNeeded = static_cast<DWORD>(size);
  if (!buffer || cbBuffer < size) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
  }
  std::memset(buffer, 0, size);
  auto* header = reinterpret_cast<CE_NOTIFICATION_INFO_HEADER*>(buffer);
  size_t offset = sizeof(CE_NOTIFICATION_INFO_HEADER);
  auto* trigger = reinterpret_cast<CE_NOTIFICATION_TRIGGER*>(buffer + offset);
  offset += sizeof(CE_NOTIFICATION_TRIGGER);
  CE_USER_NOTIFICATION* user = nullptr;
  if (n.has_dialog) {
    user = reinterpret_cast<CE_USER_NOTIFICATION*>(buffer + offset);
    offset += sizeof(CE_USER_NOTIFICATION);
  }
  header->hNotification = notification;
  header->dwStatus = n.status;
  header->pcent = trigger;
  header->pceun = user;
  trigger->dwSize = sizeof(CE_NOTIFICATION_TRIGGER);
  trigger->dwType = n.type;
  trigger->dwEvent = n.event;
  trigger->stStartTime = n.start;
  trigger->stEndTime = n.end;
  trigger->lpszApplication = PlaceString(buffer, &offset, n.application);
  trigger->lpszArguments = PlaceString(buffer, &offset, n.arguments);
  if (user) {
    user->ActionFlags = n.action_flags;
    user->pwszDialogTitle = PlaceString(buffer, &offset, n.title);
    user->pwszDialogText = PlaceString(buffer, &offset, n.text);
    user->pwszSound = PlaceString(buffer, &offset, n.sound);
    user->nMaxSound = static_cast<DWORD>(n.sound.size());
  }
  return TRUE;
}

BOOL CeClearUserNotification(HANDLE notification) {
  sqlite3* db = ThreadStore();
  if (!db) return FALSE;
  StoreStatement s = PrepareStore(db, "DELETE FROM user_notifications WHERE handle = ?");
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return FALSE;
  }
  sqlite3_bind_int64(s.get(), 1, HandleValue(notification));
  const int rc = sqlite3_step(s.get());
  if (rc != SQLITE_DONE) {
    SetLastError(ErrorOf(rc));
    return FALSE;
  }
  if (sqlite3_changes(db) == 0) {
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
  }
  AnnounceChange();
  return TRUE;
}
