// "Reset Settings": the ticked groups get their defaults again; the block is
// saved and applied like a page's, and after the default-view group the main
// window is sent command 40047.
#include "app/commands.h"
#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "platform/ui/button.h"
#include "platform/ui/dialog.h"
#include "res/dialogs_settings.h"

namespace velmo::app {
namespace {

constexpr int kGroupCount = 8;  // kResetOptions .. kResetActiveSync

void Done(HWND page, PageState& state) {
  DWORD groups = 0;
  for (int i = 0; i < kGroupCount; ++i)
    if (SendDlgItemMessageW(page, res::settings_id::kResetFirst + i, BM_GETCHECK, 0, 0) == BST_CHECKED)
      groups |= 1u << i;
  *static_cast<DWORD*>(state.own) = ResetGroups(groups, state.edited);
}

const PageDef kPage{res::kResetPage, {}, {nullptr, nullptr, Done}};

}  // namespace

INT_PTR ShowResetPage(HWND owner) {
  DWORD effects = 0;
  const INT_PTR result = RunSettingsPage(owner, kPage, &effects);
  if (result == IDOK && (effects & kEffectSendDefaultView)) SendCommand(kCommandApplyDefaultView);
  return result;
}

}  // namespace velmo::app
