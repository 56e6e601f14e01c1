#include "editor/input_mode.h"

#include <unicode/uchar.h>

#include "settings/input_modes.h"

namespace velmo {

bool CapitalFirstLetter(DWORD input_mode) {
  return input_mode < kInputModes.size() && kInputModes[input_mode].flags != 0;
}

wchar_t CharacterForField(wchar_t typed, bool field_empty, DWORD input_mode) {
  if (!field_empty || !CapitalFirstLetter(input_mode)) return typed;
  return static_cast<wchar_t>(u_toupper(static_cast<UChar32>(typed)));
}

}  // namespace velmo
