#include "app/save_as_dialog.h"

#include "editor/text_prompt.h"
#include "res/dialogs_links.h"

namespace velmo::app {
namespace {

constexpr size_t kMaxPathChars = 4096;

}  // namespace

bool AskSaveAsFileName(HWND owner, std::wstring* name) {
  // An empty name is nothing to save to yet: the prompt stays.
  const TextPrompt prompt{res::kSaveAsDialog, res::kSaveAsBar, res::kSaveAsFileName, kMaxPathChars,
                          false, true};
  return AskText(owner, prompt, name);
}

}  // namespace velmo::app
