#include "store/task_finisher.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velmo {
namespace {

// One step of waiting for the other thread: a pause for the first few
// thousand, then giving the core away, so that a wait on a busy machine does
// not hold back the very thread it waits for.
class Waiting {
 public:
  void Step() {
    if (++steps_ < kSpins) {
#if defined(__SSE2__)
      _mm_pause();
#endif
    } else {
      std::this_thread::yield();
    }
  }

 private:
  static constexpr unsigned kSpins = 2000;
  unsigned steps_ = 0;
};

// The second thread: it sleeps between loads.
class SecondThread {
 public:
  ~SecondThread() {
    if (!thread_.joinable()) return;
    {
      std::lock_guard lock(mutex_);
      stopping_ = true;
    }
    wake_.notify_one();
    thread_.join();
  }

  // Has the thread take its part of this load, whenever it wakes.
  void Hand(TaskFinisher* finisher) {
    {
      std::lock_guard lock(mutex_);
      if (!thread_.joinable() && !Start()) return;  // the reading thread does it all
      finisher_ = finisher;
    }
    wake_.notify_one();
  }

 private:
  bool Start() {
    try {
      thread_ = std::thread(&SecondThread::Run, this);
      return true;
    } catch (const std::system_error&) {  // no thread to be had: out of resources
      return false;
    }
  }

  void Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
      wake_.wait(lock, [this] { return stopping_ || finisher_ != nullptr; });
      if (stopping_) return;
      TaskFinisher* finisher = std::exchange(finisher_, nullptr);
      lock.unlock();
      finisher->WorkOnSecondThread();
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  TaskFinisher* finisher_ = nullptr;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace

void TaskFinisher::Reset(size_t capacity, CategoryUseMarking* marking) {
  jobs_.resize(capacity);
  arena_.Clear();
  marking_ = marking;
  added_ = 0;
  published_.store(0, std::memory_order_relaxed);
  released_.store(false, std::memory_order_relaxed);
  closed_.store(false, std::memory_order_relaxed);
  owner_.store(kNobody, std::memory_order_relaxed);
}

void TaskFinisher::Add(Task* task, const StoredTexts& texts) {
  Job& job = jobs_[added_++];
  job.task = task;
  job.texts.subject = arena_.Copy(texts.subject);
  job.texts.categories = arena_.Copy(texts.categories);
  job.texts.reminder_sound = texts.reminder_sound.empty() ? std::string_view() : arena_.Copy(texts.reminder_sound);
  job.texts.notes.reset();
  if (texts.notes) job.texts.notes = arena_.Copy(*texts.notes);
  if (added_ % kGroup == 0) published_.store(added_, std::memory_order_release);
}

void TaskFinisher::WorkOnSecondThread() {
  Owner expected = kNobody;
  if (!owner_.compare_exchange_strong(expected, kSecondThread, std::memory_order_acq_rel)) return;
  Work();
  released_.store(true, std::memory_order_release);  // the last touch of this load
}

void TaskFinisher::Close() {
  published_.store(added_, std::memory_order_release);
  closed_.store(true, std::memory_order_release);
  Owner expected = kNobody;
  if (owner_.compare_exchange_strong(expected, kReadingThread, std::memory_order_acq_rel)) {
    Work();
    return;
  }
  for (Waiting waiting; !released_.load(std::memory_order_acquire);) waiting.Step();
}

void TaskFinisher::Work() {
  // Read once: the reading thread writes next to them for every task.
  const Job* const jobs = jobs_.data();
  CategoryUseMarking* const marking = marking_;
  for (size_t i = 0;; ++i) {
    if (!WaitFor(i)) return;
    const Job& job = jobs[i];
    FinishTask(job.task, job.texts, job.texts.notes ? job.texts.notes->data() : nullptr);
    if (marking) marking->Mark(*job.task);
  }
}

bool TaskFinisher::WaitFor(size_t i) {
  for (Waiting waiting;; waiting.Step()) {
    if (i < published_.load(std::memory_order_acquire)) return true;
    if (closed_.load(std::memory_order_acquire)) return i < published_.load(std::memory_order_acquire);
  }
}

TaskFinisher& StartFinishing(size_t capacity, CategoryUseMarking* marking) {
  static TaskFinisher finisher;
  static SecondThread second;
  finisher.Reset(capacity, marking);
  second.Hand(&finisher);
  return finisher;
}

}  // namespace velmo
