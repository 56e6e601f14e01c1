// The colour tables: colour settings are stored as indexes into these, never as
// colour values. Both tables share their first 16 named colours; the rest are the
// platform's system colours, whose value is the current theme's.
#pragma once

#include <array>
#include <cstddef>

#include "platform/wintypes.h"

namespace velmo {

// The platform's system colours the tables can name.
enum class SystemColor {
  kNone,  // a fixed colour
  kBtnText,
  kCaptionText,
  kGrayText,
  kHighlightText,
  kInactiveCaptionText,
  kInfoText,
  kMenuText,
  kStaticText,
  kWindowText,
  kAppWorkspace,
  kBackground,
  kInfoBk,
  kMenu,
  kStatic,
  kWindow,
  kHighlight,
  kInactiveCaption,
  kNoChange,  // keep the colour the item would otherwise have
};

struct NamedColor {
  UINT name_id;    // string table
  DWORD rgb;       // 0xBBGGRR; meaningful only for fixed colours
  SystemColor system;
};

// The 16 named colours both tables begin with.
inline constexpr std::array<NamedColor, 16> kNamedColors = {{
    {1007, 0x000000, SystemColor::kNone},  // Black
    {1005, 0x000080, SystemColor::kNone},  // Maroon
    {1000, 0x008000, SystemColor::kNone},  // Green
    {1003, 0x008080, SystemColor::kNone},  // Olive
    {1004, 0x800000, SystemColor::kNone},  // Navy
    {1002, 0x800080, SystemColor::kNone},  // Purple
    {998, 0x808000, SystemColor::kNone},   // Teal
    {999, 0x808080, SystemColor::kNone},   // Gray
    {1001, 0xC0C0C0, SystemColor::kNone},  // Silver
    {994, 0x0000FF, SystemColor::kNone},   // Red
    {997, 0x00FF00, SystemColor::kNone},   // Lime
    {996, 0x00FFFF, SystemColor::kNone},   // Yellow
    {993, 0xFF0000, SystemColor::kNone},   // Blue
    {995, 0xFF00FF, SystemColor::kNone},   // Fuchsia
    {992, 0xFFFF00, SystemColor::kNone},   // Aqua
    {1006, 0xFFFFFF, SystemColor::kNone},  // White
}};

template <std::size_t N>
constexpr std::array<NamedColor, 16 + N> AfterNamedColors(const std::array<NamedColor, N>& rest) {
  std::array<NamedColor, 16 + N> all{};
  for (std::size_t i = 0; i < 16; ++i) all[i] = kNamedColors[i];
  for (std::size_t i = 0; i < N; ++i) all[16 + i] = rest[i];
  return all;
}

// Text colours, 26 entries.
inline constexpr std::array<NamedColor, 26> kTextColors = AfterNamedColors<10>({{
    {1008, 0, SystemColor::kBtnText},
    {1009, 0, SystemColor::kCaptionText},
    {1010, 0, SystemColor::kGrayText},
    {1011, 0, SystemColor::kHighlightText},
    {1012, 0, SystemColor::kInactiveCaptionText},
    {1013, 0, SystemColor::kInfoText},
    {1014, 0, SystemColor::kMenuText},
    {1015, 0, SystemColor::kStaticText},
    {1016, 0, SystemColor::kWindowText},
    {1026, 0, SystemColor::kNoChange},
}});

// Background colours, 24 entries.
inline constexpr std::array<NamedColor, 24> kBackgroundColors = AfterNamedColors<8>({{
    {1017, 0, SystemColor::kAppWorkspace},
    {1018, 0, SystemColor::kBackground},
    {1019, 0, SystemColor::kInfoBk},
    {1020, 0, SystemColor::kMenu},
    {1021, 0, SystemColor::kStatic},
    {1022, 0, SystemColor::kWindow},
    {1023, 0, SystemColor::kHighlight},
    {1024, 0, SystemColor::kInactiveCaption},
}});

// Indexes the settings store refers to by name.
constexpr DWORD kColorSilver = 8;
constexpr DWORD kTextColorHighlightText = 19;
constexpr DWORD kTextColorNoChange = 25;
constexpr DWORD kBackgroundColorInfoBk = 18;
constexpr DWORD kBackgroundColorHighlight = 22;

}  // namespace velmo
