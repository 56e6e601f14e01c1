// A headless screen for each test, and a window class that records what its
// windows receive and lets a test answer messages.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/ui/desktop.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/window.h"

namespace velmo::testing {

struct Received { HWND hwnd; UINT msg; WPARAM wparam; LPARAM lparam; };

// Messages a recording window notes (the others pass by unnoted).
constexpr UINT kNoted[] = {WM_CREATE,  WM_DESTROY,  WM_NCDESTROY, WM_SIZE,    WM_SETFOCUS,
                           WM_KILLFOCUS, WM_KEYDOWN, WM_CHAR,     WM_COMMAND, WM_TIMER,
                           WM_HOTKEY,  WM_COPYDATA, WM_INITMENUPOPUP, WM_NOTIFY, WM_ACTIVATE};

// A window's text (up to 127 characters).
inline std::wstring TextOf(HWND hwnd) {
  wchar_t buffer[128] = {};
  GetWindowTextW(hwnd, buffer, 128);
  return buffer;
}

class UiTest : public ::testing::Test {
 protected:
  static constexpr wchar_t kClass[] = L"TestWindow";
  using Handler = std::function<LRESULT(HWND, UINT, WPARAM, LPARAM, bool* handled)>;

  UiTest() : UiTest(40, 12) {}
  UiTest(int width, int height) : screen_(width, height), scoped_(&screen_) {
    current_ = this;
    WNDCLASSW wc{};
    wc.lpfnWndProc = &UiTest::Proc;
    wc.lpszClassName = kClass;
    RegisterClassW(&wc);
  }
  ~UiTest() override { current_ = nullptr; }

  // A visible top-level window filling the work area, owned by `owner` if given.
  HWND MakeMain(LPCWSTR title = L"Main", HWND owner = nullptr) {
    return CreateWindowExW(0, kClass, title, WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, nullptr, nullptr);
  }
  // A visible child window of the class (by default one that records).
  HWND MakeChild(HWND parent, int id, int x = 0, int y = 0, int w = 10, int h = 1,
                 LPCWSTR cls = kClass, DWORD style = 0, LPCWSTR text = L"") {
    return CreateWindowExW(0, cls, text, WS_CHILD | WS_VISIBLE | style, x, y, w, h, parent,
                           reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id)), nullptr, nullptr);
  }

  // Handles every message waiting; fails the test when WM_QUIT comes instead.
  void Pump() { EXPECT_TRUE(ui::PumpMessages()) << "unexpected WM_QUIT"; }

  std::vector<Received> Of(UINT msg) const {
    std::vector<Received> out;
    for (const Received& r : received_)
      if (r.msg == msg) out.push_back(r);
    return out;
  }
  std::vector<UINT> Commands() const {
    std::vector<UINT> out;
    for (const Received& r : Of(WM_COMMAND)) out.push_back(LOWORD(r.wparam));
    return out;
  }

  ui::HeadlessScreen screen_;
  ui::ScopedScreen scoped_;
  std::vector<Received> received_;
  // Answers a message for every recording window (set before the message comes).
  std::map<UINT, Handler> handlers_;

 private:
  static LRESULT Proc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
    UiTest* t = current_;
    if (t) {
      for (UINT noted : kNoted)
        if (noted == msg) t->received_.push_back(Received{hwnd, msg, wparam, lparam});
      auto it = t->handlers_.find(msg);
      if (it != t->handlers_.end()) {
        bool handled = true;
        Handler handler = it->second;
        LRESULT result = handler(hwnd, msg, wparam, lparam, &handled);
        if (handled) return result;
      }
    }
    return DefWindowProcW(hwnd, msg, wparam, lparam);
  }

  static inline UiTest* current_ = nullptr;
};

}  // namespace velmo::testing
