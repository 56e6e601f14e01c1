#include "settings/migration.h"

#include <array>

#include "settings/colors.h"

namespace velmo {
namespace {

struct Version {
  DWORD major;
  DWORD minor;
  bool Below(DWORD other_major, DWORD other_minor) const {
    return major < other_major || (major == other_major && minor < other_minor);
  }
};

// Before 6.10 the compact list kept its date bit elsewhere, the lists lacked two
// information bits, and the selected row used the system highlight colours.
void UpdateBefore610(Settings& s) {
  if (s.infos_compressed & kInfosOldDateInCompact)
    s.infos_compressed = (s.infos_compressed | kInfosDateInCompact) & ~kInfosOldDateInCompact;
  s.infos_compressed |= 0x10010800;
  s.infos |= 0x10000800;
  if (s.highlight_text_color == kTextColorHighlightText &&
      s.highlight_color == kBackgroundColorHighlight) {
    s.highlight_text_color = kTextColorNoChange;
    s.highlight_color = kColorSilver;
  }
}

// Older versions had six font styles; each maps onto one of today's four.
void ConvertOldFontStyles(Settings& s) {
  static constexpr std::array<DWORD, 6> kNewStyle = {0, 1, 1, 2, 3, 3};
  for (DWORD* font : {&s.today_font, &s.normal_font})
    if (*font < kNewStyle.size()) *font = kNewStyle[*font];
}

bool Before610(Version v) { return v.Below(6, 10); }
// Version 6.0 is caught too: the old check only looked at a zero minor after 6.
bool OldFontNumbering(Version v) { return v.Below(5, 20) || (v.major == 6 && v.minor == 0); }

struct Rule {
  bool (*applies)(Version);
  void (*apply)(Settings&);
};

constexpr Rule kRules[] = {
    {Before610, UpdateBefore610},
    {OldFontNumbering, ConvertOldFontStyles},
};

}  // namespace

bool MigrateSettings(Settings& s) {
  const Version stored{s.version_major, s.version_minor};
  if (stored.major == kSettingsVersionMajor && stored.minor == kSettingsVersionMinor) return false;
  for (const Rule& rule : kRules)
    if (rule.applies(stored)) rule.apply(s);
  s.version_major = kSettingsVersionMajor;
  s.version_minor = kSettingsVersionMinor;
  return true;
}

}  // namespace velmo
