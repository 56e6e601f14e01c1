// "My Text" defaults and "Reset Settings" by groups.
#include "res/strings.h"
#include "settings/settings.h"
#include "settings/settings_table.h"

namespace velmo {
namespace {

constexpr UINT kFirstMyTextString = 41616;   // .. 41635 for "Txt1".."Txt20"
constexpr UINT kLongTextString = 41636;      // "NTxt1"

// What each group's reset asks the caller to apply.
struct GroupEffect {
  DWORD group;
  DWORD effect;
};
constexpr GroupEffect kGroupEffects[] = {
    {kResetDefaultView, kEffectSendDefaultView},
    {kResetAppearance, kEffectRebuildAppearance},
};

}  // namespace

int FillEmptyTexts(Settings& s) {
  for (const std::wstring& text : s.txt)
    if (!text.empty()) return 0;
  for (const std::wstring& text : s.long_txt)
    if (!text.empty()) return 0;
  for (int i = 0; i < kMyTextCount; ++i) s.txt[i] = res::Text(kFirstMyTextString + i);
  s.long_txt[0] = res::Text(kLongTextString);
  return 1;
}

DWORD ResetGroups(DWORD groups, Settings& s) {
  const Settings defaults;
  const LONG old_delta = s.reminder_delta;
  for (const settings_table::Entry& e : settings_table::Entries())
    if (e.group & groups) settings_table::CopySetting(e, defaults, s);
  if (groups & kResetMyText) {
    s.txt = defaults.txt;
    s.long_txt = defaults.long_txt;
    FillEmptyTexts(s);
  }
  DWORD applied = 0;
  for (const GroupEffect& g : kGroupEffects)
    if (groups & g.group) applied |= g.effect;
  if (s.reminder_delta != old_delta) applied |= kEffectReloadTasks;
  return applied;
}

LONG ResetSettings(DWORD groups, DWORD* effects, Settings& s) {
  const DWORD applied = ResetGroups(groups, s);
  if (effects) *effects = applied;
  return SaveSettings(s, true);
}

}  // namespace velmo
