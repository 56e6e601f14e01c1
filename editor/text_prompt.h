// A dialog of one line of text under a label, with two soft keys: what the
// rename, "Find..." and "Save As..." each ask for.
#pragma once

#include <cstddef>
#include <string>

#include "platform/ui/types.h"
#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo {

struct TextPrompt {
  const res::DialogDef& dialog;  // a label and the text field
  const res::SoftKeyBarDef& bar;  // the left key's command is IDOK
  int field_id;
  size_t max_chars;
  bool select_all = false;    // the text given starts selected, to be typed over
  bool refuse_empty = false;  // the left key does nothing on an empty field
};

// Shows the prompt over `owner` with `text` in the field; true, with the text
// typed, when it was ended by the left key.
bool AskText(HWND owner, const TextPrompt& prompt, std::wstring* text);

}  // namespace velmo
