// The task editor's fields shown in its controls, and the layout.
#include <string>

#include "editor/editor_dialog.h"
#include "editor/recurrence_choices.h"
#include "format/current_pictures.h"
#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "platform/ui/spinner.h"
#include "platform/ui/window.h"
#include "res/dialogs_editor.h"
#include "res/strings.h"

namespace velmo::editor {
namespace {

using namespace res::editor_id;

constexpr int kSubjectMaxChars = 255;
constexpr UINT kPriorityTexts[] = {160, 161, 162};   // Low, Normal, High
constexpr UINT kSensitivityTexts[] = {156, 158};     // Normal, Private
constexpr int kNotesTopCompact = 7;  // the rows of the layouts' tables
constexpr int kNotesTopFull = 20;

LRESULT Send(EditorDialog* d, int id, UINT msg, WPARAM w = 0, LPARAM l = 0) {
  return SendDlgItemMessageW(d->dialog, id, msg, w, l);
}

void FillList(EditorDialog* d, int id, std::initializer_list<std::wstring> texts, int selection) {
  Send(d, id, LB_RESETCONTENT);
  for (const std::wstring& t : texts) Send(d, id, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(t.c_str()));
  Send(d, id, LB_SETCURSEL, static_cast<WPARAM>(selection));
}

void SetPicture(EditorDialog* d, int id, const std::wstring& picture) {
  Send(d, id, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(picture.c_str()));
}

void ShowDate(EditorDialog* d, int id, const DateField& field) {
  SYSTEMTIME st{};
  const DATE shown = field.empty() ? field.fallback : field.value;
  if (shown != kNoDate && VariantTimeToSystemTime(shown, &st))
    Send(d, id, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&st));
  if (field.empty()) Send(d, id, DTM_SETSYSTEMTIME, GDT_NONE, 0);
  EnableWindow(GetDlgItem(d->dialog, id), field.enabled);
}

void Check(EditorDialog* d, int id, bool on) { Send(d, id, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED); }

// Compact: the end of recurrence is hidden while the task does not recur.
void ShowEndControls(EditorDialog* d) {
  const bool on = d->fields.end_enabled;
  for (int id : {kRecurrenceEnd, kOccurrences, kOccurrencesUpDown}) {
    HWND control = GetDlgItem(d->dialog, id);
    EnableWindow(control, on);
    if (d->compact) ShowWindow(control, on ? SW_SHOW : SW_HIDE);
  }
}

}  // namespace

void SetUpControls(EditorDialog* d) {
  const format::DatePictures& p = format::Pictures();
  const std::wstring date = d->compact ? p.short_date : p.weekday_date;
  SetPicture(d, kStart, date);
  SetPicture(d, kDue, date);
  SetPicture(d, kRecurrenceEnd, p.short_date);
  SetPicture(d, kReminder, p.short_date + L" " + p.time);
  Send(d, kSubject, EM_LIMITTEXT, kSubjectMaxChars);
  // Notes have no length of their own: a synchronised note can be far past
  // the edit control's default of 30,000 characters and must still take typing.
  Send(d, kNotes, EM_LIMITTEXT, 0);
}

void ShowAllFields(EditorDialog* d) {
  d->showing = true;
  const EditorFields& f = d->fields;
  SetDlgItemTextW(d->dialog, kSubject, f.subject.c_str());
  Send(d, kSubject, EM_SETSEL, f.subject.size(), static_cast<LPARAM>(f.subject.size()));
  FillList(d, kPriority, {res::Text(kPriorityTexts[0]), res::Text(kPriorityTexts[1]), res::Text(kPriorityTexts[2])},
           f.priority_index);
  if (!d->compact)
    FillList(d, kSensitivity, {res::Text(kSensitivityTexts[0]), res::Text(kSensitivityTexts[1])},
             f.sensitivity_index);
  Check(d, kPrivate, f.private_checked);
  Check(d, kTeamTask, f.team_task);
  Check(d, kCompleted, f.completed);
  FillList(d, kCategories, {f.categories}, 0);
  SetDlgItemTextW(d->dialog, kNotes, f.notes.c_str());
  d->showing = false;
  ShowDateFields(d);
  ShowOccurs(d);
}

void ShowDateFields(EditorDialog* d) {
  d->showing = true;
  ShowDate(d, kStart, d->fields.start);
  ShowDate(d, kDue, d->fields.due);
  ShowDate(d, kReminder, d->fields.reminder);
  d->showing = false;
  ShowRecurrenceEnd(d);
}

void ShowOccurs(EditorDialog* d) {
  d->showing = true;
  const OccursList& list = d->fields.occurs;
  Send(d, kOccurs, LB_RESETCONTENT);
  for (const std::wstring& entry : list.entries)
    Send(d, kOccurs, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
  Send(d, kOccurs, LB_SETCURSEL, static_cast<WPARAM>(list.selection));
  for (int id : {kOccurs, kOccursUpDown}) EnableWindow(GetDlgItem(d->dialog, id), d->fields.recurrence_enabled);
  d->showing = false;
  ShowRecurrenceEnd(d);
}

void ShowRecurrenceEnd(EditorDialog* d) {
  d->showing = true;
  ShowDate(d, kRecurrenceEnd, d->fields.recurrence_end);
  SetDlgItemTextW(d->dialog, kOccurrences, d->fields.occurrences_text.c_str());
  ShowEndControls(d);
  d->showing = false;
}

void ShowTitle(EditorDialog* d, const std::wstring& title) { SetWindowTextW(d->dialog, title.c_str()); }

// The notes of the compact layout fill the dialog under the separator.
void LayOut(EditorDialog* d) {
  RECT client{};
  GetClientRect(d->dialog, &client);
  const int top = d->compact ? kNotesTopCompact : kNotesTopFull;
  if (d->compact) MoveWindow(GetDlgItem(d->dialog, kSeparator), 0, top - 1, client.right, 1, TRUE);
  const int height = client.bottom - top;
  MoveWindow(GetDlgItem(d->dialog, kNotes), 0, top, client.right, height > 1 ? height : 1, TRUE);
}

void ReadTextFields(EditorDialog* d) {
  auto text_of = [&](int id) {
    HWND control = GetDlgItem(d->dialog, id);
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
  };
  d->fields.subject = text_of(kSubject);
  d->fields.notes = text_of(kNotes);
}

}  // namespace velmo::editor
