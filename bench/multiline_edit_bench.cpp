// The multi-line edit on a 120 x 40 headless screen: a keystroke typed into the
// middle of a megabyte of notes, with the redraw (word wrap on and off), and
// a full-screen edit and the notes editor opened on 10,000 characters of notes
// to the first drawn screen.
#include <benchmark/benchmark.h>

#include <string>

#include "editor/notes_editor.h"
#include "platform/ui/desktop.h"
#include "platform/ui/edit.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/menus_notes.h"

namespace {

// Paragraphs of a few hundred characters, as notes are written.
std::wstring Notes(size_t size) {
  static const std::wstring kParagraph =
      L"Call the plumber about the kitchen tap, then ask the landlord whether the boiler "
      L"service can move to next week. Bring the receipts for the paint and the new shelf "
      L"brackets; the hardware shop on Station Road opens at eight. Remember the spare keys.";
  std::wstring text;
  text.reserve(size + kParagraph.size() + 2);
  while (text.size() < size) text += kParagraph + L"\r\n";
  text.resize(size);
  return text;
}

LRESULT PlainProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  return DefWindowProcW(hwnd, msg, wparam, lparam);
}

struct Fixture {
  velmo::ui::HeadlessScreen screen{120, 40};
  velmo::ui::ScopedScreen attached{&screen};
  HWND main = nullptr;

  Fixture() {
    WNDCLASSW wc{};
    wc.lpfnWndProc = PlainProc;
    wc.lpszClassName = L"BenchNotes";
    RegisterClassW(&wc);
    main = CreateWindowExW(0, L"BenchNotes", L"Notes", WS_VISIBLE, CW_USEDEFAULT, 0,
                           CW_USEDEFAULT, 0, nullptr, nullptr, nullptr, nullptr);
  }
  HWND MakeEdit(const std::wstring& text, DWORD style) {
    RECT rc;
    GetClientRect(main, &rc);
    HWND edit = CreateWindowExW(0, WC_EDITW, L"", WS_CHILD | WS_VISIBLE | ES_MULTILINE | style, 0,
                                0, rc.right, rc.bottom, main, reinterpret_cast<HMENU>(1), nullptr,
                                nullptr);
    SendMessageW(edit, EM_LIMITTEXT, 0, 0);
    SetWindowTextW(edit, text.c_str());
    SetFocus(edit);
    return edit;
  }
};

void BM_KeystrokeInAMegabyte(benchmark::State& state) {
  Fixture f;
  const std::wstring notes = Notes(1'000'000);
  HWND edit = f.MakeEdit(notes, state.range(0) ? 0 : WS_HSCROLL);
  SendMessageW(edit, EM_SETSEL, notes.size() / 2, notes.size() / 2);
  velmo::ui::PumpMessages();
  bool type = true;
  for (auto _ : state) {
    if (type) {
      f.screen.TypeText(L"x");
    } else {
      f.screen.TypeBackspace();
    }
    type = !type;
    velmo::ui::PumpMessages();
  }
  state.SetLabel(state.range(0) ? "word wrap" : "no wrap");
}
BENCHMARK(BM_KeystrokeInAMegabyte)->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond);

void BM_PageDownInAMegabyte(benchmark::State& state) {
  Fixture f;
  HWND edit = f.MakeEdit(Notes(1'000'000), 0);
  velmo::ui::PumpMessages();
  int pages = 0;
  for (auto _ : state) {
    if (++pages % 1000 == 0) SendMessageW(edit, EM_SETSEL, 0, 0);
    f.screen.TypeKey(VK_NEXT);
    velmo::ui::PumpMessages();
  }
}
BENCHMARK(BM_PageDownInAMegabyte)->Unit(benchmark::kMicrosecond);

void BM_OpenOnTenThousandCharacters(benchmark::State& state) {
  Fixture f;
  const std::wstring notes = Notes(10'000);
  for (auto _ : state) {
    HWND edit = f.MakeEdit(notes, 0);
    velmo::ui::PumpMessages();
    state.PauseTiming();
    DestroyWindow(edit);
    velmo::ui::PumpMessages();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_OpenOnTenThousandCharacters)->Unit(benchmark::kMicrosecond);

// The notes editor itself: its dialog, menu and soft keys made, the notes set
// and the screen drawn; it is closed with "Cancel" as soon as the loop waits.
void BM_NotesEditorToFirstScreen(benchmark::State& state) {
  Fixture f;
  const std::wstring notes = Notes(10'000);
  for (auto _ : state) {
    f.screen.AddIdleStep([] {
      PostMessageW(GetParent(GetFocus()), WM_COMMAND, velmo::res::kNotesCancel, 0);
    });
    std::wstring edited = notes;
    velmo::EditNotesFullScreen(f.main, L"Notes", &edited);
  }
}
BENCHMARK(BM_NotesEditorToFirstScreen)->Unit(benchmark::kMicrosecond);

}  // namespace
