#include "app/rename_dialog.h"

#include "editor/text_prompt.h"
#include "res/menus_app.h"

namespace velmo::app {
namespace {

constexpr size_t kSubjectMaxChars = 1024;

}  // namespace

bool AskNewSubject(HWND owner, std::wstring* subject) {
  const TextPrompt prompt{res::kRenameDialog, res::kDoneCancelBar, res::kRenameSubjectField,
                          kSubjectMaxChars};
  return AskText(owner, prompt, subject);
}

}  // namespace velmo::app
