#include "cli/list_view_args.h"

#include "cli/task_dates.h"
#include "list/view_ids.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

struct ViewName {
  const char* name;
  UINT view;
};
constexpr ViewName kViewNames[] = {
    {"all", kViewAllTasks}, {"overdue", kViewOverdue}, {"active", kViewActive},
    {"completed", kViewCompleted}, {"today", kViewToday}, {"next", kViewNextDays},
    {"future", kViewFuture}, {"undated", kViewUndated}, {"search", kViewSearch},
};

// "YYYY-MM-DD" (midnight) or "YYYY-MM-DDTHH:MM"; false for anything else.
bool ParseMoment(std::string_view text, DATE* out) {
  std::optional<DATE> date = ParseDate(text, false);
  if (!date) date = ParseDate(text, true);
  if (date) *out = *date;
  return date.has_value();
}

}  // namespace

UINT ViewFromName(std::string_view name) {
  for (const ViewName& v : kViewNames)
    if (name == v.name) return v.view;
  return 0;
}

bool ParseListViewArgs(int argc, char** argv, ListViewArgs* args, std::string* error) {
  *args = ListViewArgs{};
  args->at = kNoDate;
  if (argc < 1 || (args->view = ViewFromName(argv[0])) == 0) {
    *error = argc < 1 ? "a view is needed" : std::string("unknown view '") + argv[0] + "'";
    return false;
  }
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (i + 1 >= argc) {
      *error = "'" + std::string(option) + "' needs a value";
      return false;
    }
    const char* value = argv[++i];
    if (option == "--filter") {
      args->filter = FromUtf8(value);
    } else if (option == "--search") {
      args->search = FromUtf8(value);
    } else if (option == "--at") {
      if (!ParseMoment(value, &args->at)) {
        *error = std::string("bad date '") + value + "' (YYYY-MM-DD or YYYY-MM-DDTHH:MM)";
        return false;
      }
    } else {
      *error = "unknown option '" + std::string(option) + "'";
      return false;
    }
  }
  if (args->search && args->view != kViewSearch) {
    *error = "--search goes with the search view";
    return false;
  }
  return true;
}

}  // namespace velmo::cli
