// The window classes every screen starts with.
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/list_view.h"
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
  };
  for (const BuiltIn& c : kClasses) {
    WNDCLASSW wc{};
    wc.lpfnWndProc = c.proc;
    wc.lpszClassName = c.name;
    RegisterClassW(&wc);
  }
}

}  // namespace velmo::ui::internal
