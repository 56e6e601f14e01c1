// The program's clipboard: what cut and copy put there, paste takes. A text put
// there is copied to the terminal's clipboard too, where the terminal takes one
// (the screen decides; the headless screen keeps it for tests).
#pragma once

#include <string>
#include <string_view>

namespace velmo::ui {

void SetClipboardText(std::wstring_view text);
const std::wstring& ClipboardText();

}  // namespace velmo::ui
