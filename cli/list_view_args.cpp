#include "cli/list_view_args.h"

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

// Whether `text` has the shape of `pattern`, 'd' standing for a digit.
bool Shaped(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) return false;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (pattern[i] == 'd' ? !digit : text[i] != pattern[i]) return false;
  }
  return true;
}

int Number(std::string_view text, size_t at, size_t digits) {
  int n = 0;
  for (size_t i = at; i < at + digits; ++i) n = n * 10 + (text[i] - '0');
  return n;
}

// "YYYY-MM-DD" (midnight) or "YYYY-MM-DDTHH:MM"; false for anything else.
bool ParseMoment(std::string_view text, DATE* out) {
  const bool with_time = Shaped(text, "dddd-dd-ddTdd:dd");
  if (!with_time && !Shaped(text, "dddd-dd-dd")) return false;
  SYSTEMTIME st{static_cast<WORD>(Number(text, 0, 4)), static_cast<WORD>(Number(text, 5, 2)), 0,
                static_cast<WORD>(Number(text, 8, 2)),
                static_cast<WORD>(with_time ? Number(text, 11, 2) : 0),
                static_cast<WORD>(with_time ? Number(text, 14, 2) : 0), 0, 0};
  return SystemTimeToVariantTime(&st, out) != FALSE;
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
