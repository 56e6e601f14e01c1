// Made-up but lifelike tasks for `velmo demo`: subjects of everyday errands,
// dates around today (overdue, today, coming, undated), reminders within what
// the object model accepts, recurrences, categories, priorities, and notes of
// every length with telephone numbers, e-mail and web addresses in them.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "platform/oletime.h"
#include "platform/poom.h"
#include "platform/wintypes.h"

namespace velmo::cli {

struct DemoTask {
  std::wstring subject;
  DATE start = kNoDate;
  DATE due = kNoDate;
  DATE reminder = kNoDate;  // as the record keeps it
  int recurrence = 0;       // an "Occurs" choice, 0 for none
  LONG importance = 1;
  std::wstring categories;
  std::wstring notes;
  bool is_private = false;
  bool complete = false;
};

class DemoTaskMaker {
 public:
  // The same seed and day give the same tasks.
  DemoTaskMaker(std::uint32_t seed, DATE today) : random_(seed), today_(today) {}
  DemoTask Next();

 private:
  std::wstring Subject();
  std::wstring Notes();
  void Dates(DemoTask* task);
  size_t Pick(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(random_); }
  bool Chance(int percent) { return static_cast<int>(Pick(100)) < percent; }

  std::mt19937 random_;
  DATE today_;
};

// Saves the task through the object model, with its recurrence and categories.
HRESULT SaveDemoTask(const DemoTask& task, IPOutlookApp* app);

}  // namespace velmo::cli
