// The prompt of "Find...".
#include "editor/find_text_dialog.h"

#include "editor/text_prompt.h"
#include "res/menus_notes.h"

namespace velmo {

bool AskFindText(HWND owner, std::wstring* text) {
  // The last text searched for starts selected, to be typed over.
  const TextPrompt prompt{res::kFindDialog, res::kFindBar, res::kFindTextId, res::kFindTextMaxChars,
                          true};
  return AskText(owner, prompt, text);
}

}  // namespace velmo
