// The "Call History" insert: each CallInsertMode's text, names found in the
// address book, and the dialog met from the task editor and the quick-entry
// box over a real records.db (greyed without one, newest call first, Enter
// inserts, Cancel does not).
#include <gtest/gtest.h>

#include <functional>

#include "editor/call_history_dialog.h"
#include "editor/editor_dialog.h"
#include "editor/task_editor.h"
#include "platform/ui/edit.h"
#include "platform/ui/menu.h"
#include "platform/ui/virtual_keys.h"
#include "res/dialogs_editor.h"
#include "tests/app/main_window_fixture.h"
#include "tests/platform/call_records.h"

namespace velmo::testing {
namespace {

CallRecord Call(const wchar_t* number, CallKind kind) {
  CallRecord r;
  r.number = number;
  r.kind = kind;
  r.start = SYSTEMTIME{2026, 11, 0, 21, 18, 30, 5, 0};
  return r;
}

TEST(CallInsert, EachModeTakesItsParts) {
  const CallEntry named{Call(L"+49 151 23456789", CallKind::kMissed), L"Anna Berg"};
  const CallEntry unnamed{Call(L"112", CallKind::kOutgoing), L""};
  const std::wstring when = CallTimeText(named.record);
  ASSERT_NE(when.find(L"21"), std::wstring::npos) << when;
  struct Case { const CallEntry* call; DWORD mode; std::wstring text; };
  const Case cases[] = {
      {&named, kCallNameAndNumber, L"Anna Berg +49 151 23456789"},
      {&named, kCallName, L"Anna Berg"},
      {&named, kCallNumber, L"+49 151 23456789"},
      {&named, kCallNameAndTime, L"Anna Berg " + when},
      {&named, kCallNumberAndTime, L"+49 151 23456789 " + when},
      {&named, kCallEverything, L"Missed call Anna Berg +49 151 23456789 " + when},
      {&named, 99, L"Missed call Anna Berg +49 151 23456789 " + when},
      {&unnamed, kCallNameAndNumber, L"112"},  // the number once, standing for the name
      {&unnamed, kCallEverything, L"Outgoing call 112 " + when},
  };
  for (const Case& c : cases) EXPECT_EQ(CallInsertText(*c.call, c.mode), c.text) << c.mode;
}

TEST(CallInsert, NamesComeFromTheAddressBookByTheirDigits) {
  const std::vector<Contact> contacts = {
      {L"Anna Berg", {{PhoneKind::kWork, L"030 1111111"}, {PhoneKind::kMobile, L"+49 (151) 234-56789"}}},
      {L"Emergency", {{PhoneKind::kOther, L"112"}}},
  };
  struct Case { const wchar_t* number; const wchar_t* name; };
  const Case cases[] = {
      {L"015123456789", L"Anna Berg"},   // the same number without its country code
      {L"+4930 1111111", L"Anna Berg"},
      {L"1111111", L""},                 // seven digits: only an exact match counts
      {L"0301111111", L"Anna Berg"},
      {L"112", L"Emergency"},
      {L"1120", L""},
      {L"sip:bob@example.org", L""},
  };
  std::vector<CallRecord> calls;
  for (const Case& c : cases) calls.push_back(Call(c.number, CallKind::kIncoming));
  const std::vector<CallEntry> named = NameCalls(calls, contacts);
  ASSERT_EQ(named.size(), std::size(cases));
  for (size_t i = 0; i < named.size(); ++i) EXPECT_EQ(named[i].name, cases[i].name) << cases[i].number;
}

class CallHistoryDialogTest : public StartedMainWindowTest {
 protected:
  void Then(std::function<void(HWND)> step) {
    screen_.AddIdleStep([step] { step(GetActiveWindow()); });
  }
  void Key(UINT vk) {
    screen_.AddIdleStep([this, vk] { screen_.TypeKey(vk); });
  }
  static std::wstring Text(HWND window, int id) {
    wchar_t text[256] = {};
    GetDlgItemTextW(window, id, text, 256);
    return text;
  }
  // The editor on a new task: `steps` run in it, then it is cancelled.
  void InEditor(const std::function<void()>& steps) {
    steps();
    Key(VK_ESCAPE);
    RunTaskEditor(window_, 0);
  }
  PhoneEnvironment phone_{root()};
};

TEST_F(CallHistoryDialogTest, GreyedWithoutCallsThenEnterInsertsTheChosenCancelNothing) {
  UINT greyed = 0;
  std::wstring untouched = L"?";
  InEditor([&] {
    Then([&](HWND e) { greyed = GetMenuState(editor::DialogState(e)->menu, 40092, MF_BYCOMMAND); });
    Key(VK_TTALK);
    Then([&](HWND e) { untouched = Text(e, res::editor_id::kSubject); });
  });
  EXPECT_TRUE(greyed & MF_GRAYED);
  EXPECT_EQ(untouched, L"");

  phone_.WriteRecords(kFourCalls);
  CurrentSettings().call_insert_mode = kCallNumber;
  UINT state = MF_GRAYED;
  std::wstring listed, chosen, cancelled;
  InEditor([&] {
    Then([&](HWND e) { state = GetMenuState(editor::DialogState(e)->menu, 40092, MF_BYCOMMAND); });
    Key(VK_TTALK);
    Then([&](HWND) { listed = screen_.Text(); });
    Key(VK_DOWN);
    Key(VK_RETURN);  // the second newest call
    Then([&](HWND e) { chosen = Text(e, res::editor_id::kSubject); });
    Key(VK_TTALK);
    Key(VK_ESCAPE);
    Then([&](HWND e) { cancelled = Text(e, res::editor_id::kSubject); });
  });
  EXPECT_FALSE(state & MF_GRAYED);
  const size_t newest = listed.find(L"112"), older = listed.find(L"0301234567"),
               oldest = listed.find(L"0170999");
  ASSERT_NE(oldest, std::wstring::npos) << listed;
  EXPECT_TRUE(newest < older && older < oldest) << listed;
  EXPECT_NE(listed.find(L"Missed call"), std::wstring::npos) << listed;
  EXPECT_EQ(chosen, L"0301234567");
  EXPECT_EQ(cancelled, L"0301234567");
}

TEST_F(CallHistoryDialogTest, TalkKeyInTheQuickEntryBoxInsertsThere) {
  phone_.WriteRecords(kFourCalls);
  CurrentSettings().call_insert_mode = kCallNameAndNumber;
  HWND box = app::MainWindow().entry;
  ASSERT_NE(box, nullptr);
  SetFocus(box);
  Pump();
  Type(L"call ");
  Key(VK_RETURN);  // the newest
  Press(VK_TTALK);
  wchar_t text[128] = {};
  GetWindowTextW(box, text, 128);
  EXPECT_EQ(std::wstring(text), L"call 112");
}

}  // namespace
}  // namespace velmo::testing
