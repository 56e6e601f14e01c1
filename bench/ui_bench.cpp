// The window system under a full task list (2,550 rows) on a 120 x 40 headless
// screen: a full repaint with owner-drawn two-line rows, a key that moves the
// selection (routing, notifications and the repaint), and sorting the rows.
#include <benchmark/benchmark.h>

#include <string>

#include "platform/ui/desktop.h"
#include "platform/ui/gdi.h"
#include "platform/ui/list_view.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace {

constexpr int kRows = 2550;

// Draws a row the way the task list does: the subject on the first line, then
// three fields laid from the right edge of the second.
LRESULT ListOwnerProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg != WM_DRAWITEM) return DefWindowProcW(hwnd, msg, wparam, lparam);
  auto* dis = reinterpret_cast<DRAWITEMSTRUCT*>(lparam);
  std::wstring subject = L"Task number " + std::to_wstring(dis->itemData) + L" with a subject";
  RECT line = dis->rcItem;
  line.left += 1;
  line.bottom = line.top + 1;
  DrawTextW(dis->hDC, subject.c_str(), -1, &line, DT_SINGLELINE | DT_END_ELLIPSIS);
  RECT info = dis->rcItem;
  info.top += 1;
  for (const wchar_t* field : {L"+3", L"12/05/26 ", L"01/05/26-"}) {
    DrawTextW(dis->hDC, field, -1, &info, DT_RIGHT | DT_SINGLELINE | DT_NOPREFIX);
    SIZE size;
    GetTextExtentPoint32W(dis->hDC, field, static_cast<int>(wcslen(field)), &size);
    info.right -= size.cx;
  }
  return TRUE;
}

struct Fixture {
  velmo::ui::HeadlessScreen screen{120, 40};
  velmo::ui::ScopedScreen attached{&screen};
  HWND main = nullptr;
  HWND list = nullptr;

  Fixture() {
    WNDCLASSW wc{};
    wc.lpfnWndProc = ListOwnerProc;
    wc.lpszClassName = L"BenchMain";
    RegisterClassW(&wc);
    main = CreateWindowExW(0, L"BenchMain", L"All Tasks (2550)", WS_VISIBLE, CW_USEDEFAULT, 0,
                           CW_USEDEFAULT, 0, nullptr, nullptr, nullptr, nullptr);
    RECT rc;
    GetClientRect(main, &rc);
    list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_SINGLESEL |
                                                     LVS_OWNERDRAWFIXED,
                           0, 0, rc.right, rc.bottom, main, reinterpret_cast<HMENU>(1), nullptr,
                           nullptr);
    ListView_SetRowHeight(list, 2);
    for (int i = 0; i < kRows; ++i) {
      LVITEMW item{};
      item.mask = LVIF_PARAM;
      item.iItem = i;
      item.lParam = (i * 7919) % kRows;
      ListView_InsertItem(list, &item);
    }
    SOFTKEY left{L"Complete", 40003, nullptr};
    SOFTKEY right{L"Menu", 40099, nullptr};
    CreateSoftKeyBar(main, &left, &right);
    SetFocus(list);
    velmo::ui::PumpMessages();
  }
};

void BM_RepaintFullList(benchmark::State& state) {
  Fixture f;
  for (auto _ : state) {
    InvalidateRect(f.main, nullptr, TRUE);
    UpdateWindow(f.main);
  }
}
BENCHMARK(BM_RepaintFullList)->Unit(benchmark::kMicrosecond);

void BM_KeyMovesSelectionAndRedraws(benchmark::State& state) {
  Fixture f;
  int steps = 0;
  for (auto _ : state) {
    f.screen.TypeKey(++steps % kRows ? VK_DOWN : VK_HOME);
    velmo::ui::PumpMessages();
  }
}
BENCHMARK(BM_KeyMovesSelectionAndRedraws)->Unit(benchmark::kMicrosecond);

int ByValue(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b ? 1 : 0; }
int ByValueDescending(LPARAM a, LPARAM b, LPARAM) { return a < b ? 1 : a > b ? -1 : 0; }

void BM_SortRows(benchmark::State& state) {
  Fixture f;
  bool up = true;
  for (auto _ : state) {
    ListView_SortItems(f.list, up ? ByValue : ByValueDescending, 0);
    up = !up;
  }
}
BENCHMARK(BM_SortRows)->Unit(benchmark::kMicrosecond);

}  // namespace
