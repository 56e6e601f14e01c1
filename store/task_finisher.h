// Finishing a plain load's tasks on a second thread.
#pragma once

#include <atomic>
#include <cstddef>
#include <vector>

#include "categories/category_filter.h"
#include "store/record_reader.h"
#include "store/task.h"
#include "store/text_arena.h"

namespace velmo {

// The second half of filling a plain load's tasks: decoding the texts, the
// link scans and the category marks, which cost about as much as reading and
// filling the rest, done on a second thread while the reading thread reads on.
// The reading thread publishes tasks in groups (each publication moves a cache
// line between the cores); the second thread takes them in table order, so the
// categories are marked in the order a one-thread load marks them. Should the second thread
// not have started by the time the reading ends (a busy machine), the reading
// thread takes the work back and does it all itself.
class TaskFinisher {
 public:
  // Ready for a load of up to `capacity` tasks, keeping the room of the last.
  void Reset(size_t capacity, CategoryUseMarking* marking);

  // A task with its fields filled; its texts are copied here.
  void Add(Task* task, const StoredTexts& texts);

  // The second thread's part: everything, unless the reading thread took it.
  void WorkOnSecondThread();

  // After the last Add, on the reading thread: waits until the second thread
  // is done with this load, or does the work when the second thread never
  // began.
  void Close();

 private:
  enum Owner { kNobody, kSecondThread, kReadingThread };
  static constexpr size_t kGroup = 32;
  struct Job {
    Task* task;
    StoredTexts texts;  // in the arena, the notes followed by a zero byte
  };

  void Work();
  // True once task i is published; false when it never will be.
  bool WaitFor(size_t i);

  std::vector<Job> jobs_;
  TextArena arena_;
  CategoryUseMarking* marking_ = nullptr;
  // Each on a cache line of its own: one thread writes it, the other reads it
  // or writes beside it.
  alignas(64) size_t added_ = 0;  // the reading thread's own count
  alignas(64) std::atomic<size_t> published_{0};
  alignas(64) std::atomic<bool> released_{false};
  alignas(64) std::atomic<bool> closed_{false};
  alignas(64) std::atomic<Owner> owner_{kNobody};
};

// The finisher of this load, reset for up to `capacity` tasks and handed to
// the second thread (started on first use and kept: starting a thread for each
// load would cost the reading thread as much time as the thread saves it).
TaskFinisher& StartFinishing(size_t capacity, CategoryUseMarking* marking);

}  // namespace velmo
