// Building a row's information pieces from the task and the packed choice.
#include "list/draw_fields.h"

#include <cwchar>

#include "categories/category_icons.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "format/date_text.h"
#include "list/draw_icons.h"
#include "list/view_rules.h"

namespace velmo {
namespace {

constexpr bool IsSet(DATE d) { return d != kNoDate; }

int PriorityIcon(const Task& t) {
  if (t.importance == kImportanceHigh) return kIconHighPriority;
  if (t.importance == kImportanceLow) return kIconLowPriority;
  return -1;
}
int RecurringIcon(const Task& t) { return t.recurring ? kIconRecurring : -1; }
int TeamTaskIcon(const Task& t) { return t.team_task ? kIconTeamTask : -1; }
int ReminderIcon(const Task& t) { return t.reminder_set ? kIconReminder : -1; }
int NotesIcon(const Task& t) { return t.notes_state != kNoNotes ? kIconNotes : -1; }
int PrivateIcon(const Task& t) { return t.sensitivity == kSensitivityPrivate ? kIconPrivate : -1; }
int LinksIcon(const Task& t) {
  bool any = !t.phone_number.empty() || t.web_link_count > 0 || t.mail_link_count > 0;
  return any ? kIconLinks : -1;
}

struct StatusRule {
  DWORD bit;
  int (*icon)(const Task&);
};

// Rightmost first.
constexpr StatusRule kStatusRules[] = {
    {kInfoPriority, PriorityIcon}, {kInfoReminder, ReminderIcon}, {kInfoRecurring, RecurringIcon},
    {kInfoNotes, NotesIcon},       {kInfoTeamTask, TeamTaskIcon}, {kInfoPrivate, PrivateIcon},
    {kInfoLinks, LinksIcon},
};

void AddText(std::vector<RowPiece>& pieces, std::wstring text, RowColour colour, bool joined) {
  RowPiece p;
  p.text = std::move(text);
  p.colour = colour;
  p.joined = joined;
  pieces.push_back(std::move(p));
}

void AddDateFields(std::vector<RowPiece>& pieces, const Task& task, DWORD infos, DATE now,
                   const std::wstring& picture) {
  if (task.complete) {
    if (!(infos & kInfoDateCompleted)) return;
    RowPiece icon;
    icon.kind = RowPiece::Kind::kIcon;
    icon.icon = kIconCompleted;
    pieces.push_back(icon);
    if (IsSet(task.date_completed)) {
      AddText(pieces, format::DateText(task.date_completed, picture), RowColour::kCompleted, true);
    }
    return;
  }
  DATE due = EffectiveDueDate(task), start = task.start_date;
  if ((infos & kInfoRelativeDays) && IsSet(due)) {
    AddText(pieces, RelativeDayText(due, now), DateColour(due, now), false);
  }
  bool range = (infos & kInfoStartDate) && IsSet(start);
  if ((infos & kInfoDueDate) && IsSet(due)) {
    std::wstring text = format::DateText(due, picture);
    if (range) text.insert(0, kDateRangeSeparator);
    AddText(pieces, std::move(text), DateColour(due, now), false);
  }
  if (range) {
    bool joined = (infos & kInfoDueDate) && IsSet(due);
    AddText(pieces, format::DateText(start, picture), DateColour(start, now), joined);
  }
}

// Each category of the task whose icon is in the image list; an empty
// categories text is No Category.
void AddCategoryIcons(std::vector<RowPiece>& pieces, const Task& task) {
  const CategoryList& catalogue = CategoryCatalogue();
  std::wstring_view rest = task.categories;
  bool first = true;
  while (true) {
    size_t comma = rest.find(L',');
    std::wstring_view piece = NormalizeCategoryName(rest.substr(0, comma));
    int index = FindCategory(catalogue, piece);
    const CellIcon* cells =
        index < 0 ? nullptr : CategoryCells(catalogue.entries[static_cast<size_t>(index)]);
    if (cells) {
      RowPiece p;
      p.kind = RowPiece::Kind::kCategoryIcon;
      p.cells = cells;
      p.joined = !first;
      pieces.push_back(p);
      first = false;
    }
    if (comma == std::wstring_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
}

}  // namespace

std::wstring RelativeDayText(DATE due, DATE now) {
  long days = WholeDay(due) - WholeDay(now);
  if (days == 0) return L"=";
  wchar_t buffer[24];
  std::swprintf(buffer, std::size(buffer), days < 0 ? L"%ld" : L"+%ld", days);
  return buffer;
}

std::vector<RowPiece> RowInfoPieces(const Task& task, DWORD infos, DATE now,
                                    const std::wstring& date_picture) {
  std::vector<RowPiece> pieces;
  AddDateFields(pieces, task, infos, now, date_picture);
  bool first_icon = true;
  for (const StatusRule& rule : kStatusRules) {
    int icon = (infos & rule.bit) ? rule.icon(task) : -1;
    if (icon < 0) continue;
    RowPiece p;
    p.kind = RowPiece::Kind::kIcon;
    p.icon = icon;
    p.joined = !first_icon;
    pieces.push_back(p);
    first_icon = false;
  }
  if (infos & kInfoCategoryIcons) AddCategoryIcons(pieces, task);
  return pieces;
}

}  // namespace velmo
