// The "My Text" page: the twenty short texts and the four long ones that the
// editor inserts, one at a time: the list above chooses which, the field
// under it edits it.
#include <array>
#include <string>

#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/window.h"
#include "res/dialogs_settings.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;

constexpr int kEntries = kMyTextCount + kLongTextCount;

struct TextsEdit {
  std::array<std::wstring, kEntries> shown;
  std::array<std::wstring, kEntries> working;
  int current = 0;
};

bool IsLong(int entry) { return entry >= kMyTextCount; }
size_t Limit(int entry) { return IsLong(entry) ? kLongTextMaxChars : kMyTextMaxChars; }

std::wstring& Stored(Settings& s, int entry) {
  return IsLong(entry) ? s.long_txt[static_cast<size_t>(entry - kMyTextCount)]
                       : s.txt[static_cast<size_t>(entry)];
}

std::wstring FieldText(HWND page) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(GetDlgItem(page, kMyTextEdit))) + 1, L'\0');
  GetDlgItemTextW(page, kMyTextEdit, text.data(), static_cast<int>(text.size()));
  text.resize(text.size() - 1);
  return text;
}

void ShowEntry(HWND page, TextsEdit& edit, int entry) {
  edit.current = entry;
  SendDlgItemMessageW(page, kMyTextEdit, EM_LIMITTEXT, Limit(entry), 0);
  const std::wstring& text = edit.working[static_cast<size_t>(entry)];
  SetDlgItemTextW(page, kMyTextEdit, text.c_str());
  // Typing goes on at the end of the text.
  SendDlgItemMessageW(page, kMyTextEdit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

void Init(HWND page, PageState& state) {
  auto& edit = *static_cast<TextsEdit*>(state.own);
  for (int i = 0; i < kEntries; ++i) {
    edit.shown[static_cast<size_t>(i)] = Stored(state.before, i).substr(0, Limit(i));
    const bool long_text = IsLong(i);
    const int number = long_text ? i - kMyTextCount + 1 : i + 1;
    AddChoice(page, kMyTextChoice,
              res::FormatId(long_text ? res::kTextLongTextEntry : res::kTextMyTextEntry,
                            {std::to_wstring(number)}));
  }
  edit.working = edit.shown;
  SelectChoice(page, kMyTextChoice, 0);
  ShowEntry(page, edit, 0);
}

bool Changed(HWND page, PageState& state, int id) {
  if (id != kMyTextChoice) return false;
  auto& edit = *static_cast<TextsEdit*>(state.own);
  edit.working[static_cast<size_t>(edit.current)] = FieldText(page);
  ShowEntry(page, edit, SelectedChoice(page, kMyTextChoice));
  return true;
}

void Done(HWND page, PageState& state) {
  auto& edit = *static_cast<TextsEdit*>(state.own);
  edit.working[static_cast<size_t>(edit.current)] = FieldText(page);
  for (int i = 0; i < kEntries; ++i)
    if (edit.working[static_cast<size_t>(i)] != edit.shown[static_cast<size_t>(i)])
      Stored(state.edited, i) = edit.working[static_cast<size_t>(i)];
}

const PageDef kPage{res::kMyTextPage, {}, {Init, Changed, Done}};

}  // namespace

INT_PTR ShowMyTextPage(HWND owner) {
  TextsEdit edit;
  return RunSettingsPage(owner, kPage, &edit);
}

}  // namespace velmo::app
