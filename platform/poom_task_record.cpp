// A task item's values to and from the record format of the tasks database.
#include <algorithm>

#include "platform/ansi_codepage.h"
#include "platform/oletime.h"
#include "platform/poom_props.h"
#include "platform/poom_task.h"

namespace velmo::poom {
namespace {

DATE DateOf(const CEPROPVAL& v) {
  DATE d;
  return FileTimeToDate(v.val.filetime, &d) ? d : kNoDate;
}

std::wstring TextOf(const CEPROPVAL& v) { return v.val.lpwstr ? v.val.lpwstr : L""; }

// Notes: Windows-1252 bytes; a terminator some writers add is not text.
std::wstring NotesOf(const CEPROPVAL& v) {
  std::string_view bytes(reinterpret_cast<const char*>(v.val.blob.lpb), v.val.blob.lpb ? v.val.blob.dwCount : 0);
  while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
  return FromWindows1252(bytes);
}

LONG ImportanceOf(LONG stored) {
  if (stored == kStoredImportanceHigh) return olImportanceHigh;
  if (stored == kStoredImportanceLow) return olImportanceLow;
  return olImportanceNormal;
}

LONG StoredImportance(LONG importance) {
  if (importance == olImportanceHigh) return kStoredImportanceHigh;
  if (importance == olImportanceLow) return kStoredImportanceLow;
  return kStoredImportanceNormal;
}

// Applies one property to the values; unknown identifiers are not the model's.
void Apply(const CEPROPVAL& v, TaskValues* t) {
  RecurrencePattern& p = t->pattern;
  switch (v.propid) {
    case kPropSubject: t->subject = TextOf(v); break;
    case kPropNotes: t->body = NotesOf(v); break;
    case kPropCategories: t->categories = TextOf(v); break;
    case kPropReminderSound: t->sound = TextOf(v); break;
    case kPropStartDate: t->start = DateOf(v); break;
    case kPropDueDate: t->due = DateOf(v); break;
    case kPropDateCompleted: t->completed = DateOf(v); break;
    case kPropComplete: t->complete = v.val.iVal != 0; break;
    case kPropRecurring: t->recurring = v.val.iVal != 0; break;
    case kPropImportance: t->importance = ImportanceOf(v.val.lVal); break;
    case kPropSensitivity:
      t->sensitivity = v.val.iVal == kStoredSensitivityPrivate ? olPrivate : olNormal;
      break;
    case kPropTeamTask: t->team = v.val.iVal != 0; break;
    case kPropReminderSet: t->reminder_set = v.val.iVal != 0; break;
    case kPropReminderMinutes: t->reminder_minutes = v.val.lVal; break;
    case kPropReminderBaseFlag: t->reminder_from_due = v.val.iVal != 0; break;
    case kPropReminderOptions: t->options = v.val.lVal; break;
    case kPropPatternType: p.RecurrenceType = v.val.lVal; break;
    case kPropPatternStart: p.PatternStartDate = DateOf(v); break;
    case kPropPatternEnd: p.PatternEndDate = DateOf(v); break;
    case kPropPatternNoEnd: p.NoEndDate = v.val.iVal != 0 ? TRUE : FALSE; break;
    case kPropPatternInterval: p.Interval = v.val.lVal; break;
    case kPropPatternDayOfWeekMask: p.DayOfWeekMask = v.val.lVal; break;
    case kPropPatternDayOfMonth: p.DayOfMonth = v.val.lVal; break;
    case kPropPatternInstance: p.Instance = v.val.lVal; break;
    case kPropPatternMonthOfYear: p.MonthOfYear = v.val.lVal; break;
    default: break;
  }
}

class Encoder {
 public:
  explicit Encoder(EncodedProps* out) : out_(out) {}

  void Text(CEPROPID id, const std::wstring& text) {
    out_->strings.push_back(std::make_unique<std::wstring>(text));
    CEPROPVAL v{id, 0, 0, {}};
    v.val.lpwstr = out_->strings.back()->data();
    out_->values.push_back(v);
  }
  void Notes(const std::wstring& body) {
    if (body.empty()) return Remove(kPropNotes);
    out_->blobs.push_back(std::make_unique<std::string>(ToWindows1252(body)));
    CEPROPVAL v{kPropNotes, 0, 0, {}};
    v.val.blob.dwCount = static_cast<DWORD>(out_->blobs.back()->size());
    v.val.blob.lpb = reinterpret_cast<BYTE*>(out_->blobs.back()->data());
    out_->values.push_back(v);
  }
  void Date(CEPROPID id, DATE date) {
    CEPROPVAL v{id, 0, 0, {}};
    if (!DateToFileTime(date, &v.val.filetime)) DateToFileTime(kNoDate, &v.val.filetime);
    out_->values.push_back(v);
  }
  void Short(CEPROPID id, SHORT value) {
    CEPROPVAL v{id, 0, 0, {}};
    v.val.iVal = value;
    out_->values.push_back(v);
  }
  void Long(CEPROPID id, LONG value) {
    CEPROPVAL v{id, 0, 0, {}};
    v.val.lVal = value;
    out_->values.push_back(v);
  }
  void Remove(CEPROPID id) { out_->values.push_back(CEPROPVAL{id, 0, CEDB_PROPDELETE, {}}); }

 private:
  EncodedProps* out_;
};

constexpr CEPROPID kPatternProps[] = {
    kPropPatternType,          kPropPatternStart,      kPropPatternEnd,
    kPropPatternNoEnd,         kPropPatternInterval,   kPropPatternDayOfWeekMask,
    kPropPatternDayOfMonth,    kPropPatternInstance,   kPropPatternMonthOfYear,
};

constexpr CEPROPID kModelProps[] = {
    kPropSubject,       kPropNotes,         kPropCategories,      kPropStartDate,
    kPropDueDate,       kPropDateCompleted, kPropComplete,        kPropRecurring,
    kPropImportance,    kPropSensitivity,   kPropTeamTask,        kPropReminderSet,
    kPropReminderMinutes, kPropReminderBaseFlag, kPropReminderOptions, kPropReminderSound,
};

}  // namespace

bool IsModelProperty(CEPROPID propid) {
  return std::find(std::begin(kModelProps), std::end(kModelProps), propid) != std::end(kModelProps) ||
         std::find(std::begin(kPatternProps), std::end(kPatternProps), propid) != std::end(kPatternProps);
}

void DecodeTask(const CEPROPVAL* begin, const CEPROPVAL* end, TaskValues* out) {
  for (const CEPROPVAL* v = begin; v != end; ++v)
    if (!(v->wFlags & CEDB_PROPNOTFOUND)) Apply(*v, out);
}

void EncodeTask(const TaskValues& t, unsigned fields, EncodedProps* out) {
  Encoder e(out);
  if (fields & kFieldSubject) e.Text(kPropSubject, t.subject);
  if (fields & kFieldBody) e.Notes(t.body);
  if (fields & kFieldCategories) e.Text(kPropCategories, t.categories);
  if (fields & kFieldSound) e.Text(kPropReminderSound, t.sound);
  if (fields & kFieldStart) e.Date(kPropStartDate, t.start);
  if (fields & kFieldDue) e.Date(kPropDueDate, t.due);
  if (fields & kFieldCompleted) {
    e.Date(kPropDateCompleted, t.completed);
    e.Short(kPropComplete, t.complete ? 1 : 0);
  }
  if (fields & kFieldTeam) e.Short(kPropTeamTask, t.team ? 1 : 0);
  if (fields & kFieldReminderSet) e.Short(kPropReminderSet, t.reminder_set ? 1 : 0);
  if (fields & kFieldReminderTime) {
    e.Long(kPropReminderMinutes, t.reminder_minutes);
    e.Short(kPropReminderBaseFlag, t.reminder_from_due ? 1 : 0);
  }
  if (fields & kFieldImportance) e.Long(kPropImportance, StoredImportance(t.importance));
  if (fields & kFieldSensitivity)
    e.Short(kPropSensitivity,
            t.sensitivity == olPrivate ? kStoredSensitivityPrivate : kStoredSensitivityNormal);
  if (fields & kFieldOptions) e.Long(kPropReminderOptions, t.options);
  if (fields & kFieldRecurrence) {
    e.Short(kPropRecurring, t.recurring ? 1 : 0);
    if (!t.recurring) {
      for (CEPROPID id : kPatternProps) e.Remove(id);
    } else {
      const RecurrencePattern& p = t.pattern;
      e.Long(kPropPatternType, p.RecurrenceType);
      e.Date(kPropPatternStart, p.PatternStartDate);
      e.Date(kPropPatternEnd, p.PatternEndDate);
      e.Short(kPropPatternNoEnd, p.NoEndDate ? 1 : 0);
      e.Long(kPropPatternInterval, p.Interval);
      e.Long(kPropPatternDayOfWeekMask, p.DayOfWeekMask);
      e.Long(kPropPatternDayOfMonth, p.DayOfMonth);
      e.Long(kPropPatternInstance, p.Instance);
      e.Long(kPropPatternMonthOfYear, p.MonthOfYear);
    }
  }
}

}  // namespace velmo::poom
