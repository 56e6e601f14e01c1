#include "store/table_load.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "platform/cedb.h"
#include "platform/cedb_in_place.h"
#include "platform/notify_store.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "store/task_table.h"

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

// Copies of record texts that stay where they are until the load ends: the
// second thread reads them while more are added. The blocks are
// kept for the next load: fresh memory would cost a page fault every 4 KB.
class NotesArena {
 public:
  void Clear() {
    block_ = 0;
    used_ = 0;
    oversized_.clear();
  }

  // A copy of `bytes` followed by a zero byte.
  std::string_view Copy(std::string_view bytes) {
    const size_t need = bytes.size() + 1;
    if (need > kBlockSize) return Place(oversized_.emplace_back(new char[need]).get(), bytes);
    if (block_ == blocks_.size() || used_ + need > kBlockSize) {
      if (block_ < blocks_.size()) ++block_;
      if (block_ == blocks_.size()) blocks_.emplace_back(new char[kBlockSize]);
      used_ = 0;
    }
    const std::string_view copy = Place(blocks_[block_].get() + used_, bytes);
    used_ += need;
    return copy;
  }

 private:
  static constexpr size_t kBlockSize = 256 * 1024;
  static std::string_view Place(char* at, std::string_view bytes) {
    bytes.copy(at, bytes.size());
    at[bytes.size()] = '\0';
    return {at, bytes.size()};
  }
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::vector<std::unique_ptr<char[]>> oversized_;
  size_t block_ = 0;  // the block being filled
  size_t used_ = 0;
};

// The second half of filling a plain load's tasks: decoding the texts, the
// link scans and the category marks, which cost about as much as reading and
// filling the rest, done on a second thread while this one reads on. The filling thread
// publishes tasks in groups (each publication moves a cache line between the
// cores); the second thread takes them in table order, so the categories are
// marked in the order a one-thread load marks them. Should the second thread
// not have started by the time the reading ends (a busy machine), the reading
// thread takes the work back and does it all itself.
class TaskFinisher {
 public:
  // Ready for a load of up to `capacity` tasks, keeping the room of the last.
  void Reset(size_t capacity, CategoryUseMarking* marking) {
    jobs_.resize(capacity);
    arena_.Clear();
    marking_ = marking;
    added_ = 0;
    published_.store(0, std::memory_order_relaxed);
    released_.store(false, std::memory_order_relaxed);
    closed_.store(false, std::memory_order_relaxed);
    owner_.store(kNobody, std::memory_order_relaxed);
  }

  // A task with its fields filled; its texts are copied here.
  void Add(Task* task, const StoredTexts& texts) {
    Job& job = jobs_[added_++];
    job.task = task;
    job.texts.subject = arena_.Copy(texts.subject);
    job.texts.categories = arena_.Copy(texts.categories);
    job.texts.reminder_sound = texts.reminder_sound.empty() ? std::string_view() : arena_.Copy(texts.reminder_sound);
    job.texts.notes.reset();
    if (texts.notes) job.texts.notes = arena_.Copy(*texts.notes);
    if (added_ % kGroup == 0) published_.store(added_, std::memory_order_release);
  }

  // The second thread's part: everything, unless the reading thread took it.
  void WorkOnSecondThread() {
    Owner expected = kNobody;
    if (!owner_.compare_exchange_strong(expected, kSecondThread, std::memory_order_acq_rel)) return;
    Work();
    released_.store(true, std::memory_order_release);  // the last touch of this load
  }

  // After the last Add, on the reading thread: waits until the second thread
  // is done with this load, or does the work when the second thread never
  // began.
  void Close() {
    published_.store(added_, std::memory_order_release);
    closed_.store(true, std::memory_order_release);
    Owner expected = kNobody;
    if (owner_.compare_exchange_strong(expected, kReadingThread, std::memory_order_acq_rel)) {
      Work();
      return;
    }
    for (Waiting waiting; !released_.load(std::memory_order_acquire);) waiting.Step();
  }

 private:
  enum Owner { kNobody, kSecondThread, kReadingThread };
  static constexpr size_t kGroup = 32;
  struct Job {
    Task* task;
    StoredTexts texts;  // in the arena, the notes followed by a zero byte
  };

  void Work() {
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

  // True once task i is published; false when it never will be.
  bool WaitFor(size_t i) {
    for (Waiting waiting;; waiting.Step()) {
      if (i < published_.load(std::memory_order_acquire)) return true;
      if (closed_.load(std::memory_order_acquire)) return i < published_.load(std::memory_order_acquire);
    }
  }

  std::vector<Job> jobs_;
  NotesArena arena_;
  CategoryUseMarking* marking_ = nullptr;
  // Each on a cache line of its own: one thread writes it, the other reads it
  // or writes beside it.
  alignas(64) size_t added_ = 0;  // the reading thread's own count
  alignas(64) std::atomic<size_t> published_{0};
  alignas(64) std::atomic<bool> released_{false};
  alignas(64) std::atomic<bool> closed_{false};
  alignas(64) std::atomic<Owner> owner_{kNobody};
};

// A plain load reads every record in place, in one statement, and fills each
// task straight from the database's pages. A damaged record is skipped but
// counted, as in the one-by-one read.
class TableFiller : public cedb::RecordVisitor {
 public:
  explicit TableFiller(TaskFinisher* finisher) : finisher_(finisher) {}

  void Visit(const cedb::InPlaceRecord& record) override {
    std::unique_ptr<Task> task = NewTableTask();
    StoredTexts texts;
    if (!FillTaskFields(record.oid, record.props, task.get(), &texts)) {
      ReturnTableTask(std::move(task));
      return;
    }
    finisher_->Add(task.get(), texts);
    Tasks().push_back(std::move(task));
  }

 private:
  TaskFinisher* finisher_;
};

// The second thread, started on the first plain load and kept: starting a
// thread for each load would cost the reading thread as much time as the
// thread saves it on a small table. It sleeps between loads.
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

void ReadPlainRecords(size_t count, CategoryUseMarking* marking) {
  static TaskFinisher finisher;
  static SecondThread second;
  finisher.Reset(count, marking);
  TableFiller filler(&finisher);
  second.Hand(&finisher);
  cedb::VisitRecordsInPlace(Store().tasks_db, count, &filler);
  finisher.Close();
}

}  // namespace

bool ReadRecords(size_t count, bool check_reminder, CategoryUseMarking* marking) {
  if (count == 0) return true;
  Tasks().reserve(Tasks().size() + count);
  CeSeekDatabase(Store().tasks_db, CEDB_SEEK_BEGINNING, 0, nullptr);
  if (!check_reminder) {
    ReadPlainRecords(count, marking);
    return true;
  }
  // The checks' writes to the record and to the notifications go to each file
  // as one transaction.
  CEGUID* volume = &Store().volume;
  const bool records = cedb::BeginWriteBatch(volume);
  const bool notifications = notify::BeginStoreBatch();
  const size_t first = Tasks().size();
  for (size_t i = 0; i < count; ++i) ReadTask(nullptr, 0, true);
  const bool notifications_kept = !notifications || notify::EndStoreBatch();
  const bool records_kept = !records || cedb::EndWriteBatch(volume);
  if (marking)
    for (size_t i = first; i < Tasks().size(); ++i) marking->Mark(*Tasks()[i]);
  return notifications_kept && records_kept;
}

}  // namespace velmo
