// The window classes every screen starts with.
#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/list_view.h"
#include "platform/ui/month_calendar.h"
#include "platform/ui/spinner.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {

void RegisterBuiltInClasses() {
  struct BuiltIn {
    LPCWSTR name;
    WNDPROC proc;
  };
  const BuiltIn kClasses[] = {
      {WC_LISTVIEWW, ListViewProc}, {WC_EDITW, EditProc},
      {WC_DIALOG, DialogWindowProc}, {WC_STATICW, StaticProc},
      {kSoftKeyBarClass, SoftKeyBarProc},
      {WC_BUTTONW, CheckBoxProc},       {WC_LISTBOXW, ListBoxProc},
      {UPDOWN_CLASSW, UpDownProc},      {DATETIMEPICK_CLASSW, DatePickerProc},
      {MONTHCAL_CLASSW, MonthCalProc},
  };
  for (const BuiltIn& c : kClasses) {
    WNDCLASSW wc{};
    wc.lpfnWndProc = c.proc;
    wc.lpszClassName = c.name;
    RegisterClassW(&wc);
  }
}

}  // namespace velmo::ui::internal
