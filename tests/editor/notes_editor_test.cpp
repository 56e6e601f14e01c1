#include "editor/notes_editor.h"

#include <string>

#include "editor/notes_find.h"
#include "platform/beep.h"
#include "platform/ui/edit.h"
#include "platform/ui/virtual_keys.h"
#include "res/menus_notes.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

TEST(NotesFindTest, FindsWithoutRegardToCaseFromAPlaceAndRoundToTheStart) {
  const std::wstring text = L"Milk, bread; MILK again. Straße";
  struct Case {
    const wchar_t* what;
    size_t from;
    size_t found;
  } const cases[] = {
      {L"milk", 0, 0},          {L"milk", 1, 13},
      {L"milk", 14, 0},         // round to the start
      {L"STRASSE", 0, std::wstring::npos},  // one character for one: no "ss" for "ß"
      {L"straße", 0, 25},       {L"STRAßE", 0, 25},
      {L"cheese", 0, std::wstring::npos},
      {L"", 0, std::wstring::npos},
      {L"again. Straße and more", 0, std::wstring::npos},  // longer than what is left
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FindNoCase(text, c.what, c.from), c.found) << c.what << " from " << c.from;
  }
}

class NotesEditorTest : public UiTest {
 protected:
  NotesEditorTest() : UiTest(30, 16) { main_ = MakeMain(L"Velmo ToDo List"); }

  // The editor's field and dialog, while it is open.
  static HWND Field() { return GetFocus(); }
  static HWND Dialog() { return GetParent(GetFocus()); }
  static void Command(UINT id) { PostMessageW(Dialog(), WM_COMMAND, id, 0); }
  static std::pair<DWORD, DWORD> Selection() {
    DWORD from = 0, to = 0;
    SendMessageW(Field(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                 reinterpret_cast<LPARAM>(&to));
    return {from, to};
  }

  bool Run(std::wstring* notes) { return EditNotesFullScreen(main_, L"Notes", notes); }

  HWND main_;
};

TEST_F(NotesEditorTest, FindSelectsEachMatchInTurnAndBeepsWhenThereIsNone) {
  std::wstring notes = L"Buy milk\r\nand bread\r\nMILK for the cat";
  std::vector<std::pair<DWORD, DWORD>> selections;
  unsigned beeps = 0;
  const auto note_selection = [&] { selections.push_back(Selection()); };
  screen_.AddIdleStep([&] { Command(res::kNotesFind); });
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Find what:"));
    screen_.TypeText(L"Milk");
    screen_.TypeKey(VK_RETURN, L'\r');
  });
  screen_.AddIdleStep([&] {
    note_selection();
    Command(res::kNotesFindNext);
  });
  screen_.AddIdleStep([&] {
    note_selection();
    Command(res::kNotesFindNext);  // round to the first again
  });
  screen_.AddIdleStep([&] {
    note_selection();
    beeps = platform::BeepCount();
    Command(res::kNotesFind);
  });
  screen_.AddIdleStep([&] {
    screen_.TypeText(L"cheese");  // replaces the selected "Milk"
    screen_.TypeKey(VK_RETURN, L'\r');
  });
  screen_.AddIdleStep([&] {
    note_selection();
    EXPECT_EQ(platform::BeepCount(), beeps + 1);
    screen_.TypeKey(VK_TSOFT1);  // Done
  });
  EXPECT_TRUE(Run(&notes));
  const std::vector<std::pair<DWORD, DWORD>> expected = {{4, 8}, {21, 25}, {4, 8}, {4, 8}};
  EXPECT_EQ(selections, expected);
  EXPECT_FALSE(screen_.stalled());
}

TEST_F(NotesEditorTest, DoneAndBackKeepTheTypingAndCancelDropsIt) {
  struct Case {
    const wchar_t* name;
    UINT key;       // the soft key or back key, or 0 for the menu's Cancel
    bool result;
    const wchar_t* notes;
  } const cases[] = {
      {L"done", VK_TSOFT1, true, L"Buy milk\r\nsoon"},
      {L"back", VK_ESCAPE, true, L"Buy milk\r\nsoon"},
      {L"cancel", 0, false, L"Buy milk"},
  };
  for (const Case& c : cases) {
    std::wstring notes = L"Buy milk";
    screen_.AddIdleStep([&] {
      SendMessageW(Field(), EM_SETSEL, 8, 8);
      screen_.TypeKey(VK_RETURN, L'\r');
      screen_.TypeText(L"soon");
    });
    screen_.AddIdleStep([&] {
      EXPECT_TRUE(screen_.Contains(L"soon")) << c.name;
      if (c.key) {
        screen_.TypeKey(c.key, c.key == VK_ESCAPE ? 0x1B : 0);
      } else {
        Command(res::kNotesCancel);
      }
    });
    EXPECT_EQ(Run(&notes), c.result) << c.name;
    EXPECT_EQ(notes, c.notes) << c.name;
  }
}

TEST_F(NotesEditorTest, RowsFollowTheTerminalSizeAndTheWordWrapChoice) {
  std::wstring notes = L"A line much longer than the screen is wide, to be wrapped";
  std::wstring wrapped_row, unwrapped_row;
  screen_.AddIdleStep([&] {
    wrapped_row = screen_.Row(2);
    screen_.Resize(40, 16);
  });
  screen_.AddIdleStep([&] {
    EXPECT_NE(screen_.Row(1).find(L"than the screen is"), std::wstring::npos) << "wider rows";
    screen_.TypeKey(VK_TSOFT2);
  });
  screen_.AddIdleStep([&] {
    for (const wchar_t* item : {L"Word Wrap", L"Find...", L"Select All", L"Paste", L"Cancel"})
      EXPECT_TRUE(screen_.Contains(item)) << item;
    screen_.TypeKey('1');  // Word Wrap
  });
  screen_.AddIdleStep([&] {
    unwrapped_row = screen_.Row(2);
    Command(res::kNotesSelectAll);
    Command(res::kNotesCopy);
  });
  screen_.AddIdleStep([&] { screen_.TypeKey(VK_TSOFT1); });
  EXPECT_TRUE(Run(&notes));
  EXPECT_NE(wrapped_row.find(L"wide"), std::wstring::npos) << wrapped_row;
  EXPECT_EQ(unwrapped_row.find_first_not_of(L' '), std::wstring::npos) << "one row only";
  EXPECT_EQ(screen_.terminal_clipboard(), notes) << "select all and copy";
}

TEST_F(NotesEditorTest, AMegabyteOfNotesOpensScrollsAndIsSaved) {
  std::wstring notes;
  while (notes.size() < 1'000'000) notes += L"Another line of long notes for the test.\r\n";
  const std::wstring before = notes;
  screen_.AddIdleStep([&] {
    screen_.TypeKey(VK_END, 0, ui::kModControl);
    screen_.TypeText(L"End");
    screen_.TypeKey(VK_TVOLUMEUP);
  });
  screen_.AddIdleStep([&] {
    EXPECT_FALSE(screen_.Contains(L"End"));  // a page up from the end
    screen_.TypeKey(VK_TSOFT1);
  });
  EXPECT_TRUE(Run(&notes));
  EXPECT_EQ(notes, before + L"End");
}

}  // namespace
}  // namespace velmo::testing
