// The in-memory screen of the tests.
#include "platform/ui/screen_headless.h"

#include "platform/ui/keymap.h"
#include "platform/ui/virtual_keys.h"

namespace velmo::ui {

HeadlessScreen::HeadlessScreen(int width, int height, ColourDepth depth) : depth_(depth) {
  ResizeGrid(width, height);
}

void HeadlessScreen::TypeKey(UINT vk, wchar_t ch, std::uint8_t modifiers) {
  InputEvent event;
  event.vk = vk;
  event.ch = ch;
  event.modifiers = modifiers;
  input_.push_back(event);
}

void HeadlessScreen::TypeText(std::wstring_view text) {
  for (wchar_t ch : text) {
    InputEvent event;
    if (KeyFromChar(ch, &event)) input_.push_back(event);
  }
}

void HeadlessScreen::TypeBackspace() { TypeKey(VK_BACK, 0x08); }

void HeadlessScreen::Resize(int width, int height) {
  ResizeGrid(width, height);
  InputEvent event;
  event.kind = InputEvent::Kind::kResize;
  input_.push_back(event);
}

void HeadlessScreen::AddIdleStep(std::function<void()> step) { steps_.push_back(std::move(step)); }

bool HeadlessScreen::ReadInput(InputEvent* event) {
  if (input_.empty()) return false;
  *event = input_.front();
  input_.pop_front();
  return true;
}

bool HeadlessScreen::OnIdle() {
  if (steps_.empty()) return false;
  std::function<void()> step = std::move(steps_.front());
  steps_.pop_front();
  step();
  return true;
}

std::wstring HeadlessScreen::Row(int y) const {
  std::wstring row;
  if (y < 0 || y >= height()) return row;
  for (int x = 0; x < width(); ++x) {
    wchar_t ch = at(x, y).ch;
    if (ch != 0) row += ch;
  }
  return row;
}

std::wstring HeadlessScreen::Text() const {
  std::wstring text;
  for (int y = 0; y < height(); ++y) {
    std::wstring row = Row(y);
    row.erase(row.find_last_not_of(L' ') + 1);
    if (y) text += L'\n';
    text += row;
  }
  return text;
}

bool HeadlessScreen::Contains(std::wstring_view text) const { return Find(text).x >= 0; }

POINT HeadlessScreen::Find(std::wstring_view text) const {
  for (int y = 0; y < height(); ++y) {
    std::wstring row = Row(y);
    size_t pos = row.find(text);
    if (pos == std::wstring::npos) continue;
    // Count columns up to the match (double-width characters take two).
    int x = TextWidth(std::wstring_view(row).substr(0, pos));
    return POINT{x, y};
  }
  return POINT{-1, -1};
}

}  // namespace velmo::ui
