// The terminal's keys as the phone's keys.
#include "platform/ui/keymap.h"

#include <string>
#include <vector>

#include "platform/ui/virtual_keys.h"

// curses.h last: it defines macros (OK, ERR, TRUE, clear ...) that must not
// reach the headers above.
#include <curses.h>
#include <term.h>

namespace velmo::ui {
namespace {

struct CharKey {
  wchar_t ch;
  UINT vk;
  wchar_t translated;  // the character WM_CHAR carries
};

constexpr CharKey kCharKeys[] = {
    {L'\r', VK_RETURN, L'\r'}, {L'\n', VK_RETURN, L'\r'},  {0x1B, VK_ESCAPE, 0x1B},
    {L'\t', VK_TAB, L'\t'},    {0x7F, VK_BACK, 0x08},      {0x08, VK_BACK, 0x08},
    {L'*', VK_TSTAR, L'*'},    {L'#', VK_TPOUND, L'#'},    {L'?', VK_QUESTION, L'?'},
    {L' ', VK_SPACE, L' '},
};

struct CodeKey {
  int code;
  UINT vk;
};

// F5/F6/F7 are the volume and record keys; PageDown/PageUp are the volume keys too.
const CodeKey kCodeKeys[] = {
    {KEY_F(1), VK_TSOFT1},      {KEY_F(2), VK_TSOFT2},     {KEY_F(3), VK_TTALK},
    {KEY_F(4), VK_TEND},        {KEY_F(5), VK_TVOLUMEDOWN}, {KEY_F(6), VK_TVOLUMEUP},
    {KEY_F(7), VK_TRECORD},     {KEY_NPAGE, VK_TVOLUMEDOWN}, {KEY_PPAGE, VK_TVOLUMEUP},
    {KEY_UP, VK_UP},            {KEY_DOWN, VK_DOWN},       {KEY_LEFT, VK_LEFT},
    {KEY_RIGHT, VK_RIGHT},      {KEY_HOME, VK_HOME},       {KEY_END, VK_END},
    {KEY_DC, VK_DELETE},        {KEY_BACKSPACE, VK_BACK},  {KEY_ENTER, VK_RETURN},
};

struct ModifiedCodeKey {
  int code;
  UINT vk;
  std::uint8_t modifiers;
};

// Shift with a key, as curses names it.
const ModifiedCodeKey kShiftedKeys[] = {
    {KEY_SLEFT, VK_LEFT, kModShift},     {KEY_SRIGHT, VK_RIGHT, kModShift},
    {KEY_SR, VK_UP, kModShift},          {KEY_SF, VK_DOWN, kModShift},
    {KEY_SHOME, VK_HOME, kModShift},     {KEY_SEND, VK_END, kModShift},
    {KEY_SPREVIOUS, VK_PRIOR, kModShift}, {KEY_SNEXT, VK_NEXT, kModShift},
};

// The terminal's own codes of keys with modifiers (xterm's extended names: the
// digit 2 is Shift, 5 Control, 6 both), learnt once the terminal is open.
struct ExtendedName {
  const char* stem;
  UINT vk;
};
constexpr ExtendedName kExtendedNames[] = {
    {"kLFT", VK_LEFT}, {"kRIT", VK_RIGHT}, {"kUP", VK_UP},    {"kDN", VK_DOWN},
    {"kHOM", VK_HOME}, {"kEND", VK_END},   {"kPRV", VK_PRIOR}, {"kNXT", VK_NEXT},
};
struct ExtendedDigit {
  char digit;
  std::uint8_t modifiers;
};
constexpr ExtendedDigit kExtendedDigits[] = {
    {'2', kModShift}, {'5', kModControl}, {'6', kModShift | kModControl}};

std::vector<ModifiedCodeKey>& LearntKeys() {
  static std::vector<ModifiedCodeKey> keys;
  return keys;
}

}  // namespace

void LearnModifiedKeys() {
  LearntKeys().clear();
  for (const ExtendedName& name : kExtendedNames) {
    for (const ExtendedDigit& d : kExtendedDigits) {
      std::string cap = std::string(name.stem) + d.digit;
      const char* sequence = tigetstr(cap.data());
      if (!sequence || sequence == reinterpret_cast<char*>(-1)) continue;
      const int code = key_defined(sequence);
      if (code > 0) LearntKeys().push_back(ModifiedCodeKey{code, name.vk, d.modifiers});
    }
  }
}

bool KeyFromChar(wchar_t ch, InputEvent* event) {
  *event = InputEvent{};
  for (const CharKey& k : kCharKeys) {
    if (k.ch == ch) {
      event->vk = k.vk;
      event->ch = k.translated;
      return true;
    }
  }
  if (ch < 0x20) return false;
  event->ch = ch;
  if (ch >= L'0' && ch <= L'9') {
    event->vk = static_cast<UINT>(ch);
  } else if (ch >= L'a' && ch <= L'z') {
    event->vk = static_cast<UINT>(ch - L'a' + L'A');
  } else if (ch >= L'A' && ch <= L'Z') {
    event->vk = static_cast<UINT>(ch);
  } else {
    event->vk = VK_NONAME;
  }
  return true;
}

bool KeyFromCursesCode(int code, InputEvent* event) {
  *event = InputEvent{};
  if (code == KEY_RESIZE) {
    event->kind = InputEvent::Kind::kResize;
    return true;
  }
  for (const ModifiedCodeKey& k : kShiftedKeys) {
    if (k.code == code) {
      event->vk = k.vk;
      event->modifiers = k.modifiers;
      return true;
    }
  }
  for (const ModifiedCodeKey& k : LearntKeys()) {
    if (k.code == code) {
      event->vk = k.vk;
      event->modifiers = k.modifiers;
      return true;
    }
  }
  for (const CodeKey& k : kCodeKeys) {
    if (k.code == code) {
      event->vk = k.vk;
      if (k.vk == VK_BACK) event->ch = 0x08;
      if (k.vk == VK_RETURN) event->ch = L'\r';
      return true;
    }
  }
  return false;
}

}  // namespace velmo::ui
