// velmo add: one task saved through the object model, so that the same checks
// apply as in the editor; prints the new task's object identifier.
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "cli/task_dates.h"
#include "editor/save_failure.h"
#include "platform/poom.h"
#include "platform/wstr.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "store/task_table.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage =
    "usage: velmo add SUBJECT [--start DATE] [--due DATE] [--reminder DATE-TIME]\n"
    "                 [--priority low|normal|high] [--categories TEXT] [--notes TEXT]\n"
    "                 [--private] [--complete]\n"
    "DATE is YYYY-MM-DD, DATE-TIME YYYY-MM-DDTHH:MM\n";

struct AddRequest {
  std::wstring subject;
  DATE start = kNoDate;
  DATE due = kNoDate;
  DATE reminder = kNoDate;
  LONG importance = olImportanceNormal;
  std::optional<std::wstring> categories;
  std::optional<std::wstring> notes;
  bool is_private = false;
  bool complete = false;
};

constexpr struct {
  const char* name;
  LONG importance;
} kPriorities[] = {{"low", olImportanceLow}, {"normal", olImportanceNormal}, {"high", olImportanceHigh}};

bool ParseValue(std::string_view option, const char* value, AddRequest* r) {
  const auto date = [&](DATE* out, bool with_time) {
    const auto parsed = ParseDate(value, with_time);
    if (parsed) *out = *parsed;
    return parsed.has_value();
  };
  if (option == "--start") return date(&r->start, false);
  if (option == "--due") return date(&r->due, false);
  if (option == "--reminder") return date(&r->reminder, true);
  if (option == "--categories") {
    r->categories = FromUtf8(value);
    return true;
  }
  if (option == "--notes") {
    r->notes = FromUtf8(value);
    return true;
  }
  if (option != "--priority") return false;
  for (const auto& p : kPriorities) {
    if (std::strcmp(value, p.name) != 0) continue;
    r->importance = p.importance;
    return true;
  }
  return false;
}

// False with the message printed when the arguments are not the command's.
bool ParseArguments(int argc, char** argv, AddRequest* r) {
  if (argc < 1 || argv[0][0] == '-') {
    std::fputs(kUsage, stderr);
    return false;
  }
  r->subject = FromUtf8(argv[0]);
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (option == "--private") {
      r->is_private = true;
    } else if (option == "--complete") {
      r->complete = true;
    } else if (i + 1 < argc && ParseValue(option, argv[i + 1], r)) {
      ++i;
    } else {
      std::fprintf(stderr, "velmo add: bad option or value: %s %s\n%s", argv[i],
                   i + 1 < argc ? argv[i + 1] : "", kUsage);
      return false;
    }
  }
  return true;
}

void FillItem(const AddRequest& r, ITask* item) {
  item->put_Subject(r.subject.c_str());
  item->put_StartDate(r.start);
  item->put_DueDate(r.due);
  item->put_Importance(r.importance);
  item->put_Sensitivity(r.is_private ? olPrivate : olNormal);
  if (r.notes) item->put_Body(r.notes->c_str());
  if (r.reminder != kNoDate) {
    // The record keeps the reminder without the reminder difference that every
    // read adds to it.
    item->put_ReminderSet(VARIANT_TRUE);
    item->put_ReminderTime(r.reminder - CurrentSettings().reminder_delta / 24.0);
  }
  if (r.complete) item->put_Complete(VARIANT_TRUE);
}

// Saves the task; the refusal is printed. Returns the new identifier, 0 on failure.
CEOID SaveTask(const AddRequest& r) {
  ITask* item = nullptr;
  if (FAILED(Store().app->CreateItem(olTaskItem, &item)) || !item) return 0;
  FillItem(r, item);
  CEOID oid = 0;
  const HRESULT result = item->Save();
  if (FAILED(result)) {
    const SaveFailureMessage message = DescribeSaveFailure({r.start, r.due, r.reminder, 0, result});
    std::fprintf(stderr, "velmo add: %s: %s\n", ToUtf8(message.caption).c_str(),
                 ToUtf8(message.text).c_str());
  } else {
    item->get_Oid(&oid);
    if (r.categories && FAILED(WriteTaskCategories(item, r.categories->c_str(), false)))
      std::fputs("velmo add: the categories could not be written\n", stderr);
  }
  item->Release();
  return oid;
}

}  // namespace

int RunAdd(int argc, char** argv) {
  AddRequest request;
  if (!ParseArguments(argc, argv, &request)) return 2;
  if (!OpenDeviceStore("add", true)) return 1;
  const CEOID oid = SaveTask(request);
  if (oid != 0) {
    // The re-read that follows every change of the program's own makes the
    // reminder's notification, at the time the user gave.
    Store().pending_reminder_time = request.reminder;
    ReadTask(nullptr, oid, true);
    FreeTaskTable();
    std::printf("%u\n", oid);
  }
  CloseDeviceStore();
  return oid != 0 ? 0 : 1;
}

}  // namespace velmo::cli
