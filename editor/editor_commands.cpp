// The task editor's commands: its menu, its soft keys and the keys it takes.
#include <algorithm>

#include "app/delete_commands.h"
#include "categories/dialog/categories_dialog.h"
#include "editor/call_history_dialog.h"
#include "editor/contact_insert.h"
#include "editor/date_commands.h"
#include "editor/editor_dialog.h"
#include "editor/editor_title.h"
#include "editor/insert_text.h"
#include "editor/notes_editor.h"
#include "editor/recurrence_choices.h"
#include "editor/recurrence_dialog.h"
#include "platform/clock.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/menu.h"
#include "platform/ui/month_calendar.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/spinner.h"
#include "platform/ui/window.h"
#include "res/command_ids.h"
#include "res/dialogs_editor.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/contacts_db.h"

namespace velmo::editor {
namespace {

using namespace res::editor_id;

constexpr UINT kCmdDone = 40023;
constexpr UINT kCmdCancel = 40022;

using Handler = void (*)(EditorDialog* d, UINT command);

void Insert(EditorDialog* d, const std::wstring& text) {
  if (FocusKindOf(d->focus_id) != EditorFocus::kText && FocusKindOf(d->focus_id) != EditorFocus::kNotes) return;
  if (text.empty()) return;
  SendDlgItemMessageW(d->dialog, d->focus_id, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Done(EditorDialog* d, UINT) {
  if (CommitFromEditor(d)) EndDialog(d->dialog, kCmdDone);
}

void Cancel(EditorDialog* d, UINT command) { EndDialog(d->dialog, command); }

void DeleteThisTask(EditorDialog* d, UINT) {
  if (!d->fields.is_new() && app::DeleteTask(d->fields.oid)) EndDialog(d->dialog, 0);
}

void PickDate(EditorDialog* d, DateFieldKind kind) {
  const DateField& field = FieldOf(d->fields, kind);
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(field.empty() ? field.fallback : field.value, &st)) GetLocalTime(&st);
  const std::wstring title = res::Text(FieldNameId(ControlOfDateField(kind)));
  if (!PickDateInCalendar(d->dialog, title.c_str(), &st)) return;
  DATE picked = kNoDate;
  if (!SystemTimeToVariantTime(&st, &picked)) return;
  OnDateChanged(d, ControlOfDateField(kind), picked);
  if (!d->compact) ShowTitle(d, SubjectTitle(d->fields.subject, false));
}

void DateCommand(EditorDialog* d, UINT command) {
  const auto kind = DateFieldOf(d->focus_id);
  if (!kind) return;
  if (command == kCmdDatePicker) {
    PickDate(d, *kind);
    return;
  }
  const DATE date = DateForCommand(command, *kind, d->fields, NowAsDate());
  if (date != kNoDate) OnDateChanged(d, d->focus_id, date);
}

void InsertCommand(EditorDialog* d, UINT command) {
  ReadTextFields(d);
  Insert(d, InsertText(command, d->fields, NowAsDate()));
}

// "My Text": the stored phrases in a menu; the one chosen goes in at the caret.
void InsertMyText(EditorDialog* d, UINT) {
  const std::vector<std::wstring> texts = MyTexts(CurrentSettings());
  if (texts.empty()) return;
  HMENU menu = CreatePopupMenu();
  for (size_t i = 0; i < texts.size(); ++i) AppendMenuW(menu, MF_STRING, i + 1, texts[i].c_str());
  RECT rc{};
  GetWindowRect(d->dialog, &rc);
  const UINT chosen = static_cast<UINT>(
      TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_BOTTOMALIGN, rc.left, rc.bottom, d->dialog, nullptr));
  DestroyMenu(menu);
  if (chosen >= 1 && chosen <= texts.size()) Insert(d, texts[chosen - 1]);
}

// "Contact": the address book's names in a menu; the one chosen goes in at the
// caret as "ContactInsertMode" says.
void InsertContact(EditorDialog* d, UINT) {
  std::vector<Contact> contacts = ReadContacts();
  if (contacts.empty()) return;
  std::stable_sort(contacts.begin(), contacts.end(),
                   [](const Contact& a, const Contact& b) { return a.name < b.name; });
  if (contacts.size() > kMaxContactsOffered) contacts.resize(kMaxContactsOffered);
  HMENU menu = CreatePopupMenu();
  for (size_t i = 0; i < contacts.size(); ++i) AppendMenuW(menu, MF_STRING, i + 1, contacts[i].name.c_str());
  RECT rc{};
  GetWindowRect(d->dialog, &rc);
  const UINT chosen = static_cast<UINT>(
      TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_BOTTOMALIGN, rc.left, rc.bottom, d->dialog, nullptr));
  DestroyMenu(menu);
  if (chosen >= 1 && chosen <= contacts.size())
    Insert(d, ContactInsertText(contacts[chosen - 1], CurrentSettings().contact_insert_mode));
}

// "Call History": the phone's calls in a list; the one chosen goes in at the
// caret as "CallInsertMode" says.
void InsertCall(EditorDialog* d, UINT) {
  const EditorFocus focus = FocusKindOf(d->focus_id);
  if (!d->has_calls || (focus != EditorFocus::kText && focus != EditorFocus::kNotes)) return;
  const int field = d->focus_id;
  const std::wstring text = PickCallText(d->dialog);
  SetFocus(GetDlgItem(d->dialog, field));
  Insert(d, text);
}

void NotesFullScreen(EditorDialog* d) {
  ReadTextFields(d);
  std::wstring notes = d->fields.notes;
  const std::wstring title = res::Text(FieldNameId(kNotes));
  if (!EditNotesFullScreen(d->dialog, title.c_str(), &notes) || notes == d->fields.notes) return;
  d->fields.notes = notes;
  SetDlgItemTextW(d->dialog, kNotes, notes.c_str());
  OnControlNotified(d, kNotes, EN_CHANGE);
}

void CustomPattern(EditorDialog* d) {
  if (!d->fields.recurrence_enabled) return;
  const DATE base = OccursBaseDate(d->fields, NowAsDate());
  RecurrencePattern pattern = d->fields.pattern.value_or(RecurrencePattern{});
  if (!EditRecurrencePattern(d->dialog, base, &pattern)) return;
  d->fields.pattern = pattern;
  SelectOccursChoice(&d->fields.occurs, kCustomPattern);
  d->fields.no_end = pattern.NoEndDate != FALSE;
  d->fields.recurrence_end.value = d->fields.no_end ? kNoDate : pattern.PatternEndDate;
  LeaveOccursList(&d->fields, kCustomPattern, RuleContext());
  ShowDateFields(d);
  ShowOccurs(d);
}

// The Categories dialog over the task's categories; a new choice is shown.
void ChooseTaskCategories(EditorDialog* d) {
  if (!ChooseCategories(d->dialog, CategoriesOpener::kTaskEditor, &d->fields.categories)) return;
  HWND field = GetDlgItem(d->dialog, kCategories);
  SendMessageW(field, LB_RESETCONTENT, 0, 0);
  SendMessageW(field, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(d->fields.categories.c_str()));
  SendMessageW(field, LB_SETCURSEL, 0, 0);
}

// The action key opens what the focused field has behind it.
void ActionKey(EditorDialog* d, UINT) {
  if (d->focus_id == kCategories) {
    ChooseTaskCategories(d);
  } else if (DateFieldOf(d->focus_id)) {
    DateCommand(d, kCmdDatePicker);
  } else if (d->focus_id == kNotes) {
    NotesFullScreen(d);
  } else if (d->focus_id == kOccurs) {
    CustomPattern(d);
  }
}

struct CommandRange {
  UINT first;
  UINT last;
  Handler run;
};

constexpr CommandRange kCommands[] = {
    {IDOK, IDOK, ActionKey},
    {IDCANCEL, IDCANCEL, Cancel},
    {kCmdDone, kCmdDone, Done},
    {kCmdCancel, kCmdCancel, Cancel},
    {cmd::kDelete, cmd::kDelete, DeleteThisTask},
    {kCmdYesterday, kCmdDatePicker, DateCommand},
    {kCmdMyText, kCmdMyText, InsertMyText},
    {kCmdContact, kCmdContact, InsertContact},
    {kCmdCallHistory, kCmdCallHistory, InsertCall},
    {kCmdInsertTime, kCmdLongDateLast, InsertCommand},
    {kCmdTab, kCmdTab, InsertCommand},
};

}  // namespace

bool RunEditorCommand(EditorDialog* d, UINT command) {
  for (const CommandRange& range : kCommands) {
    if (command < range.first || command > range.last) continue;
    range.run(d, command);
    if (IsWindow(d->dialog)) UpdateMenuState(d);
    return true;
  }
  return false;
}

}  // namespace velmo::editor
