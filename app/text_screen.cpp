#include "app/text_screen.h"

#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "platform/ui/keymap.h"
#include "platform/ui/virtual_keys.h"
#include "platform/wstr.h"

namespace velmo::app {
namespace {

struct NamedKey {
  const char* name;
  UINT vk;
};

constexpr NamedKey kNamedKeys[] = {
    {"{F1}", VK_TSOFT1},     {"{F2}", VK_TSOFT2},   {"{F3}", VK_TTALK},
    {"{F4}", VK_TEND},       {"{F5}", VK_TVOLUMEDOWN}, {"{F6}", VK_TVOLUMEUP},
    {"{F7}", VK_TRECORD},    {"{Up}", VK_UP},       {"{Down}", VK_DOWN},
    {"{Left}", VK_LEFT},     {"{Right}", VK_RIGHT}, {"{Home}", VK_HOME},
    {"{End}", VK_END},       {"{PgUp}", VK_TVOLUMEUP}, {"{PgDn}", VK_TVOLUMEDOWN},
    {"{Back}", VK_BACK},
};
constexpr size_t kLongestName = 8;

// Length of the UTF-8 sequence a lead byte starts (1 for a stray byte).
size_t SequenceLength(unsigned char lead) {
  if (lead >= 0xF0) return 4;
  if (lead >= 0xE0) return 3;
  if (lead >= 0xC0) return 2;
  return 1;
}

void WriteAll(int fd, const std::string& text) {
  size_t done = 0;
  while (done < text.size()) {
    const ssize_t n = write(fd, text.data() + done, text.size() - done);
    if (n <= 0) return;
    done += static_cast<size_t>(n);
  }
}

}  // namespace

TextScreen::TextScreen(int width, int height, int input_fd, int output_fd)
    : HeadlessScreen(width, height), input_fd_(input_fd), output_fd_(output_fd) {}

void TextScreen::EndedAndShown() {
  if (!ended_ || presents() == 0 || !on_end_) return;
  auto on_end = std::move(on_end_);
  on_end_ = nullptr;
  on_end();
}

void TextScreen::Present() {
  HeadlessScreen::Present();
  EndedAndShown();
  std::wstring text = Text();
  if (text == shown_) return;
  shown_ = std::move(text);
  WriteAll(output_fd_, "--- screen\n" + ToUtf8(shown_) + "\n");
}

void TextScreen::TypeInput(std::string_view utf8) {
  pending_.append(utf8);
  size_t at = 0;
  while (at < pending_.size()) {
    const char c = pending_[at];
    if (c == '{') {
      const size_t close = pending_.find('}', at);
      if (close == std::string::npos && pending_.size() - at < kLongestName) break;  // more to come
      bool named = false;
      for (const NamedKey& k : kNamedKeys) {
        if (pending_.compare(at, std::char_traits<char>::length(k.name), k.name) == 0) {
          TypeKey(k.vk, k.vk == VK_BACK ? 0x08 : 0);
          at += std::char_traits<char>::length(k.name);
          named = true;
          break;
        }
      }
      if (named) continue;
    }
    const size_t length = SequenceLength(static_cast<unsigned char>(c));
    if (at + length > pending_.size()) break;  // the rest of the character is to come
    for (wchar_t ch : FromUtf8(std::string_view(pending_).substr(at, length))) {
      ui::InputEvent event;
      if (ui::KeyFromChar(ch, &event)) TypeKey(event.vk, event.ch);
    }
    at += length;
  }
  pending_.erase(0, at);
}

bool TextScreen::ReadInput(ui::InputEvent* event) {
  if (HeadlessScreen::ReadInput(event)) return true;
  if (ended_ || input_fd_ < 0) return false;
  pollfd ready{input_fd_, POLLIN, 0};
  if (poll(&ready, 1, 0) <= 0) return false;
  char buffer[256];
  const ssize_t n = read(input_fd_, buffer, sizeof buffer);
  if (n <= 0) {
    ended_ = true;
    input_fd_ = -1;
    EndedAndShown();
    return false;
  }
  TypeInput(std::string_view(buffer, static_cast<size_t>(n)));
  return HeadlessScreen::ReadInput(event);
}

void TextScreenSize(int* width, int* height) {
  *width = 80;
  *height = 24;
  if (const char* size = std::getenv("VELMO_SCREEN_SIZE")) {
    int w = 0, h = 0;
    if (std::sscanf(size, "%dx%d", &w, &h) == 2 && w > 0 && h > 0 && w <= 1000 && h <= 1000) {
      *width = w;
      *height = h;
    }
  }
}

}  // namespace velmo::app
