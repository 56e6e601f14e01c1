#include "store/table_load.h"

#include <memory>
#include <utility>

#include "platform/cedb.h"
#include "platform/cedb_in_place.h"
#include "platform/notify_store.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "store/task_table.h"

namespace velmo {
namespace {

// A plain load reads every record in place, in one statement, and fills and
// finishes each task straight from the database's pages. A damaged record is
// skipped but counted, as in the one-by-one read.
class TableFiller : public cedb::RecordVisitor {
 public:
  explicit TableFiller(CategoryUseMarking* marking) : marking_(marking) {}

  void Visit(const cedb::InPlaceRecord& record) override {
    std::unique_ptr<Task> task = NewTableTask();
    StoredTexts texts;
    if (!FillTaskFields(record.oid, record.props, task.get(), &texts)) {
      ReturnTableTask(std::move(task));
      return;
    }
    FinishTaskCopyingNotes(task.get(), texts, &Store().notes_copy);
    if (marking_) marking_->Mark(*task);
    Tasks().push_back(std::move(task));
  }

 private:
  CategoryUseMarking* marking_;
};

void ReadPlainRecords(size_t count, CategoryUseMarking* marking) {
  TableFiller filler(marking);
  cedb::VisitRecordsInPlace(Store().tasks_db, count, &filler);
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
