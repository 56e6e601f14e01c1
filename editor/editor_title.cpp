#include "editor/editor_title.h"

#include "res/dialogs_editor.h"
#include "res/strings.h"

namespace velmo {
namespace {

using namespace res::editor_id;

constexpr size_t kTitleChars = 48;
constexpr UINT kTextEditTask = 163, kTextNewTask = 164, kTextNoSubject = 197;

struct FieldName {
  int control;
  UINT name;
};
constexpr FieldName kFieldNames[] = {
    {kSubject, 1072},       {kStart, 1073},      {kDue, 1074},     {kReminder, 1075},
    {kOccurs, 1076},        {kRecurrenceEnd, 1077}, {kOccurrences, 1077}, {kCategories, 1078},
    {kPriority, 1079},      {kCompleted, 1080},  {kPrivate, 1081}, {kSensitivity, 1081},
    {kNotes, 1082},         {kTeamTask, 1083},
};

}  // namespace

std::wstring SubjectTitle(const std::wstring& subject, bool compact) {
  if (subject.empty()) return res::Text(compact ? FieldNameId(kSubject) : kTextNoSubject);
  return subject.substr(0, kTitleChars);
}

UINT FieldNameId(int control_id) {
  for (const FieldName& f : kFieldNames)
    if (f.control == control_id) return f.name;
  return 0;
}

std::wstring OpeningTitle(bool is_new, bool compact) {
  if (is_new && compact) return res::Text(FieldNameId(kSubject));
  return res::Text(is_new ? kTextNewTask : kTextEditTask);
}

}  // namespace velmo
