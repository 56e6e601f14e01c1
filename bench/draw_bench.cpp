// The task list's drawing with a full task table (2,550 tasks) on a 120 x 40
// headless screen: a full screen of real rows (compact and normal), and a key
// that changes the view: the key's command, the view's rows rebuilt and sorted,
// the list refilled and the screen redrawn.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "app/shortcut_keys.h"
#include "categories/category_state.h"
#include "list/draw_appearance.h"
#include "list/draw_background.h"
#include "list/draw_row.h"
#include "list/list_state.h"
#include "list/view_rows.h"
#include "platform/clock.h"
#include "platform/ui/desktop.h"
#include "platform/ui/list_view.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/window.h"

namespace {

using velmo::Task;

const DATE kNow = velmo::MakeDate(2026, 5, 12, 9, 15);

// Tasks with every mix of dates, states and categories a real table has.
velmo::TaskTable& Table() {
  static velmo::TaskTable table = [] {
    velmo::TaskTable t;
    for (size_t i = 0; i < velmo::kMaxTasks; ++i) {
      auto task = std::make_unique<Task>();
      task->oid = static_cast<CEOID>(i + 1);
      task->subject = L"Task number " + std::to_wstring(i) + L" with a longer subject";
      DATE day = static_cast<DATE>(velmo::WholeDay(kNow)) + static_cast<double>(i % 41) - 20;
      if (i % 5) task->due_date = day;
      if (i % 3 == 0) task->start_date = day - 2;
      task->complete = i % 7 == 0;
      if (task->complete) task->date_completed = day;
      task->importance = static_cast<LONG>(i % 3);
      task->recurring = i % 11 == 0;
      task->notes_state = i % 4 == 0;
      task->categories = i % 2 ? L"Work" : L"Home, Errands";
      t.push_back(std::move(task));
    }
    return t;
  }();
  return table;
}

LRESULT OwnerProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg != WM_DRAWITEM) return DefWindowProcW(hwnd, msg, wparam, lparam);
  auto* dis = reinterpret_cast<DRAWITEMSTRUCT*>(lparam);
  return velmo::DrawTaskItem(dis, *reinterpret_cast<const Task*>(dis->itemData));
}

struct Fixture {
  velmo::ScopedClock clock{kNow};
  velmo::ui::HeadlessScreen screen{120, 40};
  velmo::ui::ScopedScreen attached{&screen};
  HWND main = nullptr;
  HWND list = nullptr;

  explicit Fixture(bool compact) {
    velmo::InitCategories(0, L"", L"");
    for (const wchar_t* name : {L"Work", L"Home", L"Errands"})
      velmo::AddCategory(velmo::CategoryCatalogue(), name, velmo::InLoadedTasks, 0);
    velmo::InitListState();
    velmo::SetCompactList(compact);
    WNDCLASSW wc{};
    wc.lpfnWndProc = OwnerProc;
    wc.lpszClassName = L"DrawBenchMain";
    RegisterClassW(&wc);
    main = CreateWindowExW(0, L"DrawBenchMain", L"Tasks", WS_VISIBLE, CW_USEDEFAULT, 0,
                           CW_USEDEFAULT, 0, nullptr, nullptr, nullptr, nullptr);
    RECT rc;
    GetClientRect(main, &rc);
    list = CreateWindowExW(0, WC_LISTVIEWW, L"No matches for this filter",
                           WS_CHILD | WS_VISIBLE | LVS_SINGLESEL | LVS_OWNERDRAWFIXED, 0, 0,
                           rc.right, rc.bottom, main, reinterpret_cast<HMENU>(1), nullptr, nullptr);
    ListView_SetRowHeight(list, velmo::ListRowLines());
    velmo::InstallListBackground(list);
    Fill();
    SetFocus(list);
    velmo::ui::PumpMessages();
  }

  // The rows of the current view, as the main window puts them in the list.
  void Fill() {
    ListView_DeleteAllItems(list);
    int i = 0;
    for (const Task* t : velmo::SortedViewRows(Table(), kNow)) {
      LVITEMW item{};
      item.mask = LVIF_PARAM;
      item.iItem = i++;
      item.lParam = reinterpret_cast<LPARAM>(t);
      ListView_InsertItem(list, &item);
    }
  }
};

void BM_DrawFullScreen(benchmark::State& state) {
  Fixture f(state.range(0) != 0);
  for (auto _ : state) {
    InvalidateRect(f.main, nullptr, TRUE);
    UpdateWindow(f.main);
  }
}
BENCHMARK(BM_DrawFullScreen)->Arg(1)->Arg(0)->ArgName("compact")->Unit(benchmark::kMicrosecond);

void BM_ViewKeyRedrawn(benchmark::State& state) {
  Fixture f(true);
  const UINT keys[] = {'1', '5', '4', '7'};  // All, Completed, Active, Today
  size_t k = 0;
  for (auto _ : state) {
    UINT command = velmo::ListKeyCommand(keys[k++ % 4]);
    velmo::SetView(command);
    f.Fill();
    InvalidateRect(f.main, nullptr, TRUE);
    UpdateWindow(f.main);
  }
}
BENCHMARK(BM_ViewKeyRedrawn)->Unit(benchmark::kMicrosecond);

}  // namespace
