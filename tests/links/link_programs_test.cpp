// What reaches the desktop's programs: the URIs made from found links, the
// default application found in the desktop's association files, its Exec line
// taken apart, and the phone's presence and call.
#include <gtest/gtest.h>

#include "app/shortcut_apps.h"
#include "links/link_menu.h"
#include "links/link_uris.h"
#include "links/phone_library.h"
#include "platform/desktop_apps.h"
#include "platform/ui/menu.h"
#include "platform/wstr.h"
#include "tests/links/desktop_fixture.h"

namespace velmo::testing {
namespace {

TEST(LinkUris, HostileTextStaysOneArgumentThatIsNeverAnOption) {
  struct Case { std::wstring uri; std::wstring expected; } const cases[] = {
      {MailtoUri(L"-rf@example.com"), L"mailto:-rf@example.com"},
      {MailtoUri(L"a\"b@x.org"), L"mailto:a%22b@x.org"},
      {WebUri(L"http://x.org/a\"b$(rm -rf ~)`c`"), L"http://x.org/a%22b%24(rm%20-rf%20~)%60c%60"},
      {WebUri(L"www.example.org/p?q=1;r=2"), L"http://www.example.org/p?q=1;r=2"},
      {SmsUri(L"+1 (555) 123-4567"), L"sms:+15551234567"},
      {TelUri(L"0123 45.67 89w1"), L"tel:0123456789w1"},
      {FileUri(L"-x y"), L"file:///-x%20y"},
      {FileUri(L"/tmp/a'b;c"), L"file:///tmp/a%27b%3Bc"},
      {MailtoUri(L"b@x.org", L"Tea & cake?", L"line1\nline2"),
       L"mailto:b@x.org?subject=Tea%20%26%20cake%3F&body=line1%0Aline2"},
  };
  for (const Case& c : cases) EXPECT_EQ(c.uri, c.expected);
}

TEST(LinkUris, AHugeTaskIsCutToAnArgumentTheSystemTakesNeverInsideACharacter) {
  for (size_t subject_chars : {size_t{1} << 20, size_t{100}}) {
    const std::wstring subject(subject_chars, L'\u00e9');  // two bytes, six URI characters
    const std::wstring uri = MailtoUri(L"", subject, std::wstring(size_t{1} << 20, L'x'));
    EXPECT_LE(uri.size(), kMaxUriChars);
    const size_t percent = uri.rfind(L'%');
    EXPECT_LE(percent + 3, uri.size()) << "a cut through %XX";
    EXPECT_NE(uri.find(L"&body="), std::wstring::npos);
  }
}

TEST(DesktopExec, FieldCodesAndQuotingAsTheDesktopWritesThem) {
  struct Case { const wchar_t* exec; const wchar_t* target; std::vector<std::wstring> argv; } const cases[] = {
      {L"phone %u", L"tel:1", {L"phone", L"tel:1"}},
      {L"\"/opt/my app/bin\" --new %U %i %c", L"tel:1", {L"/opt/my app/bin", L"--new", L"tel:1"}},
      {L"prog \"a \\\"b\\\"\" 100%%", L"", {L"prog", L"a \"b\"", L"100%"}},
      {L"prog --file=%f", L"", {L"prog", L"--file="}},
      {L"prog %F", L"", {L"prog"}},
      {L"\"my\\sprog\"", L"", {L"my prog"}},
      {L"prog \"unclosed", L"x", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(shell::ExecArguments(c.exec, c.target), c.argv) << c.exec;
}

using DesktopAppsTest = DesktopTest;

TEST_F(DesktopAppsTest, TheDefaultHandlerComesFromTheAssociationsElseFromTheEntries) {
  const std::string tel = kTelHandlerType;
  EXPECT_EQ(shell::DefaultApplication(tel), "") << "a desktop without a handler";
  Entry("b-phone.desktop", "bphone %u", "x-scheme-handler/tel;");
  Entry("a-phone.desktop", "aphone %u", "text/plain;x-scheme-handler/tel");
  Entry("mail.desktop", "mail %u", "x-scheme-handler/mailto;");
  const std::string apps = (root() / "data" / "applications").string();
  EXPECT_EQ(shell::DefaultApplication(tel), apps + "/a-phone.desktop") << "first entry by name";
  WriteFileBytes(root() / "config" / "mimeapps.list",
                 "[Added Associations]\nx-scheme-handler/tel=mail.desktop\n"
                 "[Default Applications]\nx-scheme-handler/tel=gone.desktop;b-phone.desktop;\n");
  EXPECT_EQ(shell::DefaultApplication(tel), apps + "/b-phone.desktop")
      << "the default, past a missing entry";
  EXPECT_EQ(shell::DefaultApplication("x-scheme-handler/sms"), "");
}

TEST_F(DesktopAppsTest, ThePhoneIsTheTelHandlerOrTheDialCommandAndNothingWithoutEither) {
  const auto log = root() / "called";
  const std::string recorder = Recorder("phone", log).string();
  LoadPhoneLibrary();
  EXPECT_FALSE(PhoneLibraryPresent());
  EXPECT_FALSE(PhoneMakeCall(L"5551234567", L""));

  Entry("phone.desktop", recorder + " --call %u", "x-scheme-handler/tel;");
  LoadPhoneLibrary();
  ASSERT_TRUE(PhoneLibraryPresent());
  EXPECT_TRUE(PhoneMakeCall(L"+1 (555) 123-4567", L"ignored: a tel: address has no name"));
  EXPECT_EQ(Recorded(log), "--call\ntel:+15551234567\n");

  std::filesystem::remove(log);
  ASSERT_EQ(WriteLaunchCommand(kDialCommandName, {FromUtf8(recorder), L"--name=%2", L"%2", L"%1"}), 0);
  EXPECT_TRUE(PhoneMakeCall(L"555 1234", L"-rf $(x)"));
  EXPECT_EQ(Recorded(log), "--name=-rf $(x)\n-rf $(x)\n555 1234\n") << "the dial command wins";
  std::filesystem::remove(log);
  EXPECT_TRUE(PhoneMakeCall(L"555 1234", L""));
  EXPECT_EQ(Recorded(log), "--name=\n555 1234\n") << "no name: its lone argument goes";
}

TEST_F(DesktopAppsTest, AppActionsStartTheDesktopsProgramUntilTheUserSetsAnother) {
  const auto log = root() / "calendar";
  Entry("calendar.desktop", Recorder("calendar", log).string() + " --view %F",
        "text/calendar;");
  EXPECT_TRUE(StartAppShortcut(39974));
  EXPECT_EQ(Recorded(log), "--view\n");
  EXPECT_EQ(ReadLaunchCommand(L"Calendar"),
            (std::vector<std::wstring>{kDesktopDefault, L"text/calendar"}))
      << "the default is written where the user can change it";
  EXPECT_FALSE(StartAppShortcut(39975)) << "no address book on this desktop";
  ASSERT_EQ(WriteLaunchCommand(L"Calendar", {}), 0);
  EXPECT_FALSE(StartAppShortcut(39974)) << "emptied by the user: nothing starts";
}

// The menu's items from the top: command and text ("-" a separator).
std::vector<std::wstring> TopItems(HMENU menu, int count) {
  std::vector<std::wstring> items;
  for (int i = 0; i < count && i < GetMenuItemCount(menu); ++i) {
    if (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_SEPARATOR) {
      items.push_back(L"-");
      continue;
    }
    wchar_t text[256] = {};
    GetMenuStringW(menu, static_cast<UINT>(i), text, 256, MF_BYPOSITION);
    items.push_back(std::to_wstring(GetMenuItemID(menu, i)) + L" " + text);
  }
  return items;
}

TEST_F(DesktopAppsTest, LinkItemsStandAtTheTopInTheirOrderAndPhoneItemsOnlyWithAPhone) {
  const LinkTask task{L"Call 555-1234567 or mail ann@example.org", L"See (www.example.org/x).",
                      L"555-1234567"};
  struct Case { const char* name; bool phone; LinkTask task; std::vector<std::wstring> top; } const cases[] = {
      {"no phone", false, task,
       {L"40119 ann@example.org", L"40120 www.example.org/x", L"-", L"1 Usual"}},
      {"a phone", true, task,
       {L"40118 Dial 555-1234567", L"40165 Msg to 555-1234567", L"40119 ann@example.org",
        L"40120 www.example.org/x", L"-", L"1 Usual"}},
      {"only a number", true, {L"Call 555-1234567", L"", L"555-1234567"},
       {L"40118 Dial 555-1234567", L"40165 Msg to 555-1234567", L"-", L"1 Usual"}},
      {"only an address", false, {L"x", L"mail ann@example.org.", L""},
       {L"40119 ann@example.org.", L"-", L"1 Usual"}},
      {"nothing", true, {L"Buy milk", L"", L""}, {L"1 Usual"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    if (c.phone) Entry("phone.desktop", "phone %u", "x-scheme-handler/tel;");
    else std::filesystem::remove(root() / "data" / "applications" / "phone.desktop");
    LoadPhoneLibrary();
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"Usual");
    AddLinkItems(menu, c.task);
    EXPECT_EQ(TopItems(menu, static_cast<int>(c.top.size())), c.top);
    DestroyMenu(menu);
  }
}

}  // namespace
}  // namespace velmo::testing
