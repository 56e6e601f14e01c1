#include "app/today_sign.h"

#include "app/main_window_state.h"
#include "platform/ui/colours.h"
#include "platform/ui/desktop.h"
#include "platform/ui/glyphs.h"
#include "reminders/today_task.h"

namespace velmo::app {
namespace {
constexpr wchar_t kTodaySign[] = {ui::Glyph(ui::kGlyphToday), 0};
}  // namespace

void UpdateTodaySign() {
  UpdateTodayTask(MainWindow().active);
  if (TodayTask().icon_shown) {
    ui::SetTraySign(kTodaySign, ui::kSignAmber);
  } else {
    HideTodaySign();
  }
}

void HideTodaySign() { ui::SetTraySign(L"", 0); }

}  // namespace velmo::app
