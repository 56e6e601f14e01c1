#include <string>

#include "app/dismiss_dialogs.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_box.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr int kSubject = 101, kNotes = 102, kAsk = 103;

const DLGITEMTEMPLATEW kItems[] = {
    {WC_STATICW, L"Subject:", 0, 0, 1, 0, 10, 1},
    {WC_EDITW, L"", kSubject, WS_TABSTOP, 1, 1, -1, 1},
    {WC_STATICW, L"Notes:", 0, 0, 1, 2, 10, 1},
    {WC_EDITW, L"", kNotes, WS_TABSTOP, 1, 3, -1, 1},
};
const DLGTEMPLATEW kTemplate{L"Edit Task", 0, 0, 0, kItems, 4};

struct Outcome { std::wstring subject; std::wstring notes; int answer = 0; };
Outcome* g_outcome = nullptr;

INT_PTR EditTaskProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetDlgItemTextW(dialog, kSubject, reinterpret_cast<LPCWSTR>(lparam));
      SOFTKEY done{L"Done", IDOK, nullptr};
      SOFTKEY ask{L"Ask", kAsk, nullptr};
      CreateSoftKeyBar(dialog, &done, &ask);
      return TRUE;
    }
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK) {
        g_outcome->subject = TextOf(GetDlgItem(dialog, kSubject));
        g_outcome->notes = TextOf(GetDlgItem(dialog, kNotes));
        EndDialog(dialog, 42);
      } else if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
      } else if (LOWORD(wparam) == kAsk) {
        g_outcome->answer = MessageBoxW(dialog, L"Save?", L"Velmo ToDo List", MB_YESNO);
      }
      return TRUE;
    default:
      return FALSE;
  }
}

class DialogTest : public UiTest {
 protected:
  DialogTest() {
    g_outcome = &outcome_;
    main_ = MakeMain(L"Velmo ToDo List");
  }
  ~DialogTest() override { g_outcome = nullptr; }

  INT_PTR Run() {
    return DialogBoxIndirectParamW(nullptr, &kTemplate, main_, EditTaskProc,
                                   reinterpret_cast<LPARAM>(L"Buy milk"));
  }

  HWND main_;
  Outcome outcome_;
};

TEST_F(DialogTest, ModalDialogRunsItsOwnLoopAndReturnsItsResult) {
  screen_.AddIdleStep([&] {
    EXPECT_FALSE(IsWindowEnabled(main_)) << "the owner waits";
    EXPECT_EQ(screen_.Row(0).substr(0, 10), L" Edit Task");
    EXPECT_TRUE(screen_.Contains(L"Subject:"));
    EXPECT_TRUE(screen_.Contains(L"Buy milk"));
    EXPECT_EQ(screen_.Row(screen_.height() - 1).substr(0, 5), L" Done");
    screen_.TypeText(L"s");
    screen_.TypeKey(VK_DOWN);
    screen_.TypeText(L"2 litres");
    screen_.TypeKey(VK_UP);
    screen_.TypeBackspace();
    screen_.TypeKey(VK_RETURN);
  });
  EXPECT_EQ(Run(), 42);
  EXPECT_EQ(outcome_.subject, L"Buy milk");
  EXPECT_EQ(outcome_.notes, L"2 litres");
  EXPECT_TRUE(IsWindowEnabled(main_));
  EXPECT_EQ(GetActiveWindow(), main_);
  EXPECT_EQ(GetWindow(main_, GW_HWNDFIRST), main_) << "the dialog and its bar are gone";
  Pump();
  EXPECT_EQ(screen_.Row(0).substr(0, 16), L" Velmo ToDo List");
  EXPECT_FALSE(screen_.stalled());
}

TEST_F(DialogTest, KeysThatEndTheDialog) {
  struct Case { UINT vk; INT_PTR result; };
  const Case cases[] = {{VK_ESCAPE, IDCANCEL}, {VK_TSOFT1, 42}, {VK_RETURN, 42}};
  for (const Case& c : cases) {
    screen_.TypeKey(c.vk);
    EXPECT_EQ(Run(), c.result) << c.vk;
  }
  screen_.TypeBackspace();  // in a text field: deletes, does not leave
  screen_.TypeKey(VK_RETURN);
  EXPECT_EQ(Run(), 42);
  EXPECT_EQ(outcome_.subject, L"Buy mil");
}

TEST_F(DialogTest, QuitDuringADialogEndsItAndReachesTheOuterLoop) {
  screen_.AddIdleStep([] { PostQuitMessage(3); });
  EXPECT_EQ(Run(), IDCANCEL);
  MSG msg;
  EXPECT_FALSE(GetMessageW(&msg, nullptr, 0, 0));
  EXPECT_EQ(msg.wParam, 3u);
}

TEST_F(DialogTest, CancelAlongTheOwnerChainClosesNestedDialogs) {
  screen_.AddIdleStep([&] { screen_.TypeKey(VK_TSOFT2); });  // "Ask" opens a message box
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Save?"));
    app::DismissOpenDialogs(main_);  // what a second start does to the first's dialogs
    PostMessageW(main_, WM_NULL, 0, 0);
  });
  EXPECT_EQ(Run(), IDCANCEL);
  EXPECT_EQ(outcome_.answer, IDNO) << "a cancelled Yes/No box answers No";
  EXPECT_TRUE(IsWindowEnabled(main_));
  EXPECT_FALSE(screen_.stalled());
}

TEST_F(DialogTest, BadTemplateIsRefused) {
  const DLGITEMTEMPLATEW bad[] = {{L"NoSuchControl", L"", 1, 0, 0, 0, 1, 1}};
  const DLGTEMPLATEW tmpl{L"Bad", 0, 0, 0, bad, 1};
  EXPECT_EQ(DialogBoxIndirectParamW(nullptr, &tmpl, main_, EditTaskProc, 0), -1);
  EXPECT_EQ(DialogBoxIndirectParamW(nullptr, nullptr, main_, EditTaskProc, 0), -1);
  EXPECT_TRUE(IsWindowEnabled(main_));
  EXPECT_EQ(GetActiveWindow(), main_);
}

}  // namespace
}  // namespace velmo::testing
