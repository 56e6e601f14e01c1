#include "app/main_loop.h"

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "app/handover_channel.h"
#include "app/main_window.h"
#include "app/main_window_state.h"
#include "app/startup.h"
#include "app/text_screen.h"
#include "categories/category_state.h"
#include "list/list_state.h"
#include "platform/cedb.h"
#include "platform/ipc.h"
#include "platform/ui/colours.h"
#include "platform/ui/desktop.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_ncurses.h"
#include "platform/ui/window.h"
#include "res/menus_app.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

bool WantsTextScreen() {
  const char* choice = std::getenv("VELMO_SCREEN");
  if (choice && std::strcmp(choice, "headless") == 0) return true;
  return !isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO);
}

std::unique_ptr<ui::Screen> OpenScreen(TextScreen** text) {
  *text = nullptr;
  if (!WantsTextScreen()) {
    if (auto terminal = ui::NcursesScreen::Open()) return terminal;
  }
  int width = 0, height = 0;
  TextScreenSize(&width, &height);
  auto screen = std::make_unique<TextScreen>(width, height, STDIN_FILENO, STDOUT_FILENO);
  *text = screen.get();
  return screen;
}

// SIGINT, SIGTERM and SIGHUP as a descriptor the loop watches: they close the
// window like "Exit".
int SignalDescriptor() {
  sigset_t signals;
  sigemptyset(&signals);
  for (int s : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, s);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

void CloseMainWindow() {
  if (HWND window = MainWindow().window) PostMessageW(window, WM_CLOSE, 0, 0);
}

// The run itself, on its screen; `failure` receives why the tasks could not be
// reached when the program ends for that.
int RunOnScreen(const StartRequest& start, std::string* failure) {
  TextScreen* text = nullptr;
  std::unique_ptr<ui::Screen> screen = OpenScreen(&text);
  ui::ScopedScreen attached(screen.get());
  ui::UseTheme(ui::ThemeFromEnvironment());
  if (!text) ipc::SetLogSink([](const std::string&) {});  // the terminal is the screen's

  InitCategories(static_cast<UINT>(start.request));
  InitListState();
  HWND window = CreateMainWindow();
  if (!window) return 0;

  // The window exists from here on: a second instance finds it.
  OpenHandoverChannel(window);

  const int signals = SignalDescriptor();
  if (signals >= 0) {
    ui::WatchFd(signals, [](int fd, short) {
      signalfd_siginfo info;
      while (read(fd, &info, sizeof info) == static_cast<ssize_t>(sizeof info)) {
      }
      CloseMainWindow();
    });
  }
  if (text) text->set_on_input_end(CloseMainWindow);

  int quit_code = 0;
  if (StartMainWindow(start)) {
    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
    }
    quit_code = static_cast<int>(msg.wParam);
  } else {
    *failure = cedb::LastFailure();
  }
  CloseHandoverChannel();
  if (signals >= 0) close(signals);
  return quit_code;
}

}  // namespace

int RunMainWindow(const StartRequest& start) {
  std::string failure;
  const int quit_code = RunOnScreen(start, &failure);
  // Said once the terminal is a terminal again.
  if (!failure.empty()) std::fprintf(stderr, "velmo-todo: %s\n", failure.c_str());
  return quit_code;
}

}  // namespace velmo::app
