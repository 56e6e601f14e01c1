// The input modes a text field can start in: the name and the two platform
// input-mode words given to the edit controls.
#pragma once

#include <array>

#include "platform/wintypes.h"

namespace velmo {

struct InputMode {
  UINT name_id;
  DWORD mode;
  DWORD flags;
};

inline constexpr std::array<InputMode, 7> kInputModes = {{
    {1040, 0x01000001, 0},           // t9
    {1041, 0x00000001, 0x01010000},  // T9, capital first
    {1042, 0x01000000, 0},           // abc
    {1043, 0, 0x01010000},           // Abc, capital first
    {1044, 0x01000003, 0},           // last used
    {1045, 0x00000003, 0x01010000},  // last used, capital first
    {1046, 0, 0},                    // the platform's default
}};

}  // namespace velmo
