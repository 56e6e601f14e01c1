// Input modes of the editor's text fields: in a terminal the "Caps 1st" modes
// make the first letter typed into an empty field a capital; the others leave
// typing as it is.
#pragma once

#include "platform/wintypes.h"

namespace velmo {

// Whether the InputMode setting asks for a capital first letter.
bool CapitalFirstLetter(DWORD input_mode);

// The character a field takes for `typed`.
wchar_t CharacterForField(wchar_t typed, bool field_empty, DWORD input_mode);

}  // namespace velmo
