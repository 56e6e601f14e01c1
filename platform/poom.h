// The phone's object model for tasks, as the program was written against it: an
// application object (IPOutlookApp) standing for the in-process server, task
// items (ITask) and their recurrence patterns (IRecurrencePattern), with COM-like
// reference counts and HRESULT results.
//
// Items live in "Tasks Database" of the device volume (\IPSM\mxip_initdb.vol, or
// the volume named by "DbPath" under HKCU\Software\Microsoft\Windows), one record
// per task, in the tasks database's record format (platform/poom_props.h lists
// the property identifiers and their encodings). A task item is a copy of its
// record in memory: setters change the copy, Save writes what changed in one
// write call, so properties that other code writes straight into the record
// (categories, team task, the notification handle) are never overwritten by a
// Save that did not change them.
//
// Save validates the item first:
//   0x80040067 (E_POOM_REMINDER): a reminder set without a due date, more than one
//       day after the due date, or more than 45 days before the start or due date;
//   0x80040068 (E_POOM_DATES): a start date without a due date, a due date before
//       the start date, or a pattern of more than 999 occurrences;
//   0x80070057 (E_INVALIDARG): the item's record is gone.
// Saving an item whose Complete was just set, when it recurs again (no limit, or
// at least two occurrences left), completes the current occurrence as a task of
// its own (a new record, not recurring) and moves the series on to its next
// occurrence: the item stays incomplete with its dates (and reminder) moved.
#pragma once

#include "platform/recurrence_pattern.h"
#include "platform/wintypes.h"

// ---------------------------------------------------------------------------
// Counted strings

using BSTR = wchar_t*;
using VARIANT_BOOL = SHORT;
constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

// A counted copy of text (null gives null, which reads as the empty string).
// The receiver frees it with SysFreeString.
BSTR SysAllocString(const wchar_t* text);
BSTR SysAllocStringLen(const wchar_t* text, UINT length);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);

// ---------------------------------------------------------------------------
// Constants

constexpr int olFolderTasks = 13;
constexpr int olTaskItem = 3;

enum OlImportance : LONG { olImportanceLow = 0, olImportanceNormal = 1, olImportanceHigh = 2 };
enum OlSensitivity : LONG { olNormal = 0, olPrivate = 2 };

enum OlRecurrenceType : LONG {
  olRecursDaily = 0,
  olRecursWeekly = 1,
  olRecursMonthly = 2,
  olRecursMonthNth = 3,
  olRecursYearly = 5,
  olRecursYearNth = 6,
};

// ReminderOptions: the notification action flags (-1: the default).
constexpr LONG olLED = 1;
constexpr LONG olVibrate = 2;
constexpr LONG olDialog = 4;
constexpr LONG olSound = 8;
constexpr LONG olRepeat = 16;

// Save's refusals.
constexpr HRESULT E_POOM_REMINDER = static_cast<HRESULT>(0x80040067u);
constexpr HRESULT E_POOM_DATES = static_cast<HRESULT>(0x80040068u);

// ---------------------------------------------------------------------------
// Interfaces

struct IRecurrencePattern {
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;

  virtual HRESULT get_RecurrenceType(LONG* value) = 0;
  virtual HRESULT put_RecurrenceType(LONG value) = 0;
  virtual HRESULT get_PatternStartDate(DATE* value) = 0;
  virtual HRESULT put_PatternStartDate(DATE value) = 0;
  virtual HRESULT get_PatternEndDate(DATE* value) = 0;
  // Also clears NoEndDate.
  virtual HRESULT put_PatternEndDate(DATE value) = 0;
  virtual HRESULT get_NoEndDate(VARIANT_BOOL* value) = 0;
  virtual HRESULT put_NoEndDate(VARIANT_BOOL value) = 0;
  virtual HRESULT get_Interval(LONG* value) = 0;
  virtual HRESULT put_Interval(LONG value) = 0;
  virtual HRESULT get_DayOfWeekMask(LONG* value) = 0;
  virtual HRESULT put_DayOfWeekMask(LONG value) = 0;
  virtual HRESULT get_DayOfMonth(LONG* value) = 0;
  virtual HRESULT put_DayOfMonth(LONG value) = 0;
  virtual HRESULT get_Instance(LONG* value) = 0;
  virtual HRESULT put_Instance(LONG value) = 0;
  virtual HRESULT get_MonthOfYear(LONG* value) = 0;
  virtual HRESULT put_MonthOfYear(LONG value) = 0;
  // The occurrences from the pattern's start to its end, counted by the
  // recurrence rules; -1 with no end date.
  virtual HRESULT get_Occurrences(LONG* value) = 0;
  // Ends the pattern at its value-th occurrence (value < 1: E_INVALIDARG).
  virtual HRESULT put_Occurrences(LONG value) = 0;

 protected:
  ~IRecurrencePattern() = default;
};

struct ITask {
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;

  // Strings: the getters return a new BSTR (the empty string when absent) that
  // the caller frees; the setters copy (null clears).
  virtual HRESULT get_Subject(BSTR* value) = 0;
  virtual HRESULT put_Subject(LPCWSTR value) = 0;
  virtual HRESULT get_Body(BSTR* value) = 0;
  virtual HRESULT put_Body(LPCWSTR value) = 0;
  virtual HRESULT get_Categories(BSTR* value) = 0;
  virtual HRESULT put_Categories(LPCWSTR value) = 0;
  virtual HRESULT get_ReminderSoundFile(BSTR* value) = 0;
  virtual HRESULT put_ReminderSoundFile(LPCWSTR value) = 0;

  // Dates: kNoDate (949998.0) is no date.
  virtual HRESULT get_StartDate(DATE* value) = 0;
  virtual HRESULT put_StartDate(DATE value) = 0;
  virtual HRESULT get_DueDate(DATE* value) = 0;
  virtual HRESULT put_DueDate(DATE value) = 0;
  virtual HRESULT get_DateCompleted(DATE* value) = 0;
  virtual HRESULT put_DateCompleted(DATE value) = 0;
  // The reminder is kept as minutes before its base date (the due date when
  // there is one, else the start date); setting it keeps the instant given.
  virtual HRESULT get_ReminderTime(DATE* value) = 0;
  virtual HRESULT put_ReminderTime(DATE value) = 0;

  // Setting Complete also sets DateCompleted (today) or clears it.
  virtual HRESULT get_Complete(VARIANT_BOOL* value) = 0;
  virtual HRESULT put_Complete(VARIANT_BOOL value) = 0;
  virtual HRESULT get_Importance(LONG* value) = 0;  // OlImportance
  virtual HRESULT put_Importance(LONG value) = 0;
  virtual HRESULT get_Sensitivity(LONG* value) = 0;  // OlSensitivity
  virtual HRESULT put_Sensitivity(LONG value) = 0;
  virtual HRESULT get_TeamTask(VARIANT_BOOL* value) = 0;
  virtual HRESULT put_TeamTask(VARIANT_BOOL value) = 0;
  virtual HRESULT get_ReminderSet(VARIANT_BOOL* value) = 0;
  virtual HRESULT put_ReminderSet(VARIANT_BOOL value) = 0;
  virtual HRESULT get_ReminderOptions(LONG* value) = 0;
  virtual HRESULT put_ReminderOptions(LONG value) = 0;

  // Validates and writes the item (a new item gets its record and identifier).
  virtual HRESULT Save() = 0;
  // Deletes the item's record; the item is then unsaved.
  virtual HRESULT Delete() = 0;
  // Saves a copy of the item as it is now (unsaved changes included) as a new
  // record and returns it; the item itself is not saved. The copy has no
  // notification handle of its own.
  virtual HRESULT Copy(ITask** copy) = 0;
  // The record's identifier; 0 for an item not yet saved.
  virtual HRESULT get_Oid(CEOID* oid) = 0;

  virtual HRESULT get_IsRecurring(VARIANT_BOOL* value) = 0;
  // The item's pattern, made (daily, interval 1, from the base date, no end)
  // when the item had none; the item recurs from then on. The pattern is part
  // of the item: it is written by the item's Save.
  virtual HRESULT GetRecurrencePattern(IRecurrencePattern** pattern) = 0;
  virtual HRESULT ClearRecurrencePattern() = 0;

 protected:
  ~ITask() = default;
};

struct IFolder {
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;
  virtual HRESULT get_DefaultItemType(int* type) = 0;

 protected:
  ~IFolder() = default;
};

struct IPOutlookApp {
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;

  // Mounts the volume and opens the tasks database (made when missing).
  virtual HRESULT Logon(HWND window) = 0;
  virtual HRESULT Logoff() = 0;
  // Only olFolderTasks; E_INVALIDARG for any other kind.
  virtual HRESULT GetDefaultFolder(int kind, IFolder** folder) = 0;
  // The task of that record; E_INVALIDARG when no such task record exists.
  virtual HRESULT GetItemFromOid(CEOID oid, ITask** item) = 0;
  // A new, unsaved item; only olTaskItem.
  virtual HRESULT CreateItem(int type, ITask** item) = 0;

 protected:
  ~IPOutlookApp() = default;
};

// Stands for CoCreateInstance of the in-process server: a new application
// object with one reference. E_POINTER for a null out.
HRESULT CreatePOutlookApp(IPOutlookApp** app);

namespace velmo::poom {

// The pattern's fields as plain values, and back (Occurrences is read only).
HRESULT ReadPattern(IRecurrencePattern* from, RecurrencePattern* to);
HRESULT WritePattern(const RecurrencePattern& from, IRecurrencePattern* to);

}  // namespace velmo::poom
