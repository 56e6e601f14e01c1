// IRecurrencePattern over a task item's pattern, and the conversion to and from
// the plain pattern values.
#include <atomic>

#include "platform/poom_recurrence.h"
#include "platform/poom_task.h"

namespace velmo::poom {
namespace {

bool KnownType(LONG type) {
  switch (type) {
    case olRecursDaily: case olRecursWeekly: case olRecursMonthly:
    case olRecursMonthNth: case olRecursYearly: case olRecursYearNth:
      return true;
    default:
      return false;
  }
}

bool ValidDate(DATE date) {
  SYSTEMTIME unused;
  return date == kNoDate || VariantTimeToSystemTime(date, &unused);
}

class PatternObject final : public IRecurrencePattern {
 public:
  explicit PatternObject(TaskItem* item) : item_(item) { item_->AddRef(); }

  ULONG AddRef() override { return ++refs_; }
  ULONG Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT get_RecurrenceType(LONG* v) override { return Get(item_->pattern().RecurrenceType, v); }
  HRESULT put_RecurrenceType(LONG v) override {
    if (!KnownType(v)) return E_INVALIDARG;
    item_->ChangePattern().RecurrenceType = v;
    return S_OK;
  }
  HRESULT get_PatternStartDate(DATE* v) override { return Get(item_->pattern().PatternStartDate, v); }
  HRESULT put_PatternStartDate(DATE v) override {
    if (v == kNoDate || !ValidDate(v)) return E_INVALIDARG;
    item_->ChangePattern().PatternStartDate = v;
    return S_OK;
  }
  HRESULT get_PatternEndDate(DATE* v) override { return Get(item_->pattern().PatternEndDate, v); }
  HRESULT put_PatternEndDate(DATE v) override {
    if (!ValidDate(v)) return E_INVALIDARG;
    RecurrencePattern& p = item_->ChangePattern();
    p.PatternEndDate = v;
    p.NoEndDate = v == kNoDate ? TRUE : FALSE;
    return S_OK;
  }
  HRESULT get_NoEndDate(VARIANT_BOOL* v) override {
    if (!v) return E_POINTER;
    *v = item_->pattern().NoEndDate ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  }
  HRESULT put_NoEndDate(VARIANT_BOOL v) override {
    item_->ChangePattern().NoEndDate = v != VARIANT_FALSE ? TRUE : FALSE;
    return S_OK;
  }
  HRESULT get_Interval(LONG* v) override { return Get(item_->pattern().Interval, v); }
  HRESULT put_Interval(LONG v) override { return PutRange(&RecurrencePattern::Interval, v, 0, 0x7FFFFFFF); }
  HRESULT get_DayOfWeekMask(LONG* v) override { return Get(item_->pattern().DayOfWeekMask, v); }
  HRESULT put_DayOfWeekMask(LONG v) override {
    return PutRange(&RecurrencePattern::DayOfWeekMask, v, 0, kAllDays);
  }
  HRESULT get_DayOfMonth(LONG* v) override { return Get(item_->pattern().DayOfMonth, v); }
  HRESULT put_DayOfMonth(LONG v) override { return PutRange(&RecurrencePattern::DayOfMonth, v, 0, 31); }
  HRESULT get_Instance(LONG* v) override { return Get(item_->pattern().Instance, v); }
  HRESULT put_Instance(LONG v) override {
    return PutRange(&RecurrencePattern::Instance, v, 0, kLastInstance);
  }
  HRESULT get_MonthOfYear(LONG* v) override { return Get(item_->pattern().MonthOfYear, v); }
  HRESULT put_MonthOfYear(LONG v) override { return PutRange(&RecurrencePattern::MonthOfYear, v, 0, 12); }

  HRESULT get_Occurrences(LONG* v) override { return Get(CountOccurrences(item_->pattern()), v); }
  HRESULT put_Occurrences(LONG v) override {
    if (v < 1) return E_INVALIDARG;
    RecurrencePattern open = item_->pattern();
    open.NoEndDate = TRUE;
    const DATE last = NthOccurrence(open, v);
    if (last == kNoDate) return E_INVALIDARG;
    RecurrencePattern& p = item_->ChangePattern();
    p.PatternEndDate = last;
    p.NoEndDate = FALSE;
    return S_OK;
  }

 private:
  ~PatternObject() { item_->Release(); }

  template <typename T>
  static HRESULT Get(T value, T* out) {
    if (!out) return E_POINTER;
    *out = value;
    return S_OK;
  }

  HRESULT PutRange(LONG RecurrencePattern::*field, LONG v, LONG low, LONG high) {
    if (v < low || v > high) return E_INVALIDARG;
    item_->ChangePattern().*field = v;
    return S_OK;
  }

  std::atomic<ULONG> refs_{1};
  TaskItem* item_;
};

}  // namespace

IRecurrencePattern* NewPatternObject(TaskItem* item) { return new PatternObject(item); }

HRESULT ReadPattern(IRecurrencePattern* from, RecurrencePattern* to) {
  if (!from || !to) return E_POINTER;
  VARIANT_BOOL no_end = VARIANT_TRUE;
  HRESULT hr = S_OK;
  for (HRESULT step : {from->get_RecurrenceType(&to->RecurrenceType),
                       from->get_PatternStartDate(&to->PatternStartDate),
                       from->get_PatternEndDate(&to->PatternEndDate), from->get_NoEndDate(&no_end),
                       from->get_Interval(&to->Interval), from->get_DayOfWeekMask(&to->DayOfWeekMask),
                       from->get_DayOfMonth(&to->DayOfMonth), from->get_Instance(&to->Instance),
                       from->get_MonthOfYear(&to->MonthOfYear),
                       from->get_Occurrences(&to->Occurrences)})
    if (FAILED(step) && SUCCEEDED(hr)) hr = step;
  to->NoEndDate = no_end != VARIANT_FALSE ? TRUE : FALSE;
  return hr;
}

HRESULT WritePattern(const RecurrencePattern& from, IRecurrencePattern* to) {
  if (!to) return E_POINTER;
  HRESULT hr = S_OK;
  for (HRESULT step : {to->put_RecurrenceType(from.RecurrenceType),
                       to->put_Interval(from.Interval), to->put_DayOfWeekMask(from.DayOfWeekMask),
                       to->put_DayOfMonth(from.DayOfMonth), to->put_Instance(from.Instance),
                       to->put_MonthOfYear(from.MonthOfYear),
                       from.PatternStartDate == kNoDate ? S_OK
                                                        : to->put_PatternStartDate(from.PatternStartDate),
                       from.NoEndDate ? to->put_NoEndDate(VARIANT_TRUE)
                                      : to->put_PatternEndDate(from.PatternEndDate)})
    if (FAILED(step) && SUCCEEDED(hr)) hr = step;
  return hr;
}

}  // namespace velmo::poom
