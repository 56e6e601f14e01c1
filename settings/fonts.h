// The font style and font size tables: fonts are stored as indexes into these.
#pragma once

#include <array>

#include "platform/wintypes.h"

namespace velmo {

struct FontStyle {
  UINT name_id;
  bool bold;
  bool italic;
};

inline constexpr std::array<FontStyle, 4> kFontStyles = {{
    {1027, false, false},  // Normal
    {1028, true, false},   // Bold
    {1030, false, true},   // Italic
    {1031, true, true},    // Bold-Italic
}};

// A size with its metrics: the character height in logical pixels that the list
// drawing asks for, and the point size shown in the settings pages.
struct FontSize {
  UINT name_id;
  int height;
  int points;
};

inline constexpr std::array<FontSize, 4> kFontSizes = {{
    {1033, 18, 11},  // Large
    {1034, 16, 10},  // Medium
    {1035, 14, 9},   // Small
    {1036, 12, 8},   // Extra Small
}};

}  // namespace velmo
