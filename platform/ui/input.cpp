// Where a key goes: hot keys first, then the soft keys of the active window's
// bar, then the focused window (of the active window), else the active window.
// A key-down is followed at once by its key-up: a terminal reports no releases.
#include <vector>

#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/ui/hotkeys.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct HotKey {
  HWND hwnd;
  int id;
  UINT modifiers;
  UINT vk;
};

// The modifiers of the key being routed: its messages are all handled before
// the next key is read.
BYTE& CurrentModifiers() {
  static BYTE modifiers = 0;
  return modifiers;
}

std::vector<HotKey>& HotKeys() {
  static std::vector<HotKey> keys;
  return keys;
}

HWND KeyTarget() {
  HWND active = ActiveWindow();
  HWND focus = GetFocus();
  if (focus && TopLevelOf(focus) == active) return focus;
  return active;
}

void PostKey(HWND target, UINT vk, wchar_t ch) {
  DWORD now = GetTickCount();
  // The character rides on the key-down for TranslateMessage.
  PostBack(MSG{target, WM_KEYDOWN, vk, 1, now, {}, ch});
  PostBack(MSG{target, WM_KEYUP, vk, static_cast<LPARAM>(0xC0000001u), now, {}, 0});
}

}  // namespace

bool FindHotKey(UINT vk, HWND* hwnd, int* id, UINT* modifiers) {
  for (const HotKey& k : HotKeys()) {
    if (k.vk == vk) {
      *hwnd = k.hwnd;
      *id = k.id;
      *modifiers = k.modifiers;
      return true;
    }
  }
  return false;
}

void RemoveHotKeysOf(HWND hwnd) {
  std::erase_if(HotKeys(), [&](const HotKey& k) { return k.hwnd == hwnd; });
}

void ResetHotKeys() { HotKeys().clear(); }

void RouteInput(const InputEvent& event) {
  if (event.kind == InputEvent::Kind::kResize) {
    HandleResize();
    return;
  }
  UINT vk = event.vk;
  wchar_t ch = event.ch;
  CurrentModifiers() = event.modifiers;
  HWND target = KeyTarget();
  // Backspace deletes in a text field and is the back key everywhere else.
  if (vk == VK_BACK) {
    bool text_field = target && (SendMessageW(target, WM_GETDLGCODE, vk, 0) & DLGC_WANTCHARS);
    if (!text_field) {
      vk = VK_ESCAPE;
      ch = 0x1B;
    }
  }
  if (!MenuTracking()) {
    HWND owner;
    int id;
    UINT modifiers;
    if (FindHotKey(vk, &owner, &id, &modifiers) && IsWindowEnabled(TopLevelOf(owner))) {
      WORD mods = static_cast<WORD>(modifiers & ~MOD_KEYUP);
      PostMessageW(owner, WM_HOTKEY, static_cast<WPARAM>(id), MAKELPARAM(mods, static_cast<WORD>(vk)));
      if (modifiers & MOD_KEYUP) {
        PostMessageW(owner, WM_HOTKEY, static_cast<WPARAM>(id),
                     MAKELPARAM(static_cast<WORD>(mods | MOD_KEYUP), static_cast<WORD>(vk)));
      }
      return;
    }
    if (vk == VK_TSOFT1 || vk == VK_TSOFT2) {
      HWND active = ActiveWindow();
      HWND bar = SoftKeyBarFor(active);
      if (bar && IsWindowEnabled(active)) target = bar;
    }
  }
  // A disabled window (under a modal dialog) takes no keys.
  if (!target || !IsWindowEnabled(TopLevelOf(target))) return;
  PostKey(target, vk, ch);
}

}  // namespace velmo::ui::internal

SHORT GetKeyState(int vk) {
  const BYTE modifiers = velmo::ui::internal::CurrentModifiers();
  const bool down = (vk == static_cast<int>(VK_SHIFT) && (modifiers & velmo::ui::kModShift)) ||
                    (vk == static_cast<int>(VK_CONTROL) && (modifiers & velmo::ui::kModControl));
  return down ? static_cast<SHORT>(0x8000) : 0;
}

BOOL RegisterHotKey(HWND hwnd, int id, UINT modifiers, UINT vk) {
  using velmo::ui::internal::HotKeys;
  if (hwnd && !IsWindow(hwnd)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  for (auto& k : HotKeys()) {
    if (k.vk == vk && !(k.hwnd == hwnd && k.id == id)) {
      SetLastError(ERROR_HOTKEY_ALREADY_REGISTERED);
      return FALSE;
    }
  }
  UnregisterHotKey(hwnd, id);
  HotKeys().push_back(velmo::ui::internal::HotKey{hwnd, id, modifiers, vk});
  return TRUE;
}

BOOL UnregisterHotKey(HWND hwnd, int id) {
  auto& keys = velmo::ui::internal::HotKeys();
  size_t before = keys.size();
  std::erase_if(keys, [&](const auto& k) { return k.hwnd == hwnd && k.id == id; });
  if (keys.size() == before) {
    SetLastError(ERROR_HOTKEY_NOT_REGISTERED);
    return FALSE;
  }
  return TRUE;
}
