#include "cli/task_options.h"

#include "cli/device_store.h"

#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "cli/task_dates.h"
#include "editor/commit.h"
#include "platform/wstr.h"
#include "res/strings.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo::cli {

const char* const kTaskOptionsUsage =
    "  [--subject TEXT] [--start DATE|none] [--due DATE|none] [--reminder DATE-TIME|none]\n"
    "  [--recurs CHOICE] [--until DATE|none] [--priority low|normal|high]\n"
    "  [--categories TEXT] [--notes TEXT] [--private|--normal] [--team|--no-team]\n"
    "  [--complete|--incomplete] [--yes]\n"
    "DATE is YYYY-MM-DD, DATE-TIME YYYY-MM-DDTHH:MM. CHOICE, over the start date (else\n"
    "the due date, else today): once, daily, weekly, biweekly, 3weeks, 4weeks,\n"
    "monthly-nth, monthly, 2months, 3months, 4months, 6months, yearly.\n"
    "--yes saves a reminder in the past as a task without a reminder.\n";

namespace {

// Indexed by the "Occurs" choice.
constexpr const char* kRecurrenceNames[] = {
    "once",    "daily",   "weekly",  "biweekly", "3weeks",  "4weeks", "monthly-nth",
    "monthly", "2months", "3months", "4months",  "6months", "yearly",
};

constexpr const char* kPriorityNames[] = {"low", "normal", "high"};  // the Priority list

struct Parsed {
  EditorValues* v;
  bool* yes;
};

// Sets a date field; "none" empties it.
bool DateValue(const char* text, bool with_time, DATE* out) {
  if (std::strcmp(text, "none") == 0) {
    *out = kNoDate;
    return true;
  }
  const auto date = ParseDate(text, with_time);
  if (date) *out = *date;
  return date.has_value();
}

void SetPrivate(EditorValues* v, bool is_private) {
  v->private_checked = is_private;  // the compact layout's box
  v->sensitivity_index = is_private ? 1 : 0;  // the full layout's list
}

struct Option {
  const char* name;
  bool takes_value;
  bool (*apply)(const char* value, Parsed p);
};

constexpr Option kOptions[] = {
    {"--subject", true, [](const char* s, Parsed p) { return (p.v->subject = FromUtf8(s)), true; }},
    {"--start", true, [](const char* s, Parsed p) { return DateValue(s, false, &p.v->start); }},
    {"--due", true, [](const char* s, Parsed p) { return DateValue(s, false, &p.v->due); }},
    {"--reminder", true, [](const char* s, Parsed p) { return DateValue(s, true, &p.v->reminder); }},
    {"--until", true, [](const char* s, Parsed p) { return DateValue(s, false, &p.v->recurrence_end); }},
    {"--recurs", true,
     [](const char* s, Parsed p) {
       const int choice = RecurrenceChoiceOfName(s);
       if (choice >= 0) p.v->occurs_choice = choice;
       return choice >= 0;
     }},
    {"--priority", true,
     [](const char* s, Parsed p) {
       for (int i = 0; i < 3; ++i)
         if (std::strcmp(s, kPriorityNames[i]) == 0) return (p.v->priority_index = i), true;
       return false;
     }},
    {"--categories", true, [](const char* s, Parsed p) { return (p.v->categories = FromUtf8(s)), true; }},
    {"--notes", true, [](const char* s, Parsed p) { return (p.v->notes = FromUtf8(s)), true; }},
    {"--private", false, [](const char*, Parsed p) { return SetPrivate(p.v, true), true; }},
    {"--normal", false, [](const char*, Parsed p) { return SetPrivate(p.v, false), true; }},
    {"--team", false, [](const char*, Parsed p) { return (p.v->team_task = true), true; }},
    {"--no-team", false, [](const char*, Parsed p) { return (p.v->team_task = false), true; }},
    {"--complete", false, [](const char*, Parsed p) { return (p.v->completed = true), true; }},
    {"--incomplete", false, [](const char*, Parsed p) { return (p.v->completed = false), true; }},
    {"--yes", false, [](const char*, Parsed p) { return (*p.yes = true), true; }},
};

const Option* FindOption(std::string_view name) {
  for (const Option& o : kOptions)
    if (name == o.name) return &o;
  return nullptr;
}

// The message's text on one line: its line breaks become spaces.
std::string OneLine(const std::wstring& text) {
  std::string line;
  for (const char c : ToUtf8(text))
    if (c != '\r') line += c == '\n' ? ' ' : c;
  return line;
}

CommitHooks CommandLineHooks(const char* command, bool yes, bool* asked) {
  CommitHooks hooks;
  hooks.confirm_past_reminder = [command, yes, asked] {
    *asked = !yes;
    if (!yes)
      std::fprintf(stderr, "velmo %s: %s\nvelmo %s: not saved; --yes saves it without a reminder\n",
                   command, OneLine(res::Text(kPastReminderQuestion)).c_str(), command);
    return yes;
  };
  hooks.show_failure = [command](const SaveFailureMessage& m) {
    std::fprintf(stderr, "velmo %s: %s: %s\n", command, OneLine(m.caption).c_str(), OneLine(m.text).c_str());
    PrintStoreFailure(command);
  };
  return hooks;
}

// What the main window does with a completion the commit deferred: the
// occurrence is completed and the series moves on.
void CompleteOccurrence(const char* command, CEOID oid) {
  ITask* item = nullptr;
  HRESULT result = Store().app->GetItemFromOid(oid, &item);
  if (SUCCEEDED(result)) {
    item->put_Complete(VARIANT_TRUE);
    result = item->Save();
    item->Release();
  }
  if (FAILED(result))
    std::fprintf(stderr, "velmo %s: the occurrence could not be completed (result 0x%08X)\n", command,
                 static_cast<unsigned>(result));
}

}  // namespace

int RecurrenceChoiceOfName(const char* name) {
  for (int i = 0; i < static_cast<int>(std::size(kRecurrenceNames)); ++i)
    if (std::strcmp(name, kRecurrenceNames[i]) == 0) return i;
  return -1;
}

bool ApplyTaskOptions(const char* command, int argc, char** argv, EditorValues* values, bool* yes) {
  for (int i = 0; i < argc; ++i) {
    const Option* o = FindOption(argv[i]);
    const char* value = o && o->takes_value ? (i + 1 < argc ? argv[i + 1] : nullptr) : "";
    if (!o || !value || !o->apply(value, {values, yes})) {
      std::fprintf(stderr, "velmo %s: %s: %s%s%s\n", command,
                   !o ? "unknown option" : !value ? "missing value" : "bad value", argv[i],
                   value && *value ? " " : "", value ? value : "");
      return false;
    }
    if (o->takes_value) ++i;
  }
  return true;
}

int CommitFromCommandLine(const char* command, CEOID oid, const EditorValues& values, bool yes,
                          CEOID* saved_oid) {
  *saved_oid = 0;
  bool asked = false;
  bool deferred = false;
  CommitHooks hooks = CommandLineHooks(command, yes, &asked);
  hooks.saved = [saved_oid, &deferred](CEOID saved, bool completion_deferred) {
    *saved_oid = saved;
    deferred = completion_deferred;
  };
  const HRESULT result = CommitTaskById(Store().app, oid, values, hooks);
  if (FAILED(result)) {
    if (!asked)
      std::fprintf(stderr, "velmo %s: the task was not saved (result 0x%08X); nothing was written\n",
                   command, static_cast<unsigned>(result));
    return 1;
  }
  if (deferred) CompleteOccurrence(command, *saved_oid);
  // The re-read that follows every change of the program's own makes the
  // reminder's notification.
  ReadTask(nullptr, *saved_oid, true);
  FreeTaskTable();
  return 0;
}

}  // namespace velmo::cli
