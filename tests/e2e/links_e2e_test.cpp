// The links of a task in a real terminal: the talk key's question handing a
// mailto: address to the desktop's opener (a stand-in on PATH that records its
// arguments), the task menu's link items with and without a phone, and the
// Links View acting on the link chosen in it.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include "tests/e2e/tmux_session.h"
#include "tests/links/desktop_fixture.h"

namespace velmo::testing {
namespace {

class LinksEndToEndTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    mkdir((root() / "run").c_str(), 0700);
    Recorder("xdg-open", opened_);
    const std::string add = std::string(VELMO_BIN) + " --root '" + root().string() + "' add ";
    CommandOutput(add + "'Call 555-1234567 or write to bob@example.com, see www.example.org/x.'");
  }
  std::vector<std::string> Env() const {
    return {"VELMO_ROOT=" + root().string(), "XDG_RUNTIME_DIR=" + (root() / "run").string(),
            "LANG=C.UTF-8",
            "XDG_DATA_HOME=" + (root() / "data").string(),
            "XDG_DATA_DIRS=" + (root() / "system").string(),
            "XDG_CONFIG_HOME=" + (root() / "config").string(),
            "XDG_CONFIG_DIRS=" + (root() / "system-config").string()};
  }
  // The program, with the stand-in first on PATH (tmux sets its own PATH).
  std::string Program() const {
    return "env 'PATH=" + (root() / "bin").string() + ":" + getenv("PATH") + "' " + VELMO_TODO_BIN;
  }
  // Opens the task menu on the selected task.
  static void OpenTaskMenu(TmuxSession& tmux) {
    tmux.Keys({"F2", "2"});
    ASSERT_TRUE(tmux.WaitFor("Links View")) << tmux.Screen();
  }

  const std::filesystem::path opened_ = root() / "opened";
};

TEST_F(LinksEndToEndTest, TalkKeyMailsTheAddressAndTheMenuListsTheLinksWithoutAPhone) {
  TmuxSession tmux(Program(), Env());
  ASSERT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
  tmux.Keys({"Up", "F3"});  // the talk key: "Phone/Email/URL"; no phone, so the address
  ASSERT_TRUE(tmux.WaitFor("Send email to bob@example.com?")) << tmux.Screen();
  tmux.Keys({"F1"});  // Yes
  EXPECT_EQ(Recorded(opened_), "mailto:bob@example.com\n");

  OpenTaskMenu(tmux);
  const std::string screen = tmux.Screen();
  const size_t mail = screen.find("1 bob@example.com"), web = screen.find("2 www.example.org/x"),
               view = screen.find("3 View");
  EXPECT_TRUE(mail < web && web < view && view != std::string::npos) << screen;
  EXPECT_EQ(screen.find("Dial"), std::string::npos) << "no tel: handler, no phone items";

  std::filesystem::remove(opened_);
  tmux.Keys({"Up", "Enter", "2"});  // Send, "Messaging...": the task as a message
  const std::string message = Recorded(opened_);
  EXPECT_EQ(message.rfind("mailto:?subject=Call%20555-1234567%20or%20write%20to%20bob%40example.com", 0), 0u)
      << message;
  EXPECT_NE(message.find("&body=Call%20555-1234567"), std::string::npos) << message;
}

TEST_F(LinksEndToEndTest, WithATelHandlerThePhoneItemsComeFirstAndTheLinksViewActsOnItsChoice) {
  const auto called = root() / "called";
  Entry("phone.desktop", Recorder("phone", called).string() + " %u", "x-scheme-handler/tel;");
  TmuxSession tmux(Program(), Env());
  ASSERT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
  tmux.Keys({"Up"});  // from the welcome task up to the one with links
  OpenTaskMenu(tmux);
  const std::string screen = tmux.Screen();
  const size_t dial = screen.find("1 Dial 555-1234567"), message = screen.find("2 Msg to 555-1234567"),
               mail = screen.find("3 bob@example.com");
  EXPECT_TRUE(dial < message && message < mail && mail != std::string::npos) << screen;
  tmux.Keys({"1"});
  EXPECT_EQ(Recorded(called), "tel:5551234567\n");

  OpenTaskMenu(tmux);
  tmux.Keys({"Up", "Up", "Enter"});  // from the first item round to "Send", then "Links View"
  ASSERT_TRUE(tmux.WaitFor("Cancel")) << tmux.Screen();
  EXPECT_NE(tmux.Screen(true).find("\x1b[4;7m"), std::string::npos) << "the first link chosen";
  tmux.Keys({"Down", "Down", "Enter"});  // number, address, web address
  ASSERT_TRUE(tmux.WaitFor("Browse web page www.example.org/x?")) << tmux.Screen();
  tmux.Keys({"F1"});
  EXPECT_EQ(Recorded(opened_), "http://www.example.org/x\n");
}

}  // namespace
}  // namespace velmo::testing
